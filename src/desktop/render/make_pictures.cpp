#include "desktop/render/make_pictures.h"

#include "host/companion/alignment.h"
#include "picture/page/render.h"
#include "picture/page/sections.h"
#include "sections/section_list.h"

#include <filesystem>

namespace desktop
{

namespace
{

AcDbObjectId findAlignment(AcDbDatabase& database, const std::string& name)
{
    for (const AcDbObjectId id : picture::alignmentsOf(database))
        if (const AcDbObjectPointer<PlxDbAlignment> alignment{id})
            if (name.empty() || equalNoCase(alignment->name(), toUtf16(name)))
                return id;
    throw Failure{name.empty() ? "the drawing has no alignment" : "there is no alignment " + name};
}

std::vector<picture::Page> sectionsOf(const RenderArguments& arguments, picture::DrawingLists& lists)
{
    const AcDbObjectPointer<PlxDbAlignment> alignment{findAlignment(lists.database(), arguments.alignment)};
    const std::string list = arguments.sections.empty() ? "all" : arguments.sections;
    return sectionPages(lists.database(), lists.modelSpace(), *alignment,
                        ParseSectionList(list, alignment->sections().size()));
}

/// "road.png" with a number before its ending, as many digits as the last one has.
std::string numbered(const std::string& path, size_t number, size_t count)
{
    const std::filesystem::path whole{path};
    std::string digits = std::to_string(number);
    digits.insert(0, std::to_string(count).size() - digits.size(), '0');
    return (whole.parent_path() / (whole.stem().string() + "-" + digits + whole.extension().string())).string();
}

} // namespace

std::vector<picture::Page> pagesOf(const RenderArguments& arguments, picture::DrawingLists& lists,
                                   const std::u16string& name, bool forPaper)
{
    std::vector<std::u16string> layers;
    for (const std::string& layer : arguments.layers)
        layers.push_back(toUtf16(layer));
    lists.looks().showOnly(layers);
    if (!arguments.sections.empty() || !arguments.alignment.empty())
        return sectionsOf(arguments, lists);
    picture::Page page;
    const std::optional<Box2d> window = windowOf(arguments);
    page.isTight = window.has_value();
    page.frame = window ? *window : lists.shownBox();
    page.millimetresPerUnit = 1000.0 / lists.metre();
    if (forPaper && !page.isTight)
        page.title = name;
    if (page.frame.isEmpty())
        lists.notes().texts.insert("the drawing has nothing to show");
    return {page};
}

std::vector<PictureFile> makePictures(const RenderArguments& arguments, picture::DrawingLists& lists,
                                      const std::string& name, const std::string& output, const std::stop_token& stop)
{
    const PictureKind kind = kindOfName(output);
    const picture::PageOptions options = pageOptions(arguments, kind);
    const std::u16string title = toUtf16(name);
    const std::vector<picture::Page> pages = pagesOf(arguments, lists, title, kind == PictureKind::kPdf);
    if (kind == PictureKind::kPdf)
        return {{output, renderPdf(lists, pages, options, title)}};
    std::vector<PictureFile> files;
    for (size_t i = 0; i < pages.size(); ++i)
    {
        if (stop.stop_requested())
            throw StoppedWork{};
        files.push_back(
            {pages.size() == 1 ? output : numbered(output, i + 1, pages.size()),
             kind == PictureKind::kPng ? renderPng(lists, pages[i], options) : renderSvg(lists, pages[i], options)});
    }
    return files;
}

} // namespace desktop
