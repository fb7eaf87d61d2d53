#include "platform/AccelerometerShakeSource.h"

#include "platform/Log.h"
#include "platform/ShakeDetector.h"

#include <QDir>
#include <QFile>

#include <array>
#include <atomic>
#include <cstdint>
#include <functional>
#include <utility>

namespace tamsel {

namespace {

constexpr std::array axes = {'x', 'y', 'z'};

QString axisFile(const QString& folder, char axis, const char* what) {
    return QStringLiteral("%1/in_accel_%2_%3").arg(folder, QString(QLatin1Char(axis)), QLatin1String(what));
}

std::optional<double> numberIn(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return std::nullopt;
    bool ok = false;
    const double number = file.readLine(64).trimmed().toDouble(&ok);
    return ok ? std::optional(number) : std::nullopt;
}

} // namespace

// Lives as long as the work on the reading queue, and does everything there but `start` and `stop`.
class AccelerometerShakeSource::Reader final : public std::enable_shared_from_this<Reader> {
public:
    Reader(QString folder, const Clock& clock, Queue& queue, std::function<void()> onShake)
        : m_folder(std::move(folder)), m_clock(clock), m_queue(queue), m_onShake(std::move(onShake)) {}

    void start() {
        m_queue.async([self = shared_from_this(), run = ++m_run] { self->read(run); });
    }

    void stop() { ++m_run; }

private:
    void read(std::uint64_t run) {
        if (run != m_run.load())
            return;
        const std::optional<Acceleration> reading = acceleration();
        if (!reading) {
            log(QStringLiteral("cannot read the accelerometer: ") + m_folder);
            return;
        }
        if (m_detector.feed(*reading, m_clock.hostTime()))
            m_onShake();
        m_queue.asyncAfter(readingInterval, [self = shared_from_this(), run] { self->read(run); });
    }

    std::optional<Acceleration> acceleration() {
        std::array<double, axes.size()> values{};
        for (std::size_t i = 0; i < axes.size(); ++i) {
            if (!m_scales[i])
                m_scales[i] = scale(axes[i]);
            const auto raw = numberIn(axisFile(m_folder, axes[i], "raw"));
            if (!raw || !m_scales[i])
                return std::nullopt;
            values[i] = *raw * *m_scales[i];
        }
        return Acceleration{values[0], values[1], values[2]};
    }

    // Metres per second squared for one step of the raw value; for each axis, or one for all.
    std::optional<double> scale(char axis) const {
        const auto own = numberIn(axisFile(m_folder, axis, "scale"));
        return own ? own : numberIn(m_folder + QStringLiteral("/in_accel_scale"));
    }

    const QString m_folder;
    const Clock& m_clock;
    Queue& m_queue;
    const std::function<void()> m_onShake;
    std::atomic<std::uint64_t> m_run = 0;
    std::array<std::optional<double>, axes.size()> m_scales;
    ShakeDetector m_detector;
};

std::optional<QString> AccelerometerShakeSource::find(const QString& devicesFolder) {
    const QDir folder(devicesFolder);
    const QStringList devices = folder.entryList({QStringLiteral("iio:device*")}, QDir::Dirs, QDir::Name);
    for (const QString& device : devices) {
        const QString path = folder.filePath(device);
        if (QFile::exists(axisFile(path, 'x', "raw")) && QFile::exists(axisFile(path, 'y', "raw")) &&
            QFile::exists(axisFile(path, 'z', "raw")))
            return path;
    }
    return std::nullopt;
}

AccelerometerShakeSource::AccelerometerShakeSource(const QString& deviceFolder, const Clock& clock, Queue& readingQueue,
                                                   Queue& mainQueue)
    : m_reader(std::make_shared<Reader>(deviceFolder, clock, readingQueue, [&mainQueue, self = std::weak_ptr(m_self)] {
          // Only looked into on the main thread, where the source lives and dies.
          mainQueue.async([self] {
              if (const auto source = self.lock())
                  (*source)->postDeviceDidShakeNotification();
          });
      })) {}

AccelerometerShakeSource::~AccelerometerShakeSource() {
    m_reader->stop();
}

void AccelerometerShakeSource::setActive(bool active) {
    if (std::exchange(m_isActive, active) == active)
        return;
    if (active)
        m_reader->start();
    else
        m_reader->stop();
}

} // namespace tamsel
