#pragma once

#include "desktop/documents/layer_changes.h"

#include <QWidget>

#include <functional>
#include <vector>

class QLineEdit;
class QTreeWidget;
class QTreeWidgetItem;

namespace desktop
{

class OpenDocument;

/// The layers of the drawing in front: seen or not, frozen, colour. What the user clicks is asked of the window; the
/// list shows what the drawing then has.
class LayerPanel : public QWidget
{
public:
    LayerPanel();

    /// Does a change of the drawing under a name by which it can be taken back.
    std::function<void(const QString& title, const std::function<void()>& act)> change;
    /// Asks for a colour; nothing when the user gives up.
    std::function<std::optional<int>(int current)> askColor;

    /// Null: none.
    void show(OpenDocument* document);
    /// The drawing may have changed.
    void refresh();

private:
    enum Column
    {
        kOn,
        kFrozen,
        kColor,
        kName
    };

    void fill();
    void filter();
    void clicked(QTreeWidgetItem& item, int column);
    void changeColor(const LayerState& layer, const std::vector<AcDbObjectId>& meant);
    void showOnlyChosen();
    std::vector<AcDbObjectId> chosen() const;
    const LayerState& stateOf(const QTreeWidgetItem& item) const;

    OpenDocument* m_document = nullptr;
    uint64_t m_seen = 0; ///< the drawing's change count when the list was made
    std::vector<LayerState> m_layers;
    QLineEdit* m_filter;
    QTreeWidget* m_list;
};

} // namespace desktop
