#pragma once

#include "platform/Observable.h"
#include "platform/Queue.h"
#include "platform/ShakeSource.h"

#include <functional>
#include <memory>

namespace tamsel {

// Attached to a screen's model: calls the action once for each shake of the device, on a turn of the main queue, for as
// long as it lives. Main thread only.
class DeviceShakeViewModifier {
public:
    // Without a source nothing is ever called.
    DeviceShakeViewModifier(ShakeSource* source, Queue& mainQueue, std::function<void()> action)
        : m_action(std::make_shared<std::function<void()>>(std::move(action))) {
        if (source == nullptr)
            return;
        m_subscription = source->onShake().subscribe([&mainQueue, action = std::weak_ptr(m_action)] {
            mainQueue.async([action] {
                if (const auto alive = action.lock())
                    (*alive)();
            });
        });
    }

private:
    const std::shared_ptr<std::function<void()>> m_action;
    Observable::Subscription m_subscription;
};

} // namespace tamsel
