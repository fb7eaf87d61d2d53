#pragma once

#include "platform/Clock.h"
#include "platform/Queue.h"
#include "platform/ShakeSource.h"

#include <QString>

#include <memory>
#include <optional>

namespace tamsel {

// Shakes felt by an accelerometer of the kernel's industrial I/O system. The sensor is read on a queue of its own, 25
// times a second, and only while the source is active. Main thread only.
class AccelerometerShakeSource final : public ShakeSource {
public:
    static constexpr std::chrono::milliseconds readingInterval{40};

    // The folder of the first accelerometer below the one that holds all sensors, by default the kernel's; none where
    // there is none.
    static std::optional<QString> find(const QString& devicesFolder = QStringLiteral("/sys/bus/iio/devices"));

    // Begins inactive. The queues and the clock must outlive the source; work that still waits on them may be later.
    AccelerometerShakeSource(const QString& deviceFolder, const Clock& clock, Queue& readingQueue, Queue& mainQueue);
    ~AccelerometerShakeSource() override;

    AccelerometerShakeSource(const AccelerometerShakeSource&) = delete;
    AccelerometerShakeSource& operator=(const AccelerometerShakeSource&) = delete;

    // Reads while the program is in front; nothing wakes up while it is not.
    void setActive(bool active);

private:
    class Reader;

    bool m_isActive = false;
    std::shared_ptr<AccelerometerShakeSource*> m_self = std::make_shared<AccelerometerShakeSource*>(this);
    std::shared_ptr<Reader> m_reader;
};

} // namespace tamsel
