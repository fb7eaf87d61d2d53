#include "tests/metronome/HoldUps.h"

#include <pthread.h>
#include <sched.h>

#include <algorithm>

namespace tamsel::test {

using namespace std::chrono_literals;

HoldUps::HoldUps() {
    for (unsigned processor = 0; processor < std::max(1U, std::thread::hardware_concurrency()); ++processor)
        m_threads.emplace_back([this, processor] { watch(processor); });
}

HoldUps::~HoldUps() {
    m_ending = true;
    for (std::thread& thread : m_threads)
        thread.join();
}

void HoldUps::watch(unsigned processor) {
    cpu_set_t set;
    CPU_ZERO(&set);
    CPU_SET(processor, &set);
    // Where that processor is not ours to use, the thread watches from another.
    pthread_setaffinity_np(pthread_self(), sizeof set, &set);
    while (!m_ending) {
        const auto slept = std::chrono::steady_clock::now();
        std::this_thread::sleep_for(1ms);
        const std::chrono::nanoseconds late = std::chrono::steady_clock::now() - slept - 1ms;
        std::chrono::nanoseconds longest = m_longest;
        while (late > longest && !m_longest.compare_exchange_weak(longest, late)) {
        }
    }
}

} // namespace tamsel::test
