#include "files/dxf/dxf_text.h"
#include "files/dxf/error.h"
#include "store/block_index.h"
#include "store/handle_table.h"
#include "store/header_variables.h"
#include "store/table_index.h"

#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <random>

using testing::HasSubstr;

namespace
{

std::string errorOf(std::string_view bytes, DrawingReader::Purpose purpose = DrawingReader::Purpose::Drawing)
{
    try
    {
        files::readDxf(fileText(bytes), "test.dxf", purpose);
        return "read";
    }
    catch (const files::FileError& error)
    {
        return error.what();
    }
}

std::string replaced(std::string text, std::string_view what, std::string_view with)
{
    const size_t at = text.find(what);
    EXPECT_NE(at, std::string::npos) << what;
    return text.replace(at, what.size(), with);
}

std::string withCarriageReturns(const std::string& text)
{
    std::string result;
    for (const char c : text)
        result += c == '\n' ? std::string{"\r\n"} : std::string{c};
    return result;
}

/// The drawing as binary DXF: every value in the form its group code asks for. Before R13 (`shortCodes`) a group code
/// is one byte, or a mark and two.
std::string asBinary(const std::string& text, bool shortCodes = false)
{
    std::string bytes{"AutoCAD Binary DXF\r\n\x1a\0", 22};
    const auto append = [&bytes](auto value) { bytes.append(reinterpret_cast<const char*>(&value), sizeof value); };
    TagReader reader{text};
    for (Tag tag; reader.next(tag);)
    {
        if (shortCodes && tag.code >= 255)
            append(uint8_t{255});
        if (shortCodes && tag.code < 255)
            append(static_cast<uint8_t>(tag.code));
        else
            append(static_cast<int16_t>(tag.code));
        if (tag.code >= 10 && tag.code <= 59)
            append(tag.real());
        else if ((tag.code >= 60 && tag.code <= 79) || tag.code == 1070)
            append(static_cast<int16_t>(tag.integer()));
        else if ((tag.code >= 90 && tag.code <= 99) || tag.code == 1071)
            append(static_cast<int32_t>(tag.integer()));
        else if (tag.code >= 280 && tag.code <= 289)
            append(static_cast<int16_t>(tag.integer()));
        else
            bytes.append(tag.value).push_back('\0');
    }
    return bytes;
}

} // namespace

TEST(DxfReader, FindsEveryObjectWhereItStands)
{
    const auto database = parsed(smallDrawing());
    ObjectRecord* line = database->handles().find(0x30);
    ASSERT_NE(line, nullptr);
    EXPECT_EQ(database->dxfNameOf(*line), "LINE");
    EXPECT_EQ(database->blocks().ownerOf(*line), database->blocks().record(u"*model_space"));
    EXPECT_EQ(database->blocks().entities(*database->blocks().record(u"*Model_Space")).size(), 3U);
    EXPECT_EQ(database->handles().find(0x99), nullptr);
    EXPECT_EQ(database->nextHandle(), 0x40U);
    EXPECT_NE(database->tables().find("LAYER", u"0"), nullptr);
    EXPECT_EQ(database->header().word("$CLAYER"), "0");
}

TEST(DxfReader, AnUntouchedDrawingIsWrittenByteForByte)
{
    for (const std::string& text : {smallDrawing(), withCarriageReturns(smallDrawing()), asBinary(smallDrawing()),
                                    smallDrawing() + "  ", replaced(smallDrawing(), "  0\nEOF\n", "  0\nEOF")})
        EXPECT_EQ(written(*parsed(text)), text);
}

TEST(DxfReader, CommentsMayStandInFrontOfASectionsNameAndContent)
{
    const std::string comment = "999\nSECTION or not\n";
    for (const std::string name : {"HEADER", "TABLES", "BLOCKS", "ENTITIES"})
    {
        const std::string section = "  0\nSECTION\n", title = "  2\n" + name + "\n";
        const std::string text =
            replaced(smallDrawing(), section + title, section + comment + title + comment + comment);
        const auto database = parsed(text);
        EXPECT_EQ(database->store().records.size(), parsed(smallDrawing())->store().records.size()) << name;
        EXPECT_EQ(written(*database), text);
    }
}

