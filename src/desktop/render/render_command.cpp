#include "desktop/render/render_command.h"

#include "desktop/desk/desk.h"
#include "desktop/render/make_pictures.h"
#include "desktop/render/quiet_front_end.h"
#include "disk/replace.h"
#include "files/dxf/save.h"
#include "files/reader.h"
#include "host/app/paths.h"
#include "host/app/session.h"

#include <filesystem>
#include <iostream>

namespace desktop
{

namespace
{

void tell(const picture::Notes& notes)
{
    for (const std::string& text : notes.texts)
        std::cerr << "Note: " << text << '\n';
    for (const auto& [kind, count] : notes.undrawn)
        std::cerr << "Not drawn: " << kind << " (" << count << ")\n";
}

void renderDrawing(const RenderArguments& arguments, const std::string& drawing, const std::string& output)
{
    (void)pageOptions(arguments, kindOfName(output)); // what makes no sense is told before anything is read
    host::Session& session = host::Session::current();
    AcApDocument* document = session.documents().open(modulePath(drawing));
    picture::Notes notes;
    {
        picture::DrawingLists lists{*document->database(), fontFolders(drawing, arguments.fonts), notes};
        const std::string name = std::filesystem::path{drawing}.filename().string();
        for (const PictureFile& file : makePictures(arguments, lists, name, output))
            disk::replaceFile(file.path, {file.bytes});
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
