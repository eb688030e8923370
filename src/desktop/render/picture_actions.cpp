#include "desktop/render/picture_actions.h"

#include "desktop/documents/document_tab.h"
#include "desktop/language/message.h"
#include "desktop/language/qt_text.h"
#include "desktop/render/picture_dialog.h"
#include "desktop/render/picture_job.h"
#include "desktop/workspace/working.h"
#include "desktop/workspace/workspace.h"
#include "host/companion/alignment.h"
#include "picture/page/sections.h"

#include <QPrintDialog>
#include <QPrinter>

#include <filesystem>

namespace desktop
{

namespace
{

PictureDialog::Drawing describe(DocumentTab& tab)
{
    PictureDialog::Drawing drawing;
    const Box2d seen = tab.view().shownBox();
    const auto number = [](double value) { return QString::number(value, 'g', 17); };
    drawing.seen =
        QStringList{number(seen.minX), number(seen.minY), number(seen.maxX), number(seen.maxY)}.join(',').toStdString();
    for (const AcDbObjectId id : picture::alignmentsOf(tab.document()->database()))
        if (const AcDbObjectPointer<PlxDbAlignment> alignment{id})
            drawing.alignments.push_back(toUtf8(alignment->name()));
    if (const SectionsOfTab& sections = tab.sections(); sections.current)
        drawing.alignment = toUtf8(sections.scanned.lines()[sections.current->line].m_strName);
    return drawing;
}

PictureSource sourceOf(DocumentTab& tab)
{
    return {std::make_shared<const Snapshot>(tab.document()->database()), tab.path()};
}

void tellNotes(Workspace& workspace, const PicturesMade& made)
{
    for (const std::string& note : made.notes)
        workspace.say(msg("Not shown as it is: %1").arg(QString::fromStdString(note)));
}

/// False when there is nothing to tell of; tells why nothing was made.
bool isMade(Workspace& workspace, const Outcome<PicturesMade>& outcome)
{
    if (outcome.cancelled)
        workspace.say(msg("Nothing was made: cancelled"));
    else if (!outcome.result)
        workspace.ask().tell(msg("The pictures could not be made"), QString::fromUtf8(outcome.reason.c_str()));
    return outcome.result.has_value();
}

const char* endingOfKind(PictureKind kind)
{
    return kind == PictureKind::kPdf ? "pdf" : kind == PictureKind::kPng ? "png" : "svg";
}

} // namespace

void exportDrawing(Workspace& workspace)
{
    DocumentTab& tab = *workspace.currentTab();
    PictureDialog dialog{&workspace.window(), describe(tab), false};
    if (dialog.exec() != QDialog::Accepted)
        return;
    RenderArguments arguments = dialog.arguments();
    const QString ending = endingOfKind(dialog.kind());
    std::filesystem::path proposal{tab.path()};
    proposal.replace_extension("." + ending.toStdString());
    arguments.output = workspace.ask().fileToSave(msg("Export pictures"), proposal.string(),
                                                  ending.toUpper() + " (*." + ending + ")", ending);
    if (arguments.output.empty())
        return;
    const PictureSource source = sourceOf(tab);
    const Outcome<PicturesMade> outcome = workOn<PicturesMade>(workspace, msg("Making pictures …"),
                                                               [source, arguments](const std::stop_token& stop)
                                                               { return exportPictures(source, arguments, stop); });
    if (!isMade(workspace, outcome))
        return;
    tellNotes(workspace, *outcome.result);
    const std::vector<std::string>& files = outcome.result->files;
    workspace.say(files.size() == 1
                      ? msg("Made %1").arg(shownPath(files.front()))
                      : msg("Made %1 files, %2 the first").arg(files.size()).arg(shownPath(files.front())));
}

void printDrawing(Workspace& workspace)
{
    DocumentTab& tab = *workspace.currentTab();
    PictureDialog dialog{&workspace.window(), describe(tab), true};
    if (dialog.exec() != QDialog::Accepted)
        return;
    const auto printer = std::make_shared<QPrinter>(QPrinter::HighResolution);
    printer->setPageOrientation(QPageLayout::Landscape);
    printer->setDocName(shownPath(tab.path()));
    QPrintDialog printDialog{printer.get(), &workspace.window()};
    if (printDialog.exec() != QDialog::Accepted)
        return;
    printer->setFullPage(true);
    const PictureSource source = sourceOf(tab);
    const RenderArguments arguments = dialog.arguments();
    const Outcome<PicturesMade> outcome = workOn<PicturesMade>(workspace, msg("Printing …"),
                                                               [source, arguments, printer](const std::stop_token&)
                                                               { return printPictures(source, arguments, *printer); });
    if (isMade(workspace, outcome))
    {
        tellNotes(workspace, *outcome.result);
        workspace.say(msg("Handed to the printer"));
    }
}

} // namespace desktop
