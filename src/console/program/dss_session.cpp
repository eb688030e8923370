#include "console/program/dss_session.h"

#include "host/app/paths.h"
#include "host/ui/tab_ctrl.h"
#include "resources/control_ids.h"
#include "sections/database_cs.h"
#include "sections/run_options.h"
#include "settings/drawing_settings.h"
#include "store/text/text.h"
#include "util/numbers.h"

#include <algorithm>
#include <filesystem>

namespace console
{

namespace
{

using namespace control_ids::sections;

/// The numbers of the general settings, by their controls.
constexpr std::pair<int, const char*> kNumbers[] = {{control_ids::general::kForward, "the search distance ahead"},
                                                    {control_ids::general::kBackward, "the search distance behind"},
                                                    {control_ids::general::kTextHeight, "the text height"},
                                                    {control_ids::general::kDeltaY, "the leader height"}};

std::string alignmentNames()
{
    std::string names;
    for (const ItemReferenceLine& line : g_DatabaseCS.m_listReferenceLines)
        names += (names.empty() ? "" : ", ") + toUtf8(line.m_strName);
    return names;
}

/// Says of each number of the general settings that is none what counts in its place.
std::vector<std::string> wordsInPlaceOfNumbers(const CDialog& settings)
{
    std::vector<std::string> found;
    for (const CTabCtrlSSL::Tab& tab : settings.tabControl()->tabs())
        for (const auto& [id, name] : kNumbers)
            if (const auto* edit = dynamic_cast<const CEdit*>(tab.page->GetDlgItem(id)))
                if (const std::u16string text = edit->GetWindowText(); !StartsWithReal(text))
                    found.push_back("settings that the drawing keeps: \"" + toUtf8(text) + "\" as " + name +
                                    " is no number and counts as 0");
    return found;
}

/// Sets the module's options while it lives.
class OptionsForRun
{
public:
    explicit OptionsForRun(RunOptions options) { g_RunOptions = options; }
    OptionsForRun(const OptionsForRun&) = delete;
    OptionsForRun& operator=(const OptionsForRun&) = delete;
    ~OptionsForRun() { g_RunOptions = {}; }
};

/// With the distances of the shared settings and without a word to the stored ones.
RunOptions keptOptions()
{
    return {SearchDistances{g_DatabaseCS.m_dBackwardDistance, g_DatabaseCS.m_dForwardDistance}, true};
}

} // namespace

DssSession::DssSession(Program& program) : m_program{program}
{
    program.command(u"DSS");
}

void DssSession::choose(const std::string& alignment)
{
    const ListItemReferenceLine& lines = g_DatabaseCS.m_listReferenceLines;
    if (lines.empty())
        throw Failure{"the drawing has no alignment"};
    m_alignment = alignment.empty() ? lines[0].m_strName : toUtf16(alignment);
    const bool known =
        std::any_of(lines.begin(), lines.end(),
                    [this](const ItemReferenceLine& line) { return equalNoCase(line.m_strName, m_alignment); });
    if (!known)
        throw Failure{"the drawing has no alignment \"" + alignment + "\"; it has: " + alignmentNames()};
    if (m_alignment.empty())
        throw Failure{"the alignment has no name, and the dialog acts on none without; the drawing has: " +
                      alignmentNames()};
    require(dialog().userChoose(kAlignments, line().m_strName));
}

CDialog& DssSession::dialog() const
{
    CDialog* dialog = m_program.frontEnd().currentDialog();
    if (dialog == nullptr)
        throw Failure{"the dialog was not opened"};
    return *dialog;
}

const ItemReferenceLine& DssSession::line() const
{
    for (const ItemReferenceLine& line : g_DatabaseCS.m_listReferenceLines)
        if (equalNoCase(line.m_strName, m_alignment))
            return line;
    throw Failure{"the alignment is gone"};
}

void DssSession::tick(const std::vector<size_t>& sections)
{
    for (size_t row = 0; row < line().m_listCrossSections.size(); ++row)
        require(dialog().userTick(kSections, static_cast<int>(row),
                                  std::binary_search(sections.begin(), sections.end(), row)));
}

bool DssSession::keepsSettings() const
{
    return !ReadDrawingSettings(line().m_idAlignment).empty();
}

/// Puts the drawing's distances where the dialog will compare its own with them.
void DssSession::takeKeptSettings()
{
    restoreSettings();
    if (!keepsSettings())
        return;
    m_stored.emplace(g_DatabaseCS);
    if (const auto numbers = ReadDrawingNumbers(line().m_idAlignment))
    {
        g_DatabaseCS.m_dBackwardDistance = ToReal(numbers->backward);
        g_DatabaseCS.m_dForwardDistance = ToReal(numbers->forward);
    }
}

void DssSession::restoreSettings()
{
    if (m_stored)
        m_stored->restore(g_DatabaseCS);
    m_stored.reset();
}

void DssSession::lookNearby()
{
    takeKeptSettings();
    const std::pair distances{g_DatabaseCS.m_dBackwardDistance, g_DatabaseCS.m_dForwardDistance};
    if (m_lookedWithin != distances)
        m_program.command(u"ZE");
    m_lookedWithin = distances;
}

void DssSession::confirmSettings(const std::string& library)
{
    takeKeptSettings();
    const OptionsForRun options{m_stored ? keptOptions() : RunOptions{}};
    bool opened = false;
    m_program.frontEnd().onModal = [&](CDialog& settings)
    {
        opened = true;
        if (!library.empty())
        {
            m_program.frontEnd().queue({modulePath(library), std::nullopt});
            require(settings.userClick(control_ids::table::kOpenFile));
        }
        m_settingsNotes = wordsInPlaceOfNumbers(settings);
        require(settings.userClick(IDOK));
    };
    click(kSettings);
    m_program.frontEnd().onModal = nullptr;
    if (!opened)
        throw Failure{"the settings could not be opened"};
    if (const auto numbers = ReadDrawingNumbers(line().m_idAlignment); numbers && m_stored)
        if (std::string differences = m_stored->differencesFrom(*numbers); !differences.empty())
            m_settingsNotes.push_back(std::move(differences));
}

void DssSession::click(int id)
{
    require(dialog().userClick(id));
    m_program.session().runPending();
    m_program.refuseDamage();
}

void DssSession::draw()
{
    click(kDraw);
}

void DssSession::undo()
{
    click(kUndo);
}

void DssSession::close()
{
    restoreSettings();
    click(IDOK);
}

} // namespace console
