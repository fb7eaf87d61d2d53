#include "metronome/RealtimeThread.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QVariant>

#include <sched.h>
#include <sys/resource.h>
#include <time.h>

#include <optional>

namespace tamsel {

namespace {

// Low in the range: ahead of every ordinary thread, behind the sound server's own.
constexpr int priority = 4;
// RealtimeKit's own upper limit: a real-time thread that computes for so long without a pause is a fault.
constexpr rlim_t longestRunMicroseconds = 200'000;

std::optional<qulonglong> kernelThread(pthread_t thread) {
    clockid_t clock{};
    if (pthread_getcpuclockid(thread, &clock) != 0)
        return std::nullopt;
    // Linux forms the clock of a thread from the complement of its number, shifted by three bits.
    return static_cast<qulonglong>(~(clock >> 3));
}

void askRealtimeKit(pthread_t thread) {
    const std::optional<qulonglong> number = kernelThread(thread);
    QDBusConnection bus = QDBusConnection::systemBus();
    if (!number || !bus.isConnected())
        return;
    // RealtimeKit refuses processes that have not limited themselves.
    const rlimit limit{longestRunMicroseconds, longestRunMicroseconds};
    if (::setrlimit(RLIMIT_RTTIME, &limit) != 0)
        return;
    const QString name = QStringLiteral("org.freedesktop.RealtimeKit1");
    QDBusMessage call = QDBusMessage::createMethodCall(name, QStringLiteral("/org/freedesktop/RealtimeKit1"), name,
                                                       QStringLiteral("MakeThreadRealtime"));
    call << *number << static_cast<uint>(priority);
    bus.call(call, QDBus::NoBlock);
}

} // namespace

void requestRealtime(pthread_t thread) {
    const sched_param parameters{.sched_priority = priority};
    // Programs that this one starts begin as ordinary ones again.
    if (pthread_setschedparam(thread, SCHED_RR | SCHED_RESET_ON_FORK, &parameters) != 0)
        askRealtimeKit(thread);
}

} // namespace tamsel
