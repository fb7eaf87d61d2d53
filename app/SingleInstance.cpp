#include "app/SingleInstance.h"

#include <QCryptographicHash>
#include <QDataStream>
#include <QLocalSocket>
#include <QStandardPaths>

#include <utility>

namespace tamsel {

namespace {

constexpr int patienceMilliseconds = 1000;

// In the user's own runtime folder: the name of a socket may not be as long as that of a data folder.
QString socketPath(const QString& folder) {
    const QByteArray hash = QCryptographicHash::hash(folder.toUtf8(), QCryptographicHash::Sha256).toHex().left(16);
    return QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation) + QStringLiteral("/tamsel-") +
           QString::fromLatin1(hash);
}

} // namespace

SingleInstance::SingleInstance(const QString& folder, Knock onKnock) : m_onKnock(std::move(onKnock)) {
    // The lock is ours, so a door that is still there belongs to a process that has died.
    QLocalServer::removeServer(socketPath(folder));
    m_server.setSocketOptions(QLocalServer::UserAccessOption);
    QObject::connect(&m_server, &QLocalServer::newConnection, &m_server, [this] { answer(); });
    m_server.listen(socketPath(folder));
}

bool SingleInstance::knock(const QString& folder, const QStringList& requests) {
    QLocalSocket socket;
    socket.connectToServer(socketPath(folder));
    if (!socket.waitForConnected(patienceMilliseconds))
        return false;
    QDataStream stream(&socket);
    stream << requests;
    // One byte back says that the message has been understood.
    return socket.waitForBytesWritten(patienceMilliseconds) && socket.waitForReadyRead(patienceMilliseconds);
}

void SingleInstance::answer() {
    QLocalSocket* const socket = m_server.nextPendingConnection();
    QObject::connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
    QObject::connect(socket, &QLocalSocket::readyRead, socket, [this, socket] {
        QDataStream stream(socket);
        QStringList requests;
        stream.startTransaction();
        stream >> requests;
        if (!stream.commitTransaction())
            return;
        m_onKnock(requests);
        socket->write("1", 1);
    });
}

} // namespace tamsel
