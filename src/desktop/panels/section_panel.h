#pragma once

#include "desktop/panels/fault_list.h"
#include "desktop/sections/scanned_sections.h"

#include <QWidget>

#include <functional>

class QLabel;
class QLineEdit;
class QTreeWidget;
class QTreeWidgetItem;

namespace desktop
{

/// The alignments and cross-sections of the drawing in front, with what was found on each.
class SectionPanel : public QWidget
{
public:
    SectionPanel();

    /// The user goes to a section.
    std::function<void(const SectionPlace& place)> onSection;

    /// Null: none. The sections must outlive what is shown of them. What is listed already stays as it is;
    /// answers whether it was listed anew.
    bool show(const ScannedSections* sections);
    /// What is wrong, below them.
    FaultList& faults() { return *m_faults; }
    /// Marks a section as the one at hand.
    void setCurrent(const SectionPlace& place);

private:
    void fill();
    void fillRows(QTreeWidgetItem& item) const;
    void filter();

    const ScannedSections* m_sections = nullptr;
    uint64_t m_seen = 0; ///< state of the drawing that is listed
    QLabel* m_message;
    QLineEdit* m_filter;
    QTreeWidget* m_tree;
    FaultList* m_faults;
    QWidget* m_lists; ///< the tree and the faults
};

} // namespace desktop
