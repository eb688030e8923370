#pragma once

#include <QLocalServer>

#include <functional>
#include <string>
#include <vector>

namespace desktop
{

/// Has a window of this user's on this display open drawings; false when there is none that answers. Paths are made
/// absolute.
bool handToRunningWindow(const std::vector<std::string>& drawings);

/// Listens for the drawings that other starts of the program want to have opened here.
class SingleInstance
{
public:
    /// `onDrawings` may get none: then the window is only to come up.
    explicit SingleInstance(std::function<void(const std::vector<std::string>& drawings)> onDrawings);
    SingleInstance(const SingleInstance&) = delete;
    SingleInstance& operator=(const SingleInstance&) = delete;

private:
    void serve();

    std::function<void(const std::vector<std::string>&)> m_onDrawings;
    QLocalServer m_server;
};

} // namespace desktop
