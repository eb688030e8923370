#include "desktop/render/picture_job.h"

#include "desktop/desk/desk.h"
#include "desktop/render/make_pictures.h"
#include "desktop/render/quiet_front_end.h"
#include "disk/replace.h"
#include "files/dxf/reader.h"
#include "picture/page/render.h"

#include <QPrinter>

#include <filesystem>

namespace desktop
{

namespace
{

/// A host of the thread's own with the drawing in it.
class DrawingOfThread
{
public:
    explicit DrawingOfThread(const PictureSource& source) : m_session{m_reader, m_writer, m_frontEnd}
    {
        m_database.adopt(files::readDxf(source.drawing->text(), source.path, DrawingReader::Purpose::Drawing));
        m_lists.emplace(m_database, fontFolders(source.path), m_notes);
    }

    picture::DrawingLists& lists() { return *m_lists; }
    std::vector<std::string> notes() const
    {
        std::vector<std::string> notes{m_notes.texts.begin(), m_notes.texts.end()};
        for (const auto& [kind, count] : m_notes.undrawn)
            notes.push_back(kind + " (" + std::to_string(count) + ")");
        return notes;
    }

private:
    files::FileReader m_reader;
    files::DxfWriter m_writer;
    QuietFrontEnd m_frontEnd;
    host::Session m_session;
    AcDbDatabase m_database{false, false};
    picture::Notes m_notes;
    std::optional<picture::DrawingLists> m_lists;
};

std::string nameOf(const PictureSource& source)
{
    return std::filesystem::path{source.path}.filename().string();
}

} // namespace

PicturesMade exportPictures(const PictureSource& source, const RenderArguments& arguments, const std::stop_token& stop)
{
    DrawingOfThread drawing{source};
    PicturesMade made;
    for (const PictureFile& file : makePictures(arguments, drawing.lists(), nameOf(source), arguments.output, stop))
    {
        if (stop.stop_requested())
            throw StoppedWork{};
        disk::replaceFile(file.path, {file.bytes});
        made.files.push_back(file.path);
    }
    made.notes = drawing.notes();
    return made;
}

PicturesMade printPictures(const PictureSource& source, const RenderArguments& arguments, QPrinter& printer)
{
    DrawingOfThread drawing{source};
    picture::PageOptions options = pageOptions(arguments, PictureKind::kPdf);
    const QSizeF paper = printer.pageLayout().fullRect(QPageLayout::Millimeter).size();
    options.paper = {paper.width(), paper.height()};
    const std::u16string name = toUtf16(nameOf(source));
    paintSheets(printer, drawing.lists(), pagesOf(arguments, drawing.lists(), name, true), options, name);
    return {{}, drawing.notes()};
}

} // namespace desktop
