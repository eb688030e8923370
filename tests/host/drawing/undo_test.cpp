#include "host/db/entity/block_reference.h"
#include "host/db/entity/text_entity.h"
#include "host/db/table/symbol_tables.h"
#include "host/db/undo_step.h"
#include "store/block_index.h"
#include "support/test_drawing.h"
#include "support/test_session.h"

#include <gmock/gmock.h>

using testing::HasSubstr;
using testing::Not;

namespace
{

/// A drawing that is changed in steps.
class Undo : public testing::Test
{
protected:
    void SetUp() override
    {
        TestDrawing drawing;
        drawing.layer("ROAD");
        m_line = drawing.line({0, 0, 0}, {10, 0, 0});
        m_session.open(drawing.dxf());
        m_session.folder().write("symbol.dxf", TestDrawing{}.dxf());
        m_before = m_session.saved();
    }

    AcDbDatabase& drawing() { return m_session.drawing(); }
    AcDbObjectId idOf(uint64_t handle)
    {
        AcDbObjectId id;
        drawing().getAcDbObjectId(id, false, AcDbHandle{handle});
        return id;
    }
    AcDbObjectId layer(const char16_t* name)
    {
        AcDbLayerTable* table = nullptr;
        drawing().getSymbolTable(table);
        AcDbObjectId id;
        table->getAt(name, id);
        table->close();
        return id;
    }
    template <class Change>
    std::unique_ptr<UndoStep> step(const Change& change)
    {
        const TestLock lock;
        auto made = std::make_unique<UndoStep>(drawing());
        change();
        made->end();
        return made;
    }
    void changeLayer()
    {
        const AcDbObjectPointer<AcDbLayerTableRecord> road{layer(u"ROAD"), AcDb::kForWrite};
        AcCmColor red;
        red.setColorIndex(1);
        EXPECT_EQ(road->setColor(red), Acad::eOk);
        EXPECT_EQ(road->setIsOff(true), Acad::eOk);
        EXPECT_EQ(road->setIsFrozen(true), Acad::eOk);
    }
    void insertSymbol()
    {
        AcDbDatabase source{false};
        ASSERT_EQ(source.readDwgFile(m_session.folder().modulePath("symbol.dxf").c_str()), Acad::eOk);
        AcDbObjectId block;
        ASSERT_EQ(drawing().insert(block, u"SYMBOL", &source), Acad::eOk);
    }
    void eraseLine()
    {
        const AcDbObjectPointer<AcDbEntity> line{idOf(m_line), AcDb::kForWrite};
        EXPECT_EQ(line->erase(), Acad::eOk);
    }

    TestSession m_session;
    uint64_t m_line = 0;
    std::string m_before;
};

TEST_F(Undo, TakesACommandBackToTheByteAndAgain)
{
    const std::unique_ptr<UndoStep> made = step(
        [this]
        {
            changeLayer();
            insertSymbol();
            eraseLine();
        });
    EXPECT_TRUE(drawing().isModified());
    const std::unique_ptr<UndoStep> again = made->takeBack();
    EXPECT_FALSE(drawing().isModified());
    EXPECT_EQ(m_session.saved(), m_before);

    again->takeBack();
    const std::string changed = m_session.saved();
    EXPECT_THAT(changed, HasSubstr("SYMBOL"));
    EXPECT_THAT(changed, HasSubstr(" 62\n-1\n"));
    EXPECT_EQ(changed.find("AcDbLine\n"), std::string::npos);
    EXPECT_TRUE(idOf(m_line).isErased());
}

TEST_F(Undo, WhatWasAddedCanBeAddedAnewAndTakenBackInSteps)
{
    step([this] { insertSymbol(); })->takeBack();
    EXPECT_EQ(drawing().blocks().record(u"SYMBOL"), nullptr);
    const std::unique_ptr<UndoStep> second = step([this] { insertSymbol(); });
    EXPECT_NE(drawing().blocks().record(u"SYMBOL"), nullptr);
    const std::unique_ptr<UndoStep> third = step([this] { changeLayer(); });
    third->takeBack();
    {
        const AcDbObjectPointer<AcDbLayerTableRecord> road{layer(u"ROAD")};
        EXPECT_FALSE(road->isOff());
        EXPECT_FALSE(road->isFrozen());
    }
    second->takeBack();
    EXPECT_EQ(m_session.saved(), m_before);
    EXPECT_TRUE(step([] {})->isEmpty());
}

TEST_F(Undo, ALoadedLayerKeepsWhatIsNotChanged)
{
    step(
        [this]
        {
            const AcDbObjectPointer<AcDbLayerTableRecord> road{layer(u"ROAD"), AcDb::kForWrite};
            road->setIsFrozen(true);
            road->setIsFrozen(false);
        });
    EXPECT_EQ(m_session.saved(), m_before);
    const AcDbObjectPointer<AcDbLayerTableRecord> road{layer(u"ROAD")};
    EXPECT_EQ(road->setIsOff(true), Acad::eNotOpenForWrite);
}

} // namespace
