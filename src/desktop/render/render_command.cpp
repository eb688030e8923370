#include "desktop/render/render_command.h"

#include "desktop/desk/desk.h"
#include "desktop/render/quiet_front_end.h"
#include "disk/replace.h"
#include "files/dxf/save.h"
#include "files/reader.h"
#include "host/app/paths.h"
#include "host/app/session.h"
#include "host/companion/alignment.h"
#include "picture/page/render.h"
#include "picture/page/sections.h"
#include "sections/section_list.h"

#include <filesystem>
#include <iostream>

namespace desktop
{

namespace
{

void write(const std::string& path, const std::string& bytes)
{
    disk::replaceFile(path, {bytes});
}

AcDbObjectId findAlignment(AcDbDatabase& database, const std::string& name)
{
    for (const AcDbObjectId id : picture::alignmentsOf(database))
        if (const AcDbObjectPointer<PlxDbAlignment> alignment{id})
            if (name.empty() || equalNoCase(alignment->name(), toUtf16(name)))
                return id;
    throw Failure{name.empty() ? "the drawing has no alignment" : "there is no alignment " + name};
}

/// The pages that the arguments ask of a drawing.
std::vector<picture::Page> pagesOf(const RenderArguments& arguments, picture::DrawingLists& lists)
{
    if (!arguments.sections.empty() || !arguments.alignment.empty())
    {
        const AcDbObjectPointer<PlxDbAlignment> alignment{findAlignment(lists.database(), arguments.alignment)};
        std::vector<std::u16string> names;
        for (const SectionRecord& section : alignment->sections())
            names.push_back(section.name);
        const std::string list = arguments.sections.empty() ? "all" : arguments.sections;
        return sectionPages(lists, *alignment, ParseSectionList(list, names.size()));
    }
    picture::Page page;
    const std::optional<Box2d> window = windowOf(arguments);
    page.isTight = window.has_value();
    page.frame = window ? *window : lists.shownBox();
    page.millimetresPerUnit = 1000.0 / lists.metre();
    if (page.frame.isEmpty())
        lists.notes().texts.insert("the drawing has nothing to show");
    return {page};
}

/// "road.png" with a number before its ending, as many digits as the last one has.
std::string numbered(const std::string& path, size_t number, size_t count)
{
    const std::filesystem::path whole{path};
    std::string digits = std::to_string(number);
    digits.insert(0, std::to_string(count).size() - digits.size(), '0');
    return (whole.parent_path() / (whole.stem().string() + "-" + digits + whole.extension().string())).string();
}

void tell(const picture::Notes& notes)
{
    for (const std::string& text : notes.texts)
        std::cerr << "Note: " << text << '\n';
    for (const auto& [kind, count] : notes.undrawn)
        std::cerr << "Not drawn: " << kind << " (" << count << ")\n";
}

void renderDrawing(const RenderArguments& arguments, const std::string& drawing, const std::string& output)
{
    const PictureKind kind = kindOfName(output);
    const picture::PageOptions options = pageOptions(arguments, kind);
    host::Session& session = host::Session::current();
    AcApDocument* document = session.documents().open(modulePath(drawing));
    picture::Notes notes;
    {
        picture::DrawingLists lists{*document->database(), fontFolders(drawing, arguments.fonts), notes};
        std::vector<std::u16string> layers;
        for (const std::string& layer : arguments.layers)
            layers.push_back(toUtf16(layer));
        lists.looks().showOnly(layers);
        std::vector<picture::Page> pages = pagesOf(arguments, lists);
        if (kind == PictureKind::kPdf)
        {
            const std::u16string name = toUtf16(std::filesystem::path{drawing}.filename().string());
            if (pages.size() == 1 && pages[0].title.empty() && !pages[0].isTight)
                pages[0].title = name;
            write(output, renderPdf(lists, pages, options, name));
        }
        else
            for (size_t i = 0; i < pages.size(); ++i)
                write(pages.size() == 1 ? output : numbered(output, i + 1, pages.size()),
                      kind == PictureKind::kPng ? renderPng(lists, pages[i], options)
                                                : renderSvg(lists, pages[i], options));
    }
    tell(notes);
    session.documents().close(document);
}

} // namespace

void render(const RenderArguments& arguments)
{
    if (arguments.drawings.size() > 1 && arguments.folder.empty())
        throw UsageError{"several drawings need -d FOLDER"};
    if (arguments.output.empty() == arguments.folder.empty())
        throw UsageError{"one of -o OUT and -d FOLDER says where the picture goes"};
    if (!arguments.window.empty() && (!arguments.sections.empty() || !arguments.alignment.empty()))
        throw UsageError{"--window and --sections exclude each other"};
    files::FileReader reader;
    files::DxfWriter writer;
    QuietFrontEnd frontEnd;
    host::Session session{reader, writer, frontEnd};
    for (const std::string& drawing : arguments.drawings)
    {
        std::string output = arguments.output;
        if (output.empty())
        {
            const std::string ending =
                endingOf(kindOfName("." + (arguments.format.empty() ? "png" : arguments.format)));
            output =
                (std::filesystem::path{arguments.folder} / (std::filesystem::path{drawing}.stem().string() + ending))
                    .string();
        }
        renderDrawing(arguments, drawing, output);
    }
}

} // namespace desktop
