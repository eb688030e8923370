#include "desktop/panels/fault_list.h"

#include "desktop/language/message.h"

#include <QLabel>
#include <QListWidget>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace desktop
{

FaultList::FaultList() : m_title{new QLabel}, m_list{new QListWidget}
{
    auto* column = new QVBoxLayout{this};
    column->setContentsMargins(0, 0, 0, 0);
    m_title->setObjectName("faultTitle");
    m_title->setMargin(3);
    m_list->setObjectName("faults");
    m_list->setWordWrap(true);
    m_list->setAlternatingRowColors(true);
    column->addWidget(m_title);
    column->addWidget(m_list, 1);
    const auto choose = [this](int row)
    {
        if (row >= 0 && static_cast<size_t>(row) < m_faults.size() && onChosen)
            onChosen(m_faults[static_cast<size_t>(row)]);
    };
    connect(m_list, &QListWidget::itemClicked, this, [this, choose] { choose(m_list->currentRow()); });
    connect(m_list, &QListWidget::currentRowChanged, this, choose);
}

void FaultList::show(std::vector<FoundFault> faults)
{
    constexpr size_t kMost = 2000;
    const QSignalBlocker quiet{m_list};
    m_faults = std::move(faults);
    m_list->clear();
    for (size_t i = 0; i < std::min(m_faults.size(), kMost); ++i)
        m_list->addItem(m_faults[i].text);
    m_title->setText(m_faults.empty() ? msg("Nothing to complain about")
                                      : msg("To be looked at: %1").arg(m_faults.size()));
    m_list->setVisible(!m_faults.empty());
}

} // namespace desktop
