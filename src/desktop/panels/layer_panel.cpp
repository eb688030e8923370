#include "desktop/panels/layer_panel.h"

#include "desktop/documents/open_document.h"
#include "desktop/language/message.h"
#include "host/db/database.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QSet>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace desktop
{

namespace
{

constexpr int kSwatch = 16;
constexpr int kIndexRole = Qt::UserRole;

/// A small picture: of a colour, of a lamp that is on or off, of a flake.
template <class Paint>
QIcon drawn(const Paint& paint)
{
    constexpr int kSharpness = 2;
    QPixmap picture{kSwatch * kSharpness, kSwatch * kSharpness};
    picture.setDevicePixelRatio(kSharpness);
    picture.fill(Qt::transparent);
    QPainter painter{&picture};
    painter.setRenderHint(QPainter::Antialiasing);
    paint(painter);
    return QIcon{picture};
}

QIcon colorIcon(unsigned rgb)
{
    return drawn(
        [rgb](QPainter& painter)
        {
            painter.setPen(QColor{0x80, 0x80, 0x80});
            painter.setBrush(QColor::fromRgb(rgb));
            painter.drawRect(QRectF{2.5, 2.5, 11, 11});
        });
}

QIcon lampIcon(bool isOn)
{
    return drawn(
        [isOn](QPainter& painter)
        {
            painter.setPen(QPen{QColor{0x80, 0x80, 0x80}, 1.2});
            painter.setBrush(isOn ? QBrush{QColor{0xFF, 0xD0, 0x30}} : QBrush{Qt::NoBrush});
            painter.drawEllipse(QRectF{3.5, 1.5, 9, 9});
            painter.drawLine(QPointF{6, 12.5}, QPointF{10, 12.5});
            painter.drawLine(QPointF{6.5, 14.5}, QPointF{9.5, 14.5});
        });
}

QIcon flakeIcon(bool isFrozen)
{
    return drawn(
        [isFrozen](QPainter& painter)
        {
            painter.setPen(QPen{isFrozen ? QColor{0x30, 0x90, 0xE8} : QColor{0x80, 0x80, 0x80, 0x60}, 1.6});
            painter.translate(8, 8);
            for (int arm = 0; arm < 3; ++arm)
            {
                painter.drawLine(QPointF{-6, 0}, QPointF{6, 0});
                painter.rotate(60);
            }
        });
}

} // namespace

LayerPanel::LayerPanel() : m_filter{new QLineEdit}, m_list{new QTreeWidget}
{
    auto* column = new QVBoxLayout{this};
    column->setContentsMargins(0, 0, 0, 0);
    m_filter->setObjectName("layerFilter");
    m_filter->setPlaceholderText(msg("Filter layers"));
    m_filter->setClearButtonEnabled(true);
    m_list->setObjectName("layers");
    m_list->setColumnCount(4);
    m_list->setHeaderLabels({msg("On"), msg("Frozen"), msg("Colour"), msg("Layer")});
    m_list->setRootIsDecorated(false);
    m_list->setUniformRowHeights(true);
    m_list->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_list->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    auto* row = new QHBoxLayout;
    const auto addButton = [this, row](const char* name, const QString& text, const std::function<void()>& act)
    {
        auto* button = new QPushButton{text};
        button->setObjectName(name);
        connect(button, &QPushButton::clicked, this, act);
        row->addWidget(button);
    };
    addButton("onlyLayers", msg("Only these"), [this] { showOnlyChosen(); });
    addButton("allLayers", msg("All"),
              [this]
              {
                  if (m_document != nullptr && change)
                      change(msg("Show all layers"), [this] { showAllLayers(m_document->database()); });
              });
    column->addWidget(m_filter);
    column->addWidget(m_list, 1);
    column->addLayout(row);
    connect(m_filter, &QLineEdit::textChanged, this, [this] { filter(); });
    connect(m_list, &QTreeWidget::itemClicked, this, [this](QTreeWidgetItem* item, int at) { clicked(*item, at); });
}

void LayerPanel::show(OpenDocument* document)
{
    m_document = document;
    fill();
}

void LayerPanel::refresh()
{
    if (m_document != nullptr && m_seen != m_document->database().changeCount())
        fill();
}

void LayerPanel::fill()
{
    QSet<QString> chosenNames;
    for (const QTreeWidgetItem* item : m_list->selectedItems())
        chosenNames.insert(item->text(kName));
    m_list->clear();
    m_layers.clear();
    if (m_document == nullptr)
        return;
    m_seen = m_document->database().changeCount();
    m_layers = layersOf(m_document->database());
    QList<QTreeWidgetItem*> items;
    for (size_t i = 0; i < m_layers.size(); ++i)
    {
        const LayerState& layer = m_layers[i];
        auto* item = new QTreeWidgetItem;
        item->setData(kName, kIndexRole, static_cast<qulonglong>(i));
        item->setText(kName, layer.name);
        item->setToolTip(kName, layer.name);
        item->setIcon(kOn, lampIcon(!layer.isOff));
        item->setIcon(kFrozen, flakeIcon(layer.isFrozen));
        item->setIcon(kColor, colorIcon(layer.rgb));
        item->setText(kColor, layer.isTrueColor ? QString{} : QString::number(layer.color));
        QFont font = m_list->font();
        font.setBold(layer.isCurrent);
        item->setFont(kName, font);
        items << item;
    }
    m_list->addTopLevelItems(items);
    for (QTreeWidgetItem* item : items)
        item->setSelected(chosenNames.contains(item->text(kName)));
    filter();
}

void LayerPanel::filter()
{
    const QString words = m_filter->text().trimmed();
    for (int i = 0; i < m_list->topLevelItemCount(); ++i)
    {
        QTreeWidgetItem* item = m_list->topLevelItem(i);
        item->setHidden(!item->text(kName).contains(words, Qt::CaseInsensitive));
    }
}

const LayerState& LayerPanel::stateOf(const QTreeWidgetItem& item) const
{
    return m_layers[item.data(kName, kIndexRole).toULongLong()];
}

std::vector<AcDbObjectId> LayerPanel::chosen() const
{
    std::vector<AcDbObjectId> layers;
    for (const QTreeWidgetItem* item : m_list->selectedItems())
        if (!item->isHidden())
            layers.push_back(stateOf(*item).id);
    return layers;
}

/// A click on the state of a layer among those that are chosen is meant for all of them.
void LayerPanel::clicked(QTreeWidgetItem& item, int column)
{
    if (!change || column == kName)
        return;
    const LayerState layer = stateOf(item);
    std::vector<AcDbObjectId> meant = chosen();
    if (std::find(meant.begin(), meant.end(), layer.id) == meant.end())
        meant = {layer.id};
    const QString which = meant.size() == 1 ? layer.name : msg("%1 layers").arg(meant.size());
    if (column == kOn)
        change((layer.isOff ? msg("Layer on: %1") : msg("Layer off: %1")).arg(which),
               [&] { setLayersOff(meant, !layer.isOff); });
    else if (column == kFrozen)
        change((layer.isFrozen ? msg("Thaw layer: %1") : msg("Freeze layer: %1")).arg(which),
               [&] { setLayersFrozen(meant, !layer.isFrozen); });
    else
        changeColor(layer, meant);
}

void LayerPanel::changeColor(const LayerState& layer, const std::vector<AcDbObjectId>& meant)
{
    const std::optional<int> color = askColor ? askColor(layer.color) : std::nullopt;
    if (color)
        change(msg("Colour of layer: %1").arg(layer.name), [&] { setLayersColor(meant, *color); });
}

void LayerPanel::showOnlyChosen()
{
    const std::vector<AcDbObjectId> meant = chosen();
    if (change && !meant.empty())
        change(msg("Show only chosen layers"), [&] { showOnlyLayers(m_document->database(), meant); });
}

} // namespace desktop
