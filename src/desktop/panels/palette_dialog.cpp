#include "desktop/panels/palette_dialog.h"

#include "desktop/language/message.h"
#include "picture/look/palette.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QPushButton>
#include <QSpinBox>
#include <QVBoxLayout>

#include <functional>

namespace desktop
{

namespace
{

constexpr int kCell = 18;
constexpr int kFirstShade = 10; ///< below: the plain colours; from 250 on: the greys
constexpr int kFirstGrey = 250;
constexpr int kShadesOfHue = 10;

/// The palette as cells: the shades by hue and brightness, below them the nine plain colours and the greys.
class PaletteCells : public QWidget
{
public:
    explicit PaletteCells(int current) : m_current{current}
    {
        setObjectName("palette");
        setFixedSize(24 * kCell, 12 * kCell);
        setMouseTracking(true);
    }

    std::function<void(int color)> onChosen;
    std::function<void()> onAccepted;

    void setCurrent(int color)
    {
        m_current = color;
        update();
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter{this};
        for (int color = 1; color <= 255; ++color)
            painter.fillRect(cellOf(color).adjusted(1, 1, -1, -1), QColor::fromRgb(picture::paletteColor(color)));
        painter.setPen(QPen{palette().color(QPalette::Highlight), 3});
        painter.drawRect(cellOf(m_current));
    }
    void mousePressEvent(QMouseEvent* event) override
    {
        for (int color = 1; color <= 255; ++color)
            if (cellOf(color).contains(event->position().toPoint()) && onChosen)
                onChosen(color);
    }
    void mouseDoubleClickEvent(QMouseEvent* event) override
    {
        mousePressEvent(event);
        if (onAccepted)
            onAccepted();
    }

private:
    static QRect cellOf(int color)
    {
        const int column = color >= kFirstGrey    ? 12 + color - kFirstGrey
                           : color >= kFirstShade ? (color - kFirstShade) / kShadesOfHue
                                                  : color - 1;
        const int row = color >= kFirstShade && color < kFirstGrey ? color % kShadesOfHue : 11;
        return {column * kCell, row * kCell, kCell, kCell};
    }

    int m_current;
};

} // namespace

std::optional<int> choosePaletteColor(QWidget& parent, int current)
{
    QDialog dialog{&parent};
    dialog.setWindowTitle(msg("Choose a colour"));
    auto* column = new QVBoxLayout{&dialog};
    auto* cells = new PaletteCells{current};
    auto* number = new QSpinBox;
    auto* buttons = new QDialogButtonBox;
    buttons->addButton(msg("OK"), QDialogButtonBox::AcceptRole);
    buttons->addButton(msg("Cancel"), QDialogButtonBox::RejectRole);
    number->setObjectName("colorNumber");
    number->setRange(1, 255);
    number->setValue(current);
    auto* row = new QHBoxLayout;
    row->addWidget(new QLabel{msg("Number:")});
    row->addWidget(number);
    row->addStretch();
    row->addWidget(buttons);
    column->addWidget(cells);
    column->addLayout(row);
    cells->onChosen = [number](int color) { number->setValue(color); };
    cells->onAccepted = [&dialog] { dialog.accept(); };
    QObject::connect(number, &QSpinBox::valueChanged, cells, [cells](int color) { cells->setCurrent(color); });
    QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    return dialog.exec() == QDialog::Accepted ? std::optional{number->value()} : std::nullopt;
}

} // namespace desktop
