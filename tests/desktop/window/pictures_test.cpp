#include "desktop/window/window_test.h"

#include "host/db/entity/entity.h"

#include <QComboBox>
#include <QDialog>
#include <QFileDialog>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <filesystem>

namespace
{

class Pictures : public WindowTest
{
protected:
    Pictures()
    {
        TestDrawing drawing;
        TestAlignment& road = drawing.alignment("T1");
        for (int i = 0; i < 3; ++i)
            road.section("C" + std::to_string(i + 1), {100.0 * i, 20}, {100.0 * i, -20})
                .base({1000, 200.0 * i, 0})
                .ground({{-20, 3}, {20, 5}});
        drawing.line({0, 0, 0}, {200, 50, 0});
        open("a.dxf", drawing.dxf());
    }

    /// Chooses in the dialog for pictures, then the file in the dialog for files.
    void exportTo(const std::string& name, const std::function<void(QWidget& dialog)>& choose,
                  QString* failure = nullptr)
    {
        whenAsked(
            [choose](QWidget& dialog)
            {
                choose(dialog);
                QTest::mouseClick(dialog.findChild<QPushButton*>("acceptPictures"), Qt::LeftButton);
            });
        whenAsked(
            [this, name](QWidget& box)
            {
                auto& dialog = dynamic_cast<QFileDialog&>(box);
                dialog.findChild<QLineEdit*>()->setText(QString::fromStdString(path(name)));
                QTest::keyClick(dialog.findChild<QLineEdit*>(), Qt::Key_Return);
            });
        if (failure != nullptr)
            answer("Close", failure);
        key(Qt::Key_E, Qt::ControlModifier);
    }
    static void set(QWidget& dialog, const char* name, int index)
    {
        dialog.findChild<QComboBox*>(name)->setCurrentIndex(index);
    }
};

TEST_F(Pictures, OfTheDrawingAsItIsNotAsItsFile)
{
    window().change(
        "erase",
        [this]
        {
            acDocManagerPtr()->lockDocument(&tab().document()->host());
            const AcDbObjectPointer<AcDbEntity> line{view().pick(view().toWidget({100, 25})), AcDb::kForWrite};
            line->erase();
            acDocManagerPtr()->unlockDocument(&tab().document()->host());
        });
    view().zoomTo({10, 2, 190, 48}, 0.0);
    exportTo("seen.png",
             [](QWidget& dialog)
             {
                 set(dialog, "what", 1);
                 set(dialog, "kind", 1);
             });
    const QImage image{QString::fromStdString(path("seen.png"))};
    ASSERT_FALSE(image.isNull()) << history().toStdString();
    EXPECT_TRUE(history().contains("seen.png"));
    // Of what is seen only the section lines are left.
    EXPECT_EQ(image.pixelColor(image.width() * 3 / 10, image.height() / 2), QColor{Qt::white});
}

TEST_F(Pictures, OfSectionsAPageEachAndWhatMakesNoSenseIsTold)
{
    exportTo("album.pdf",
             [](QWidget& dialog)
             {
                 set(dialog, "what", 2);
                 dialog.findChild<QComboBox*>("scale")->setEditText("1:x");
                 QTest::mouseClick(dialog.findChild<QPushButton*>("acceptPictures"), Qt::LeftButton);
                 EXPECT_TRUE(dialog.isVisible());
                 const QList<QLabel*> labels = dialog.findChildren<QLabel*>();
                 EXPECT_TRUE(std::any_of(labels.begin(), labels.end(),
                                         [](const QLabel* label) { return label->text().contains("1:x"); }));
                 dialog.findChild<QComboBox*>("scale")->setEditText("1:200");
             });
    EXPECT_EQ(folder().read("album.pdf").substr(0, 5), "%PDF-");
    EXPECT_NE(folder().read("album.pdf").find("/Count 4"), std::string::npos) << "contents and three sections";

    QString said;
    exportTo(
        "none.pdf",
        [](QWidget& dialog)
        {
            set(dialog, "what", 2);
            dialog.findChild<QLineEdit*>("sectionList")->setText("7");
        },
        &said);
    EXPECT_FALSE(said.isEmpty());
    EXPECT_FALSE(std::filesystem::exists(path("none.pdf")));
}

} // namespace
