#pragma once

#include <pthread.h>

namespace tamsel {

// Asks the system to run a thread of this process ahead of ordinary ones, for work that is short and must be on time:
// by the scheduler's real-time class where the process may use it, else by the desktop's RealtimeKit, whose answer is
// not waited for. Where neither helps the thread stays as it is. The thread must be alive. Any thread, but not a
// real-time one.
void requestRealtime(pthread_t thread);

} // namespace tamsel
