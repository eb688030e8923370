#include "desktop/panels/section_panel.h"

#include "desktop/language/message.h"
#include "desktop/language/qt_text.h"

#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QSplitter>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace desktop
{

namespace
{

constexpr int kPlaceRole = Qt::UserRole;

SectionPlace placeOf(const QTreeWidgetItem& item)
{
    const QPoint place = item.data(0, kPlaceRole).toPoint();
    return {static_cast<size_t>(place.x()), static_cast<size_t>(place.y())};
}

/// "3 features, 5 codes"
QString foundOn(const CrossSectionXdata& section)
{
    QStringList parts;
    const size_t names = section.m_listBlockData1.size() + section.m_listBlockData2.size();
    if (names > 0)
        parts << msg("%1 features").arg(names);
    if (!section.m_listBlockFcode1.empty())
        parts << msg("%1 codes").arg(section.m_listBlockFcode1.size());
    if (section.m_idGroundLine.isNull())
        parts << msg("no ground line");
    return parts.join(", ");
}

QString offsetShown(double offset)
{
    return (offset > 0.0 ? "+" : "") + QString::number(offset, 'f', 2);
}

} // namespace

SectionPanel::SectionPanel()
    : m_message{new QLabel}, m_filter{new QLineEdit}, m_tree{new QTreeWidget}, m_faults{new FaultList}
{
    auto* column = new QVBoxLayout{this};
    column->setContentsMargins(0, 0, 0, 0);
    m_message->setObjectName("sectionMessage");
    m_message->setWordWrap(true);
    m_message->setMargin(6);
    m_filter->setObjectName("sectionFilter");
    m_filter->setPlaceholderText(msg("Filter sections, features, codes"));
    m_filter->setClearButtonEnabled(true);
    m_tree->setObjectName("sections");
    m_tree->setColumnCount(2);
    m_tree->setHeaderLabels({msg("Cross-section"), msg("Found on it")});
    m_tree->setUniformRowHeights(true);
    m_tree->header()->setStretchLastSection(true);
    m_tree->header()->setSectionResizeMode(0, QHeaderView::Interactive);
    m_tree->setColumnWidth(0, 130);
    column->addWidget(m_message);
    column->addWidget(m_filter);
    auto* lists = new QSplitter{Qt::Vertical};
    lists->addWidget(m_tree);
    lists->addWidget(m_faults);
    lists->setStretchFactor(0, 3);
    lists->setStretchFactor(1, 1);
    m_lists = lists;
    column->addWidget(lists, 1);
    column->addStretch();
    connect(m_filter, &QLineEdit::textChanged, this, [this] { filter(); });
    connect(m_tree, &QTreeWidget::itemExpanded, this, [this](QTreeWidgetItem* item) { fillRows(*item); });
    connect(m_tree, &QTreeWidget::currentItemChanged, this,
            [this](QTreeWidgetItem* item)
            {
                while (item != nullptr && !item->data(0, kPlaceRole).isValid())
                    item = item->parent();
                if (item != nullptr && onSection)
                    onSection(placeOf(*item));
            });
    show(nullptr);
}

bool SectionPanel::show(const ScannedSections* sections)
{
    if (sections != nullptr && sections == m_sections && sections->seen() == m_seen)
        return false;
    m_sections = sections;
    m_seen = sections != nullptr ? sections->seen() : 0;
    fill();
    return true;
}

void SectionPanel::fill()
{
    const QSignalBlocker quiet{m_tree};
    m_tree->clear();
    const bool hasAny = m_sections != nullptr && !m_sections->lines().empty();
    m_message->setText(m_sections == nullptr ? msg("No drawing is open") : msg("The drawing has no alignment."));
    m_message->setVisible(!hasAny);
    m_filter->setVisible(hasAny);
    m_lists->setVisible(hasAny);
    for (size_t i = 0; hasAny && i < m_sections->lines().size(); ++i)
    {
        const ItemReferenceLine& line = m_sections->lines()[i];
        auto* top = new QTreeWidgetItem{
            {toQString(line.m_strName), msg("%1 cross-sections").arg(line.m_listCrossSections.size())}};
        QFont bold = m_tree->font();
        bold.setBold(true);
        top->setFont(0, bold);
        QList<QTreeWidgetItem*> items;
        for (size_t j = 0; j < line.m_listCrossSections.size(); ++j)
        {
            const CrossSectionXdata& section = line.m_listCrossSections[j];
            auto* item = new QTreeWidgetItem{{toQString(section.m_strName), foundOn(section)}};
            item->setData(0, kPlaceRole, QPoint{static_cast<int>(i), static_cast<int>(j)});
            item->setChildIndicatorPolicy(QTreeWidgetItem::ShowIndicator);
            items << item;
        }
        top->addChildren(items);
        m_tree->addTopLevelItem(top);
        top->setExpanded(true);
    }
    filter();
}

/// What was found on a section is listed when it is opened: a road has ten thousands of such lines.
void SectionPanel::fillRows(QTreeWidgetItem& item) const
{
    if (!item.data(0, kPlaceRole).isValid() || item.childCount() > 0)
        return;
    const CrossSectionXdata& section = m_sections->section(placeOf(item));
    QList<QTreeWidgetItem*> rows;
    const auto add = [&rows](const std::u16string& name, const QString& what) {
        rows << new QTreeWidgetItem{{toQString(name), what}};
    };
    for (const BlockData& row : section.m_listBlockData2)
        add(row.m_strName, msg("crosses at %1").arg(offsetShown(row.m_dOffset1)) +
                               (row.m_dOffset2 != 0.0 ? " / " + offsetShown(row.m_dOffset2) : QString{}));
    for (const BlockData& row : section.m_listBlockData1)
        add(row.m_strName, msg("near it at %1").arg(offsetShown(row.m_dOffset1)));
    for (const BlockFcode& row : section.m_listBlockFcode1)
        add(row.m_strFcode, msg("point at %1").arg(offsetShown(row.m_dOffset)));
    if (rows.isEmpty())
        add(u"", msg("nothing"));
    item.addChildren(rows);
}

void SectionPanel::filter()
{
    const QString words = m_filter->text().trimmed();
    const auto hasName = [&words](const auto& rows, const auto& nameOf)
    {
        return std::any_of(rows.begin(), rows.end(),
                           [&](const auto& row)
                           { return toQString(nameOf(row)).contains(words, Qt::CaseInsensitive); });
    };
    const auto nameOfBlock = [](const BlockData& row) { return row.m_strName; };
    const auto nameOfCode = [](const BlockFcode& row) { return row.m_strFcode; };
    for (int i = 0; i < m_tree->topLevelItemCount(); ++i)
        for (int j = 0; j < m_tree->topLevelItem(i)->childCount(); ++j)
        {
            QTreeWidgetItem* item = m_tree->topLevelItem(i)->child(j);
            const CrossSectionXdata& section = m_sections->section(placeOf(*item));
            const bool isMeant = words.isEmpty() || item->text(0).contains(words, Qt::CaseInsensitive) ||
                                 hasName(section.m_listBlockData1, nameOfBlock) ||
                                 hasName(section.m_listBlockData2, nameOfBlock) ||
                                 hasName(section.m_listBlockFcode1, nameOfCode);
            item->setHidden(!isMeant);
        }
}

void SectionPanel::setCurrent(const SectionPlace& place)
{
    const QTreeWidgetItem* top = m_tree->topLevelItem(static_cast<int>(place.line));
    if (top == nullptr || static_cast<int>(place.section) >= top->childCount())
        return;
    const QSignalBlocker quiet{m_tree};
    QTreeWidgetItem* item = top->child(static_cast<int>(place.section));
    if (m_tree->currentItem() == nullptr || m_tree->currentItem()->parent() != item)
        m_tree->setCurrentItem(item);
    m_tree->scrollToItem(item);
}

} // namespace desktop
