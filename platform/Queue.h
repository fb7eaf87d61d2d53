#pragma once

#include <chrono>
#include <functional>

namespace tamsel {

// Runs work one piece after another, in the order in which it became due. Adding work: any thread.
class Queue {
public:
    using Work = std::function<void()>;

    virtual ~Queue() = default;

    virtual void async(Work work) = 0;
    virtual void asyncAfter(std::chrono::nanoseconds delay, Work work) = 0;
};

} // namespace tamsel
