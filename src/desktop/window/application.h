#pragma once

#include <QApplication>

#include <functional>

namespace desktop
{

/// The window program as Qt knows it. No exception passes through its event loop: one that comes out of a handler is
/// told through `onFailure`.
class Application : public QApplication
{
public:
    Application(int& argc, char** argv);

    std::function<void(const QString& reason)> onFailure;

    bool notify(QObject* receiver, QEvent* event) override;
};

} // namespace desktop
