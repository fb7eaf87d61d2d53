#pragma once

#include <algorithm>
#include <cstdint>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace tamsel {

// Tells its subscribers that the object it belongs to has changed; they read the new state from that object.
// One thread only (the owner's). Subscribing and unsubscribing are allowed while it notifies.
class Observable {
    struct Subscriber {
        std::uint64_t id;
        std::function<void()> onChange;
    };
    struct State {
        std::vector<Subscriber> subscribers;
        std::uint64_t nextId = 1;
    };

public:
    // Ends the subscription when it is destroyed. May outlive the observable.
    class [[nodiscard]] Subscription {
    public:
        Subscription() = default;
        Subscription(Subscription&& other) noexcept
            : m_state(std::move(other.m_state)), m_id(std::exchange(other.m_id, 0)) {}
        Subscription& operator=(Subscription&& other) noexcept {
            if (this != &other) {
                cancel();
                m_state = std::move(other.m_state);
                m_id = std::exchange(other.m_id, 0);
            }
            return *this;
        }
        ~Subscription() { cancel(); }

        void cancel() {
            if (const auto state = m_state.lock())
                std::erase_if(state->subscribers, [this](const Subscriber& each) { return each.id == m_id; });
            m_state.reset();
        }

    private:
        friend class Observable;
        Subscription(std::weak_ptr<State> state, std::uint64_t id) : m_state(std::move(state)), m_id(id) {}

        std::weak_ptr<State> m_state;
        std::uint64_t m_id = 0;
    };

    Subscription subscribe(std::function<void()> onChange) {
        const std::uint64_t id = m_state->nextId++;
        m_state->subscribers.push_back({id, std::move(onChange)});
        return {m_state, id};
    }

    void notify() const {
        const std::shared_ptr<State> state = m_state;
        std::vector<std::uint64_t> ids;
        ids.reserve(state->subscribers.size());
        for (const Subscriber& each : state->subscribers)
            ids.push_back(each.id);
        // A copy of the callable, looked up anew: the one before may have ended this subscription or added others.
        for (const std::uint64_t id : ids) {
            const auto found = std::ranges::find(state->subscribers, id, &Subscriber::id);
            if (found == state->subscribers.end())
                continue;
            const std::function<void()> onChange = found->onChange;
            onChange();
        }
    }

private:
    std::shared_ptr<State> m_state = std::make_shared<State>();
};

} // namespace tamsel
