#include "desktop/window/single_instance.h"

#include <QByteArray>
#include <QLocalSocket>
#include <QStandardPaths>

#include <filesystem>

namespace desktop
{

namespace
{

constexpr int kPatience = 2000; ///< milliseconds
constexpr const char* kEnd = "end\n";
constexpr const char* kAnswer = "ok\n";

/// One socket for each user (the folder is the user's own) and display.
QString socketName()
{
    QByteArray display = qgetenv("WAYLAND_DISPLAY") + qgetenv("DISPLAY") + qgetenv("QT_QPA_PLATFORM");
    display = display.toPercentEncoding().replace('%', '_');
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
    return folder + "/veloxa-window" + QString::fromLatin1(display);
}

QByteArray messageFor(const std::vector<std::string>& drawings)
{
    QByteArray message;
    for (const std::string& drawing : drawings)
    {
        std::error_code error;
        const std::filesystem::path whole = std::filesystem::absolute(drawing, error);
        message += QByteArray::fromStdString(error ? drawing : whole.string()).toPercentEncoding("/") + "\n";
    }
    return message + kEnd;
}

std::vector<std::string> drawingsIn(const QByteArray& message)
{
    std::vector<std::string> drawings;
    for (const QByteArray& line : message.chopped(qstrlen(kEnd)).split('\n'))
        if (!line.isEmpty())
            drawings.push_back(QByteArray::fromPercentEncoding(line).toStdString());
    return drawings;
}

} // namespace

bool handToRunningWindow(const std::vector<std::string>& drawings)
{
    QLocalSocket socket;
    socket.connectToServer(socketName());
    if (!socket.waitForConnected(kPatience))
        return false;
    socket.write(messageFor(drawings));
    return socket.waitForBytesWritten(kPatience) && socket.waitForReadyRead(kPatience) && socket.readAll() == kAnswer;
}

SingleInstance::SingleInstance(std::function<void(const std::vector<std::string>&)> onDrawings)
    : m_onDrawings{std::move(onDrawings)}
{
    QObject::connect(&m_server, &QLocalServer::newConnection, &m_server, [this] { serve(); });
    m_server.setSocketOptions(QLocalServer::UserAccessOption);
    if (!m_server.listen(socketName()) && m_server.serverError() == QAbstractSocket::AddressInUseError)
    {
        // Left by a window that did not end by itself: nobody answered there.
        QLocalServer::removeServer(socketName());
        m_server.listen(socketName());
    }
}

void SingleInstance::serve()
{
    constexpr qsizetype kLongest = 1 << 20;
    QLocalSocket* socket = m_server.nextPendingConnection();
    QObject::connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
    QObject::connect(socket, &QLocalSocket::readyRead, socket,
                     [this, socket, message = QByteArray{}]() mutable
                     {
                         message += socket->readAll();
                         if (message.size() > kLongest)
                             return socket->abort();
                         if (!message.endsWith(kEnd))
                             return;
                         socket->write(kAnswer);
                         socket->flush();
                         socket->disconnectFromServer();
                         m_onDrawings(drawingsIn(message));
                     });
}

} // namespace desktop
