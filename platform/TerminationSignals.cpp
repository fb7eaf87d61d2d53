#include "platform/TerminationSignals.h"

#include "platform/FatalError.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <utility>

namespace tamsel {

namespace {

constexpr std::array signals = {SIGTERM, SIGINT, SIGHUP};

// Read end, write end. A signal handler may do little more than write a byte.
std::array<int, 2> pipeEnds = {-1, -1};

void handle(int) {
    const char byte = 0;
    [[maybe_unused]] const auto written = ::write(pipeEnds[1], &byte, 1);
}

} // namespace

TerminationSignals::TerminationSignals(std::function<void()> onRequest) {
    if (::pipe2(pipeEnds.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        trap();
    m_notifier = std::make_unique<QSocketNotifier>(pipeEnds[0], QSocketNotifier::Read);
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(),
                     [onRequest = std::move(onRequest)] {
                         char byte = 0;
                         while (::read(pipeEnds[0], &byte, 1) == 1) {
                         }
                         onRequest();
                     });
    for (const int signal : signals)
        std::signal(signal, handle);
}

TerminationSignals::~TerminationSignals() {
    for (const int signal : signals)
        std::signal(signal, SIG_DFL);
    m_notifier.reset();
    ::close(pipeEnds[0]);
    ::close(pipeEnds[1]);
}

} // namespace tamsel
