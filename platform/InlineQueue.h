#pragma once

#include "platform/Queue.h"

namespace tamsel {

// Runs work at once, where it is handed in, and waits for no delay: for commands, which have no event loop.
class InlineQueue final : public Queue {
public:
    void async(Work work) override { work(); }
    void asyncAfter(std::chrono::nanoseconds, Work work) override { work(); }
};

} // namespace tamsel
