#pragma once

#include "platform/Observable.h"

namespace tamsel {

// Tells that the device was shaken. Main thread only.
class ShakeSource {
public:
    virtual ~ShakeSource() = default;

    // The notification "deviceDidShakeNotification": notified once for each shake, when the motion has ended.
    Observable& onShake() { return m_deviceDidShakeNotification; }

protected:
    void postDeviceDidShakeNotification() const { m_deviceDidShakeNotification.notify(); }

private:
    Observable m_deviceDidShakeNotification;
};

} // namespace tamsel
