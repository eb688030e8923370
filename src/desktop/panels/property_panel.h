#pragma once

#include "desktop/panels/entity_facts.h"

#include <QTreeWidget>

namespace desktop
{

/// What is known of the entity that was clicked, as a list of names and values.
class PropertyPanel : public QTreeWidget
{
public:
    PropertyPanel();

    /// Null: nothing is chosen.
    void showEntity(AcDbObjectId entity);
    /// Several: how many of each kind and on each layer.
    void showEntities(const std::vector<AcDbObjectId>& entities);

protected:
    /// Ctrl+C copies the values chosen.
    void keyPressEvent(QKeyEvent* event) override;

private:
    void showFacts(const std::vector<Fact>& facts);
};

} // namespace desktop
