#pragma once

#include "desktop/view/drawing_view.h"
#include "host/db/database.h"
#include "store/handle_table.h"
#include "support/test_drawing.h"
#include "support/test_session.h"

#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>

/// A view of a drawing, 400 by 300 pixels, driven by the mouse as a user does. Its ground is black.
class ViewTest : public testing::Test
{
protected:
    static constexpr int kWidth = 400;
    static constexpr int kHeight = 300;

    /// Shows model space of a drawing in the view, all of it.
    void show(const TestDrawing& drawing)
    {
        m_session.open(drawing.dxf());
        m_scene = std::make_shared<desktop::Scene>(m_session.drawing(), fonts());
        prepare(m_view);
        m_view.setScene(m_scene);
    }
    ~ViewTest() override { m_view.setScene(nullptr); }

    static std::vector<std::string> fonts() { return {VELOXA_BINARY_DIR "/bin"}; }
    static void prepare(desktop::DrawingView& view)
    {
        view.resize(kWidth, kHeight);
        view.setBackground(0x000000);
        view.setCrosshair(false);
        view.show();
    }
    /// What the view shows once it is sharp.
    static QImage pictureOf(desktop::DrawingView& view)
    {
        EXPECT_TRUE(QTest::qWaitFor([&] { return view.isSharp(); }));
        return view.grab().toImage().convertToFormat(QImage::Format_RGB32);
    }
    QImage picture() { return pictureOf(m_view); }
    /// The colour at a place of the plan, as 0xRRGGBB.
    unsigned colorAt(const QImage& image, double x, double y)
    {
        return image.pixel(m_view.toWidget({x, y}).toPoint()) & 0xFFFFFFU;
    }
    QPoint at(double x, double y) const { return m_view.toWidget({x, y}).toPoint(); }
    AcDbObjectId idOf(uint64_t handle) { return AcDbObjectId{m_session.drawing().handles().find(handle)}; }
    void wheel(QPoint place, int steps)
    {
        QWheelEvent event{QPointF{place},
                          m_view.mapToGlobal(QPointF{place}),
                          {},
                          {0, steps * 120},
                          Qt::NoButton,
                          Qt::NoModifier,
                          Qt::NoScrollPhase,
                          false};
        QCoreApplication::sendEvent(&m_view, &event);
    }

    TestSession m_session;
    std::shared_ptr<desktop::Scene> m_scene;
    desktop::DrawingView m_view;
};
