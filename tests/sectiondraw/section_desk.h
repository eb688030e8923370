#pragma once

#include "host/companion/alignment.h"
#include "host/db/database.h"
#include "resources/control_ids.h"
#include "sectiondraw/commands.h"
#include "sectiondraw/veloxa_dlg.h"
#include "sections/database_cs.h"
#include "support/test_drawing.h"
#include "support/test_session.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace control_ids::sections;

/// A user at a drawing of sections: runs DSS, works its dialog, and looks at what stands in the drawing.
class SectionDesk : public testing::Test
{
protected:
    static constexpr int kClose = IDOK;

    SectionDesk() { g_DatabaseCS = DatabaseCS{}; }
    ~SectionDesk() override
    {
        g_pVeloxaDlg.reset();
        g_DatabaseCS = DatabaseCS{};
    }

    /// All four drawing options on; code labels in colour 7 and the others in colour 0, which counts as none.
    static void useLayers(const std::u16string& symbolLabel, const std::u16string& fcodeLabel,
                          const std::u16string& symbol, const std::u16string& fcode)
    {
        g_DatabaseCS.m_arrDrawFlags = {1, 1, 1, 1};
        g_DatabaseCS.m_arrLayerNames = {symbolLabel, fcodeLabel, symbol, fcode};
    }

    /// Opens the drawing and runs DSS on it.
    void dss(const TestDrawing& drawing)
    {
        session.open(drawing.dxf());
        DssCommand();
    }
    static CDialog& dialog() { return *g_pVeloxaDlg; }
    static void click(int id)
    {
        const UserAction done = dialog().userClick(id);
        EXPECT_TRUE(done) << done.reason();
    }
    static CrossSectionXdata& section(size_t position, size_t alignment = 0)
    {
        return g_DatabaseCS.m_listReferenceLines[alignment].m_listCrossSections[position];
    }
    /// Puts a symbol drawing of that name into the folder of the test and answers its path.
    std::u16string symbolFile(const std::string& name) const
    {
        TestDrawing symbol;
        symbol.line({-1, 0, 0}, {1, 0, 0});
        session.folder().write(name, symbol.dxf());
        return session.folder().modulePath(name);
    }

    /// What the drawing remembers of a section.
    SectionRecord record(size_t position, size_t alignment = 0) const;
    /// What stands in model space, living, in the drawing's order.
    AcDbObjectIdArray living() const;
    /// One line for each entity: what it is and where.
    static std::vector<std::string> describe(const AcDbObjectIdArray& ids);
    std::vector<std::string> drawnOn(size_t position) const { return describe(record(position).drawnIds); }

    TestSession session;
};
