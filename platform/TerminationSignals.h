#pragma once

#include <QSocketNotifier>

#include <functional>
#include <memory>

namespace tamsel {

// Turns the system's requests to end (SIGTERM, SIGINT, SIGHUP) into a call on the main thread. One object at a time;
// make it on the main thread, after the application object.
class TerminationSignals {
public:
    explicit TerminationSignals(std::function<void()> onRequest);
    ~TerminationSignals();

    TerminationSignals(const TerminationSignals&) = delete;
    TerminationSignals& operator=(const TerminationSignals&) = delete;

private:
    std::unique_ptr<QSocketNotifier> m_notifier;
};

} // namespace tamsel
