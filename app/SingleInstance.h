#pragma once

#include <QLocalServer>
#include <QString>
#include <QStringList>

#include <functional>

namespace tamsel {

// The door at which a second start of the app knocks: the first one raises its window and takes over the URLs.
// Main thread only.
class SingleInstance {
public:
    // Called with the second start's URLs, which may be none.
    using Knock = std::function<void(const QStringList& urls)>;

    // Opens the door of the given data folder, whose lock the caller must hold.
    SingleInstance(const QString& folder, Knock onKnock);

    SingleInstance(const SingleInstance&) = delete;
    SingleInstance& operator=(const SingleInstance&) = delete;

    // Knocks at the door of whoever holds the folder's lock. False when nobody answers within a second.
    static bool knock(const QString& folder, const QStringList& urls);

private:
    void answer();

    const Knock m_onKnock;
    QLocalServer m_server;
};

} // namespace tamsel
