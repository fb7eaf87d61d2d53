#pragma once

#include <array>
#include <atomic>
#include <cstddef>
#include <optional>
#include <type_traits>

namespace tamsel {

// A queue of fixed capacity between exactly two threads: one pushes, one pops. Never locks, allocates or waits.
template <typename T, std::size_t Capacity>
class SpscRing {
    static_assert(std::is_trivially_copyable_v<T>, "what passes between threads is plain data");
    static_assert(std::atomic<std::size_t>::is_always_lock_free);

public:
    // Producer only. False, and nothing changed, when the ring is full.
    [[nodiscard]] bool push(const T& value) {
        const std::size_t written = m_written.load(std::memory_order_relaxed);
        if (written - m_read.load(std::memory_order_acquire) == Capacity)
            return false;
        m_values[written % Capacity] = value;
        m_written.store(written + 1, std::memory_order_release);
        return true;
    }

    // Consumer only. The oldest value, which stays; none when the ring is empty.
    std::optional<T> peek() const {
        const std::size_t read = m_read.load(std::memory_order_relaxed);
        if (read == m_written.load(std::memory_order_acquire))
            return std::nullopt;
        return m_values[read % Capacity];
    }

    // Consumer only. Takes the oldest value; none when the ring is empty.
    std::optional<T> pop() {
        const std::optional<T> value = peek();
        if (value)
            m_read.store(m_read.load(std::memory_order_relaxed) + 1, std::memory_order_release);
        return value;
    }

private:
    std::array<T, Capacity> m_values{};
    // Both counts only grow.
    std::atomic<std::size_t> m_written = 0;
    std::atomic<std::size_t> m_read = 0;
};

} // namespace tamsel
