#include "picture/text/text_style.h"

#include "host/db/database.h"
#include "picture/text/shape_font.h"
#include "picture/text/system_font.h"
#include "store/pair_edit.h"
#include "store/table_index.h"
#include "store/text/text_encoding.h"
#include "util/tcvn3.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <numbers>
#include <sstream>

namespace picture
{

namespace
{

/// Shows what fonts of strokes that are not found would show.
constexpr const char* kLabelFont = "Vnsimple.shx";

std::string lowerCase(std::string_view text)
{
    std::string lower{text};
    std::transform(lower.begin(), lower.end(), lower.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
    return lower;
}

std::string fileName(const std::string& path)
{
    const size_t folder = path.find_last_of("/\\");
    return folder == std::string::npos ? path : path.substr(folder + 1);
}

bool isOutlineFile(const std::string& name)
{
    const std::string lower = lowerCase(name);
    return lower.ends_with(".ttf") || lower.ends_with(".ttc") || lower.ends_with(".otf");
}

/// Fonts whose name begins with "Vn" or ".Vn" have the letters of TCVN3 at its codes; a name that ends with H is that
/// of the capitals.
Reading readingOf(const std::string& name)
{
    std::string base = lowerCase(fileName(name));
    if (base.starts_with('.'))
        base.erase(0, 1);
    base.erase(std::min(base.find('.'), base.size()));
    if (!base.starts_with("vn") || base.starts_with("vni"))
        return Reading::kPlain;
    return base.ends_with('h') ? Reading::kVietnameseCapitals : Reading::kVietnamese;
}

char16_t capital(char16_t unit)
{
    if (unit < 0x80)
        return unit >= u'a' && unit <= u'z' ? static_cast<char16_t>(unit - 32) : unit;
    // The letters are told apart by one rule: a capital is the neighbour that folds to this one.
    for (const int step : {-1, -32})
        if (const auto other = static_cast<char16_t>(unit + step); other != unit && foldCase(other) == unit)
            return other;
    return unit;
}

} // namespace

TextStyles::TextStyles(AcDbDatabase& database, std::vector<std::string> folders, Notes& notes)
    : m_database{database}, m_folders{std::move(folders)}, m_notes{notes}, m_codePage{database.store().encoding}
{
}

TextStyle TextStyles::readStyle(std::string_view text)
{
    constexpr int64_t kBold = 0x2000000;
    constexpr int64_t kItalic = 0x1000000;
    TextStyle style;
    std::string file;
    std::string family;
    int64_t flags = 0;
    bool isText = true;
    TagReader pairs{text};
    for (Tag tag; pairs.next(tag);)
        if (tag.code == 3)
            file = toUtf8(m_database.encoding().decode(tag.word()));
        else if (tag.code == 40)
            style.height = std::max(0.0, tag.real());
        else if (tag.code == 41 && tag.real() > 0.0)
            style.widthFactor = tag.real();
        else if (tag.code == 50)
            style.oblique = tag.real() * std::numbers::pi / 180.0;
        else if (tag.code == 70)
            isText = (tag.integer() & 1) == 0;
        else if (tag.code == 1000 && family.empty())
            family = toUtf8(m_database.encoding().decode(tag.word()));
        else if (tag.code == 1071)
            flags = tag.integer();
    if (!isText)
        return style;
    style.face = family.empty() ? faceOfFile(file) : outlineFace(family, (flags & kBold) != 0, (flags & kItalic) != 0);
    return style;
}

Typeface TextStyles::faceOfFile(const std::string& file)
{
    return isOutlineFile(file) ? outlineFace(familyOfFile(file), false, false) : strokeFace(file);
}

const TextStyle& TextStyles::style(std::string_view raw)
{
    const auto known = m_byRawName.find(std::string{raw});
    if (known != m_byRawName.end())
        return known->second;
    const ObjectRecord* listed = m_database.tables().find("STYLE", m_database.encoding().decode(raw));
    if (listed == nullptr)
        listed = m_database.tables().find("STYLE", u"Standard");
    TextStyle style;
    try
    {
        style = listed != nullptr ? readStyle(listed->view()) : style;
    }
    catch (const DamagedValue&)
    {
        m_notes.texts.insert("a damaged text style counts as the usual one");
    }
    if (style.face.font == nullptr)
        style.face = strokeFace("txt");
    return m_byRawName.emplace(raw, style).first->second;
}

bool TextStyles::isUsed(std::u16string_view name) const
{
    return std::any_of(m_byRawName.begin(), m_byRawName.end(),
                       [&](const auto& known) { return equalNoCase(m_database.encoding().decode(known.first), name); });
}

Typeface TextStyles::outlineFace(const std::string& family, bool bold, bool italic)
{
    const std::string key = family + (bold ? "\nbold" : "\n") + (italic ? "\nitalic" : "\n");
    std::unique_ptr<Font>& font = m_fonts[key];
    if (font == nullptr)
    {
        SystemFont found = findSystemFont(family, bold, italic);
        if (!family.empty() && lowerCase(found.family) != lowerCase(family))
            m_notes.texts.insert("font " + family + " is not on this system: " + found.family + " stands in for it");
        font = std::move(found.font);
    }
    return {font.get(), readingOf(family)};
}

Typeface TextStyles::strokeFace(const std::string& file)
{
    std::string name = lowerCase(fileName(file.empty() ? "txt" : file));
    if (!name.ends_with(".shx"))
        name += ".shx";
    std::unique_ptr<Font>& font = m_fonts[name];
    if (font == nullptr)
    {
        font = loadStrokes(name);
        if (font == nullptr)
        {
            m_notes.texts.insert("font " + name + " was not found: the label font stands in for it");
            font = loadStrokes(kLabelFont);
        }
    }
    if (font == nullptr)
        return {outlineFace({}, false, false).font, readingOf(name)};
    return {font.get(), readingOf(name)};
}

std::unique_ptr<Font> TextStyles::loadStrokes(const std::string& file)
{
    const std::string path = findFile(file);
    std::ifstream stream{path, std::ios::binary};
    if (path.empty() || !stream)
        return nullptr;
    std::ostringstream bytes;
    bytes << stream.rdbuf();
    return readShapeFont(bytes.view(),
                         readingOf(file) == Reading::kPlain ? ShapeCodes::kUnicode : ShapeCodes::kVietnamese);
}

/// Names of font files are compared without regard to case.
std::string TextStyles::findFile(const std::string& name) const
{
    const std::string wanted = lowerCase(fileName(name));
    for (const std::string& folder : m_folders)
    {
        std::error_code error;
        for (const auto& entry : std::filesystem::directory_iterator{folder.empty() ? "." : folder, error})
            if (lowerCase(entry.path().filename().string()) == wanted)
                return entry.path().string();
    }
    return {};
}

/// The byte that a character was before the drawing's code page made it what it is; the character where it was none.
char16_t TextStyles::byteOf(char16_t unit) const
{
    if (unit < 0x100 || m_codePage->isUtf8())
        return unit;
    const std::string byte = m_codePage->encode({&unit, 1});
    return byte.size() == 1 ? static_cast<char16_t>(static_cast<unsigned char>(byte[0])) : unit;
}

std::u16string TextStyles::read(std::u16string_view text, const Typeface& face) const
{
    std::u16string result{text};
    if (face.reading == Reading::kPlain)
        return result;
    std::u16string bytes;
    for (const char16_t unit : text)
        bytes += byteOf(unit);
    // A text with a character that is no byte is wide text already.
    if (std::all_of(bytes.begin(), bytes.end(), [](char16_t unit) { return unit < 0x100; }))
        result = DecodeStoredText(bytes, bytes.size());
    if (face.reading == Reading::kVietnameseCapitals)
        std::transform(result.begin(), result.end(), result.begin(), capital);
    return result;
}

const Font& TextStyles::fontFor(const Typeface& face, std::u16string_view text)
{
    for (std::u16string_view left = text; !left.empty();)
        if (const char32_t character = takeCharacter(left); character > U' ' && face.font->glyph(character) == nullptr)
            return *outlineFace({}, false, false).font;
    return *face.font;
}

} // namespace picture
