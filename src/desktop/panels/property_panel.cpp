#include "desktop/panels/property_panel.h"

#include "desktop/language/message.h"
#include "desktop/panels/entity_facts.h"

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QKeyEvent>

namespace desktop
{

PropertyPanel::PropertyPanel()
{
    setObjectName("properties");
    setColumnCount(2);
    setHeaderHidden(true);
    setRootIsDecorated(false);
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setAlternatingRowColors(true);
    setTextElideMode(Qt::ElideRight);
    setIndentation(10);
    header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    showEntity(AcDbObjectId::kNull);
}

void PropertyPanel::showEntity(AcDbObjectId entity)
{
    showFacts(factsOf(entity));
}

void PropertyPanel::showEntities(const std::vector<AcDbObjectId>& entities)
{
    showFacts(entities.size() == 1 ? factsOf(entities.front()) : factsOfAll(entities));
}

void PropertyPanel::showFacts(const std::vector<Fact>& facts)
{
    clear();
    QTreeWidgetItem* group = nullptr;
    for (const Fact& fact : facts)
    {
        if (fact.isHeading)
        {
            group = new QTreeWidgetItem{this, {fact.name}};
            QFont bold = font();
            bold.setBold(true);
            group->setFont(0, bold);
            group->setFirstColumnSpanned(true);
            group->setExpanded(true);
            continue;
        }
        auto* line = new QTreeWidgetItem{group, {fact.name, QString{fact.value}.replace('\n', ' ')}};
        line->setToolTip(1, fact.value);
    }
    if (group == nullptr)
        (new QTreeWidgetItem{this, {msg("Click something in the drawing")}})->setFirstColumnSpanned(true);
}

void PropertyPanel::keyPressEvent(QKeyEvent* event)
{
    if (!event->matches(QKeySequence::Copy))
        return QTreeWidget::keyPressEvent(event);
    QStringList lines;
    for (const QTreeWidgetItem* item : selectedItems())
        lines << item->text(1);
    QApplication::clipboard()->setText(lines.join('\n'));
}

} // namespace desktop
