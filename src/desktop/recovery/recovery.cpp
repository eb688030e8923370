#include "desktop/recovery/recovery.h"

#include "desktop/documents/document_tab.h"
#include "desktop/language/message.h"
#include "desktop/language/qt_text.h"
#include "desktop/workspace/working.h"
#include "desktop/workspace/workspace.h"
#include "files/dxf/reader.h"
#include "host/app/session.h"

#include <QDateTime>
#include <QFileInfo>
#include <QLocale>
#include <QPointer>
#include <QSettings>

#include <filesystem>

namespace desktop
{

namespace
{

constexpr int kMinutes = 3;

void remove(const std::string& file)
{
    std::error_code ignored;
    if (!file.empty())
        std::filesystem::remove(file, ignored);
}

} // namespace

Recovery::Recovery(Workspace& workspace) : m_workspace{workspace}
{
    const int minutes = std::max(1, QSettings{}.value("recoveryMinutes", kMinutes).toInt());
    m_clock.setInterval(std::chrono::minutes{minutes});
    QObject::connect(&m_clock, &QTimer::timeout, &m_clock, [this] { m_workspace.gate().whenOpen([this] { keep(); }); });
    m_clock.start();
    constexpr int kSoon = 15'000; ///< milliseconds
    m_soon.setSingleShot(true);
    m_soon.setInterval(kSoon);
    QObject::connect(&m_soon, &QTimer::timeout, &m_soon, [this] { m_workspace.gate().whenOpen([this] { keep(); }); });
}

RecoveryNote Recovery::noteOf(OpenDocument& document)
{
    RecoveryNote note;
    note.path = document.path();
    note.file = recoveryFileOf(note.path);
    note.seen = document.seen();
    note.isConverted = document.needsName();
    return note;
}

void Recovery::keepNow() noexcept
{
    for (DocumentTab* tab : m_workspace.openTabs())
        try
        {
            if (tab->document()->isChanged() && !recoveryFolder().empty())
                writeRecovery(Snapshot{tab->document()->database()}, noteOf(*tab->document()), disk::noFaults());
        }
        catch (const std::exception&) // nobody is there any more to be told
        {
            continue;
        }
}

void Recovery::keep()
{
    for (DocumentTab* tab : m_workspace.openTabs())
    {
        const auto known = m_kept.find(tab);
        const uint64_t changeCount = tab->document()->database().changeCount();
        if (!tab->document()->isChanged())
            drop(*tab);
        else if (known == m_kept.end() || known->second.file.empty() || known->second.changeCount != changeCount)
            write(*tab);
    }
}

/// In the background: whoever works must not notice.
void Recovery::write(DocumentTab& tab)
{
    OpenDocument& document = *tab.document();
    const RecoveryNote note = noteOf(document);
    if (recoveryFolder().empty())
        return;
    Kept& kept = m_kept[&tab];
    kept.changeCount = document.database().changeCount();
    const auto snapshot = std::make_shared<const Snapshot>(document.database());
    disk::Faults* faults = &m_workspace.session().faults();
    m_workspace.jobs().start<bool>(
        [snapshot, note, faults](const std::stop_token&)
        {
            writeRecovery(*snapshot, note, *faults);
            return true;
        },
        [this, note, written = QPointer{&tab}](const Outcome<bool>& outcome)
        {
            const auto still = written != nullptr ? m_kept.find(written.data()) : m_kept.end();
            if (!outcome.result)
            {
                if (!std::exchange(m_hasComplained, true))
                    m_workspace.say(
                        msg("What is not saved could not be kept for recovery: %1").arg(outcome.reason.c_str()));
                return;
            }
            if (still == m_kept.end())
                return remove(note.file); // saved or closed meanwhile
            still->second.file = note.file;
            remove(std::exchange(still->second.recovered, {}));
        });
}

void Recovery::drop(DocumentTab& tab)
{
    if (const auto known = m_kept.find(&tab); known != m_kept.end())
    {
        remove(known->second.file);
        remove(known->second.recovered);
        m_kept.erase(known);
    }
}

void Recovery::offer()
{
    for (const RecoveryNote& note : abandonedRecoveries())
    {
        const QString when = QLocale{}.toString(QDateTime::fromSecsSinceEpoch(note.written), QLocale::ShortFormat);
        const bool isSame = disk::stampOf(note.path) == note.seen;
        const QString text = msg("%1 had changes that were not saved when the program ended. They were kept on %2.")
                                 .arg(shownPath(note.path), when) +
                             (isSame ? QString{} : "\n" + msg("The file itself is another one since then."));
        const int answer = m_workspace.ask().choose(msg("Recover changes?"), text,
                                                    {msg("Recover"), msg("Throw away"), msg("Not now")});
        if (answer == 0)
            recover(note);
        else if (answer == 1)
            remove(note.file);
    }
}

/// Opens the drawing as it was kept, in the place of its file, and marked as changed.
void Recovery::recover(const RecoveryNote& note)
{
    DocumentTab* tab = m_workspace.tabOf(note.path);
    if (tab != nullptr && (tab->document() == nullptr || tab->document()->isChanged()))
        return;
    Outcome<ReadDrawing> outcome =
        workOn<ReadDrawing>(m_workspace, msg("Reading %1 …").arg(shownPath(note.path)),
                            [note](const std::stop_token&)
                            {
                                ReadDrawing read{note.path, note.seen, {}, note.isConverted};
                                read.store =
                                    files::readDxf(readRecovery(note.file), note.path, DrawingReader::Purpose::Drawing);
                                return read;
                            });
    if (!outcome.result)
    {
        if (!outcome.cancelled)
            m_workspace.ask().tell(msg("The changes could not be recovered"),
                                   QString::fromUtf8(outcome.reason.c_str()));
        return;
    }
    if (tab == nullptr)
        tab = &m_workspace.addTab(note.path);
    tab->setDocument(std::make_unique<OpenDocument>(std::move(*outcome.result)));
    tab->document()->undo().setUnsaved();
    m_kept[tab].recovered = note.file;
    m_workspace.opened(*tab);
}

} // namespace desktop