TEST(DxfReader, BinaryAndTextAreTheSameDrawing)
{
    const auto text = parsed(smallDrawing());
    const auto binary = parsed(asBinary(smallDrawing()));
    ASSERT_EQ(text->store().records.size(), binary->store().records.size());
    for (size_t i = 0; i < text->store().records.size(); ++i)
        EXPECT_EQ(text->store().records[i].handle, binary->store().records[i].handle);
}

TEST(DxfReader, LineEndsInTextsOfABinaryDrawingAreWrittenBehindACaret)
{
    const std::string bytes =
        replaced(asBinary(replaced(smallDrawing(), "AcDbMystery", "one@two#")), "one@two#", "one\ntwo\r");
    const auto database = parsed(bytes);
    EXPECT_EQ(written(*database), bytes);

    database->setErased(*database->handles().find(0x30), true);
    const std::string text = written(*database);
    EXPECT_THAT(text, HasSubstr("100\none^Jtwo^M\n"));
    EXPECT_EQ(written(*parsed(text)), text);
}

TEST(DxfReader, ABinaryFileOfR12HasShortGroupCodesAndValuesOfEverySize)
{
    const std::string entity =
        "  0\nINSERT\n  8\n0\n  2\nTREE\n 10\n1.5\n 20\n-2.0\n 62\n-3\n 91\n70000\n1001\nSV_INFOR\n"
        "1070\n-7\n1071\n-70000\n1000\nCAY\n";
    const std::string text = "  0\nSECTION\n  2\nHEADER\n  9\n$ACADVER\n  1\nAC1009\n  0\nENDSEC\n"
                             "  0\nSECTION\n  2\nENTITIES\n" +
                             entity + "  0\nENDSEC\n  0\nEOF\n";
    AcDbDatabase drawing;
    drawing.adopt(files::readDxf(fileText(asBinary(text, true)), "test.dxf", DrawingReader::Purpose::Symbol));
    EXPECT_EQ(drawing.store().file.view(), text);
}

TEST(DxfReader, ErasedChangedAndAddedObjectsAreTheOnlyDifference)
{
    for (const bool carriageReturns : {false, true})
    {
        const std::string text = carriageReturns ? withCarriageReturns(smallDrawing()) : smallDrawing();
        const std::string end = carriageReturns ? "\r\n" : "\n";
        const auto database = parsed(text);
        database->setErased(*database->handles().find(0x30), true);
        database->addBlock(u"C\u00E2y", {1.0, 2.0, 0.0});
        const std::string result = written(*database);
        EXPECT_EQ(result.find("LINE" + end + "  5" + end + "30"), std::string::npos);
        EXPECT_THAT(result, HasSubstr("$HANDSEED" + end + "  5" + end + "43" + end));
        EXPECT_THAT(result, HasSubstr("  2" + end + "C\xE2y" + end)) << "the name is in the drawing's code page";
        EXPECT_THAT(result, HasSubstr("BLOCK_RECORD" + end + "  5" + end + "1" + end + "330" + end + "0" + end + "100" +
                                      end + "AcDbSymbolTable" + end + " 70" + end + "3" + end));
        EXPECT_EQ(result.find('\r') != std::string::npos, carriageReturns);
        const auto again = parsed(result);
        EXPECT_EQ(again->store().records.size(), database->store().records.size() - 1);
        EXPECT_NE(again->blocks().contents(u"c\u00C2Y"), nullptr);
        EXPECT_NE(again->handles().find(0x32), nullptr);
    }
}

