#include "desktop/render/render_command.h"
#include "desktop/window/run_window.h"

#include <CLI/CLI.hpp>
#include <QGuiApplication>

#include <iostream>

namespace
{

/// Everything the command line can say.
class Arguments
{
public:
    Arguments()
    {
        m_app.set_version_flag("--version", VELOXA_VERSION);
        m_app.require_subcommand(0, 1);
        m_app.add_option("drawings", m_drawings, "drawings to open in the window");
        addRender();
    }

    CLI::App& app() { return m_app; }
    int run(int& argc, char** argv)
    {
        if (!*m_render)
            return desktop::runWindow(argc, argv, m_drawings);
        // Pictures need no display.
        qputenv("QT_QPA_PLATFORM", "offscreen");
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
        const QGuiApplication application{argc, argv};
        desktop::render(m_arguments);
        return 0;
    }

private:
    void addRender()
    {
        m_render = m_app.add_subcommand("render", "a picture of a drawing, or of its cross-sections: SVG, PDF or PNG");
        m_render->add_option("drawings", m_arguments.drawings, "the drawings")->required();
        text("-o", m_arguments.output, "OUT", "the picture; the name's ending says of which kind: .svg, .pdf or .png");
        text("-d", m_arguments.folder, "FOLDER", "folder for the pictures of several drawings");
        text("--format", m_arguments.format, "png|svg|pdf", "kind of the pictures in the folder (png)");
        text("--window", m_arguments.window, "X1,Y1,X2,Y2", "show this part, as large as fits");
        text("--sections", m_arguments.sections, "LIST",
             "cross-sections, a page or numbered file each: all, or positions such as 1,3-5");
        text("--alignment", m_arguments.alignment, "NAME", "the alignment of the sections; the first by default");
        text("--paper", m_arguments.paper, "A4...A0", "size of the paper, landscape (A4p: upright)");
        text("--scale", m_arguments.scale, "1:N", "true to scale on the paper; else as large as fits");
        text("--pixels", m_arguments.pixels, "W,H", "size of a PNG or SVG without paper");
        text("--background", m_arguments.background, "COLOR", "white, black, transparent or #RRGGBB (white)");
        m_render->add_option("--dpi", m_arguments.dpi, "dots an inch of paper (150 for PNG)")->type_name("N");
        list("--layers", m_arguments.layers, "NAMES", "show only these layers; * and ? stand for any letters")
            ->delimiter(',');
        list("--fonts", m_arguments.fonts, "DIR", "folder with .shx fonts (may be given more than once)");
        m_render->add_flag("--monochrome", m_arguments.monochrome, "everything black (white on a dark background)");
    }

    void text(const char* name, std::string& value, const char* type, const char* description)
    {
        m_render->add_option(name, value, description)->type_name(type);
    }
    CLI::Option* list(const char* name, std::vector<std::string>& values, const char* type, const char* description)
    {
        return m_render->add_option(name, values, description)
            ->type_name(type)
            ->expected(1)
            ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
    }

    CLI::App m_app{"Draws pictures of road drawings.", "veloxa"};
    CLI::App* m_render = nullptr;
    std::vector<std::string> m_drawings;
    desktop::RenderArguments m_arguments;
};

} // namespace

int main(int argc, char** argv)
{
    Arguments arguments;
    try
    {
        arguments.app().parse(argc, argv);
        return arguments.run(argc, argv);
    }
    catch (const CLI::ParseError& error)
    {
        return arguments.app().exit(error) == 0 ? 0 : 2;
    }
    catch (const desktop::UsageError& error)
    {
        std::cerr << "veloxa: " << error.what() << '\n';
        return 2;
    }
    catch (const std::bad_alloc&)
    {
        std::cerr << "veloxa: not enough memory\n";
    }
    catch (const std::exception& error)
    {
        std::cerr << "veloxa: " << error.what() << '\n';
    }
    return 1;
}
