#pragma once

#include "desktop/sections/findings.h"

#include <QWidget>

#include <functional>
#include <vector>

class QLabel;
class QListWidget;

namespace desktop
{

/// What was found to be wrong, a line each; a line leads to its place.
class FaultList : public QWidget
{
public:
    FaultList();

    std::function<void(const FoundFault& fault)> onChosen;

    void show(std::vector<FoundFault> faults);

private:
    std::vector<FoundFault> m_faults;
    QLabel* m_title;
    QListWidget* m_list;
};

} // namespace desktop
