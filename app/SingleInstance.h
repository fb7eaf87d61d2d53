#pragma once

#include <QLocalServer>
#include <QString>
#include <QStringList>

#include <functional>

namespace tamsel {

// The door at which a second start of the app knocks: the first one raises its window and takes over what the second
// was asked to open. Main thread only.
class SingleInstance {
public:
    // Called with what the second start was asked to open, which may be nothing.
    using Knock = std::function<void(const QStringList& requests)>;

    // Opens the door of the given data folder, whose lock the caller must hold.
    SingleInstance(const QString& folder, Knock onKnock);

    SingleInstance(const SingleInstance&) = delete;
    SingleInstance& operator=(const SingleInstance&) = delete;

    // Knocks at the door of whoever holds the folder's lock. False when nobody answers within a second.
    static bool knock(const QString& folder, const QStringList& requests);

private:
    void answer();

    const Knock m_onKnock;
    QLocalServer m_server;
};

} // namespace tamsel
