#pragma once

#include "platform/Calendar.h"
#include "platform/Clock.h"
#include "platform/LaunchConditions.h"
#include "platform/Queue.h"
#include "platform/UuidSource.h"

namespace tamsel {

class ShakeSource;

// What the device gives to whoever needs it, handed down from the entry point. Tests hand in their own.
struct Platform {
    Clock& clock;
    Calendar& calendar;
    Queue& mainQueue;
    UuidSource& uuids;
    LaunchConditions launch = {};
    ShakeSource* shakeSource = nullptr; // null where a shake cannot be felt
};

} // namespace tamsel
