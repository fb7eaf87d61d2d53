#pragma once

#include "platform/ShakeSource.h"

namespace tamsel::test {

// A device that is shaken when the test says so.
class FakeShakeSource final : public ShakeSource {
public:
    void shake() { postDeviceDidShakeNotification(); }
};

} // namespace tamsel::test
