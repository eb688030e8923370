#include "desktop/documents/file_actions.h"

#include "desktop/documents/document_tab.h"
#include "desktop/documents/saving.h"
#include "desktop/language/message.h"
#include "desktop/language/qt_text.h"
#include "desktop/workspace/recent_files.h"
#include "desktop/workspace/working.h"
#include "desktop/workspace/workspace.h"
#include "disk/replace.h"
#include "files/dxf/save.h"
#include "host/app/session.h"

#include <QFileInfo>
#include <QPointer>

#include <filesystem>

namespace desktop
{

namespace
{

QString nameOf(const std::string& path)
{
    return QFileInfo{shownPath(path)}.fileName();
}

/// What a drawing is saved as where it has no DXF of its own.
std::string proposalFor(const std::string& path)
{
    std::filesystem::path proposal{path};
    proposal.replace_extension(".dxf");
    return proposal.string();
}

} // namespace

FileActions::FileActions(Workspace& workspace)
    : m_workspace{workspace}, m_watched{[this] { m_workspace.gate().whenOpen([this] { lookAtDisk(); }); }}
{
}

void FileActions::askToOpen()
{
    const std::vector<std::string> recent = recentFiles();
    const DocumentTab* front = m_workspace.currentTab();
    const std::filesystem::path near = front != nullptr ? front->path() : recent.empty() ? "" : recent.front();
    for (const std::string& path : m_workspace.ask().drawingsToOpen(near.parent_path().string()))
        open(path);
}

void FileActions::open(const std::string& path)
{
    if (DocumentTab* tab = m_workspace.tabOf(path))
        return m_workspace.showTab(*tab);
    startReading(m_workspace.addTab(path), path);
}

void FileActions::startReading(DocumentTab& tab, const std::string& path)
{
    const Jobs::Handle job =
        m_workspace.jobs().start<ReadDrawing>([path](const std::stop_token&) { return readDrawing(path); },
                                              [this, tabThen = QPointer{&tab}](Outcome<ReadDrawing> outcome)
                                              {
                                                  // Shared, since what waits at the gate has to be copied.
                                                  const auto read =
                                                      std::make_shared<Outcome<ReadDrawing>>(std::move(outcome));
                                                  m_workspace.gate().whenOpen(
                                                      [this, tabThen, read]
                                                      {
                                                          if (tabThen != nullptr)
                                                              finishReading(*tabThen, std::move(*read));
                                                      });
                                              });
    tab.setReading([job] { (*job)(); });
}

void FileActions::finishReading(DocumentTab& tab, Outcome<ReadDrawing> outcome)
{
    const bool wasOpen = tab.document() != nullptr;
    tab.setReading({});
    if (!outcome.result)
    {
        if (!wasOpen)
            m_workspace.removeTab(tab);
        if (outcome.cancelled)
            m_workspace.say(msg("Reading was cancelled"));
        else
            m_workspace.ask().tell(msg("The drawing could not be opened"), QString::fromUtf8(outcome.reason.c_str()));
        return;
    }
    m_workspace.perform(
        [&]
        {
            tab.setDocument(std::make_unique<OpenDocument>(std::move(*outcome.result)));
            addRecentFile(tab.path());
            if (tab.document()->needsName())
                m_workspace.say(msg("A copy, converted from DWG: saved, it becomes a DXF"));
            m_workspace.opened(tab);
        });
    lookAtDisk();
}

bool FileActions::save(DocumentTab& tab)
{
    if (tab.document() == nullptr)
        return true;
    return tab.document()->needsName() ? saveAs(tab) : saveTo(tab, tab.path());
}

bool FileActions::saveAs(DocumentTab& tab)
{
    if (tab.document() == nullptr)
        return true;
    const std::string path =
        m_workspace.ask().fileToSave(msg("Save as"), proposalFor(tab.path()), "DXF (*.dxf)", "dxf");
    if (path.empty())
        return false;
    DocumentTab* other = m_workspace.tabOf(path);
    if (other != nullptr && other != &tab)
    {
        m_workspace.ask().tell(msg("Save as"),
                               msg("%1 is open in another tab. Choose another name.").arg(nameOf(path)));
        return false;
    }
    return saveTo(tab, path);
}

bool FileActions::saveTo(DocumentTab& tab, const std::string& path)
{
    const bool isOwn = disk::isSameFile(path, tab.path()) && !tab.document()->needsName();
    try
    {
        return write(tab, path, isOwn ? tab.document()->seen() : disk::FileStamp{});
    }
    catch (const disk::ChangedFile&)
    {
        return settleConflict(tab, path);
    }
}

/// The file is not as the drawing knows it.
bool FileActions::settleConflict(DocumentTab& tab, const std::string& path)
{
    const int answer = m_workspace.ask().choose(
        msg("The file was changed"), msg("%1 was changed by another program since it was opened.").arg(nameOf(path)),
        {msg("Save as…"), msg("Overwrite"), msg("Cancel")});
    return answer == 0 ? saveAs(tab) : answer == 1 && write(tab, path, {});
}

bool FileActions::write(DocumentTab& tab, const std::string& path, const disk::FileStamp& seen)
{
    OpenDocument& document = *tab.document();
    files::requireSavable(document.database(), path);
    const auto snapshot = std::make_shared<const Snapshot>(document.database());
    const SaveRequest request{path, seen, &m_workspace.session().faults()};
    const auto isChanged = std::make_shared<bool>(false);
    Outcome<disk::FileStamp> outcome =
        workOn<disk::FileStamp>(m_workspace, msg("Saving %1 …").arg(nameOf(path)),
                                [snapshot, request, isChanged](const std::stop_token& stop)
                                {
                                    try
                                    {
                                        return saveSnapshot(*snapshot, request, stop);
                                    }
                                    catch (const disk::ChangedFile&)
                                    {
                                        *isChanged = true;
                                        throw;
                                    }
                                });
    if (outcome.cancelled)
    {
        m_workspace.say(msg("Saving was cancelled"));
        return false;
    }
    if (*isChanged)
        throw disk::ChangedFile{path};
    if (!outcome.result)
    {
        m_workspace.ask().tell(msg("The drawing was not saved"), QString::fromUtf8(outcome.reason.c_str()),
                               msg("It stays open with all its changes."));
        return false;
    }
    document.saved(path, *outcome.result);
    addRecentFile(path);
    m_workspace.say(msg("Saved %1").arg(shownPath(path)));
    renewWatch();
    m_workspace.saved(tab);
    return true;
}

bool FileActions::close(DocumentTab& tab)
{
    if (tab.document() != nullptr && tab.document()->isChanged())
    {
        m_workspace.showTab(tab);
        const Ask::Saving answer = m_workspace.ask().saveChanges(nameOf(tab.path()));
        if (answer == Ask::Saving::kCancel || (answer == Ask::Saving::kSave && !save(tab)))
            return false;
    }
    tab.cancelReading();
    m_workspace.removeTab(tab);
    return true;
}

bool FileActions::closeAll()
{
    while (DocumentTab* tab = m_workspace.currentTab())
        if (!close(*tab))
            return false;
    return true;
}

void FileActions::reload(DocumentTab& tab)
{
    startReading(tab, tab.path());
}

void FileActions::renewWatch()
{
    std::set<std::string> paths;
    for (const DocumentTab* tab : m_workspace.openTabs())
        paths.insert(tab->path());
    m_watched.watch(paths);
}

void FileActions::lookAtDisk()
{
    renewWatch();
    for (DocumentTab* tab : m_workspace.openTabs())
        if (tab->document()->takeNewsOfFile())
            m_workspace.perform([this, tab] { offerReload(*tab); });
}

void FileActions::offerReload(DocumentTab& tab)
{
    const QString name = nameOf(tab.path());
    if (!disk::stampOf(tab.path()).exists())
        return m_workspace.say(msg("The file %1 is gone; the drawing is still open here").arg(name));
    m_workspace.showTab(tab);
    const QString title = msg("The file was changed");
    const QString text = msg("%1 was changed by another program.").arg(name);
    if (!tab.document()->isChanged())
    {
        if (m_workspace.ask().choose(title, text, {msg("Reload"), msg("Not now")}) == 0)
            reload(tab);
        return;
    }
    const int answer = m_workspace.ask().choose(title, text + "\n" + msg("The drawing has changes of its own here."),
                                                {msg("Save as…"), msg("Reload, lose mine"), msg("Keep mine")});
    if (answer == 0)
        saveAs(tab);
    else if (answer == 1)
        reload(tab);
}

} // namespace desktop