TEST(DxfReader, SaysWhatIsWrongAndWhere)
{
    const std::string good = smallDrawing();
    EXPECT_THAT(errorOf(""), HasSubstr("empty or not a DXF"));
    EXPECT_THAT(errorOf("GIF89a"), HasSubstr("line 1: expected a group code"));
    EXPECT_THAT(errorOf("  5\nabc\n"), HasSubstr("is not a DXF drawing"));
    EXPECT_THAT(errorOf(good.substr(0, good.size() - 8)), HasSubstr("cut short"));
    EXPECT_THAT(errorOf(good.substr(0, good.find("AcDbMystery"))), HasSubstr("cut short"));
    EXPECT_THAT(errorOf(replaced(good, " 11\n3.0", "x11\n3.0")),
                HasSubstr("test.dxf: line 209: expected a group code"));
    EXPECT_THAT(errorOf(replaced(good, " 90\n2\n", " 90\n3\n")), HasSubstr("3 vertices announced, 2 found"));
    EXPECT_THAT(errorOf(replaced(good, " 90\n2\n", " 90\n-1\n")), HasSubstr("-1 vertices announced, 2 found"));
    EXPECT_THAT(errorOf(smallDrawing("AC1014")), HasSubstr("version R14, older than R2000"));
    EXPECT_EQ(errorOf(smallDrawing("AC1014"), DrawingReader::Purpose::Symbol), "read");
    EXPECT_THAT(errorOf(smallDrawing("AC1050")), HasSubstr("newer than R2018"));
    EXPECT_THAT(errorOf(replaced(good, "  0\nSECTION\n  2\nENTITIES",
                                 "  0\nSECTION\n  2\nTABLES\n  0\nENDSEC\n"
                                 "  0\nSECTION\n  2\nENTITIES")),
                HasSubstr("a second section \"TABLES\""));
    EXPECT_THAT(errorOf(replaced(good, "  0\nENDTAB", "  0\nENDSEC")), HasSubstr("table LAYER has no end"));
    EXPECT_THAT(errorOf(asBinary(good).substr(0, 500)), HasSubstr("byte "));
}

TEST(DxfReader, NoBytesMakeItCrash)
{
    std::mt19937 random{7};
    for (const std::string& good : {smallDrawing(), asBinary(smallDrawing())})
        for (int round = 0; round < 3000; ++round)
        {
            std::string bytes = good;
            for (unsigned change = 0; change <= round % 4U; ++change)
                bytes[random() % bytes.size()] = static_cast<char>(random() % 3 == 0 ? '\n' : random());
            if (round % 5 == 0)
                bytes.resize(random() % bytes.size());
            try
            {
                const auto database = parsed(bytes);
                EXPECT_EQ(written(*database), bytes);
            }
            catch (const files::FileError&)
            {
            }
        }
}

TEST(TextEncoding, VietnameseSurvivesEveryCodePage)
{
    const std::u16string text = u"Cột điện Ả ằ \u20AC ½";
    for (const auto& [version, page] : {std::pair{1021, "ANSI_1258"},
                                        {1018, "ANSI_1258"},
                                        {1015, "ANSI_1252"},
                                        {1015, "ANSI_932"},
                                        {1015, ""},
                                        {1015, "dos850"},
                                        {1018, "no such page"}})
    {
        const auto encoding = makeTextEncoding(version, page);
        const std::string bytes = encoding->encode(text);
        EXPECT_EQ(encoding->decode(bytes), text) << page << " as " << bytes;
    }
    EXPECT_EQ(makeTextEncoding(1015, "ANSI_1252")->encode(u"\u1EA3\n\u00E0"), "\\U+1EA3 \xE0");
    EXPECT_EQ(makeTextEncoding(1015, "ANSI_1252")->decode("\\U+1EA3\\M+182A0\\P\\U+12"), u"\u1EA3\u3042\\P\\U+12");
    EXPECT_EQ(makeTextEncoding(1021, "")->decode("a\xFFz\\U+00E2"), u"a\uFFFDz\u00E2");
}
