#include "tests/metronome/Recorder.h"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstring>

namespace tamsel::test {

namespace {
// Far beyond anything that is recorded here: only a sound that never comes takes so long.
constexpr std::chrono::seconds patience(60);
} // namespace

Recorder::Recorder(const QString& sink)
    : m_process(ChildProcess::start({QStringLiteral("parec"), QStringLiteral("--device=%1.monitor").arg(sink),
                                     QStringLiteral("--format=float32le"), QStringLiteral("--rate=44100"),
                                     QStringLiteral("--channels=2"), QStringLiteral("--latency-msec=5")},
                                    ChildProcess::Pipe::StandardOutput)) {
    if (m_process != nullptr)
        m_thread = std::thread([this] { read(); });
}

Recorder::~Recorder() {
    if (m_process == nullptr)
        return;
    m_process->end();
    m_thread.join();
}

void Recorder::read() {
    std::vector<char> bytes;
    std::array<char, 65536> chunk{};
    for (;;) {
        const ssize_t count = ::read(m_process->pipe(), chunk.data(), chunk.size());
        const std::chrono::nanoseconds now = std::chrono::steady_clock::now().time_since_epoch();
        if (count <= 0)
            return;
        bytes.insert(bytes.end(), chunk.data(), chunk.data() + count);
        const std::size_t whole = bytes.size() / sizeof(float);
        {
            const std::lock_guard lock(m_mutex);
            m_samples.resize(m_samples.size() + whole);
            std::memcpy(m_samples.data() + m_samples.size() - whole, bytes.data(), whole * sizeof(float));
            m_chunks.push_back({static_cast<qint64>(m_samples.size()) / channelCount, now});
        }
        bytes.erase(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(whole * sizeof(float)));
        m_changed.notify_all();
    }
}

bool Recorder::waitForFrames(qint64 frames) {
    std::unique_lock lock(m_mutex);
    return m_changed.wait_for(lock, patience,
                              [&] { return static_cast<qint64>(m_samples.size()) / channelCount >= frames; });
}

qint64 Recorder::waitForSound(qint64 fromFrame) {
    std::unique_lock lock(m_mutex);
    std::size_t next = static_cast<std::size_t>(fromFrame * channelCount);
    const bool heard = m_changed.wait_for(lock, patience, [&] {
        while (next < m_samples.size() && m_samples[next] == 0.0F)
            ++next;
        return next < m_samples.size();
    });
    return heard ? static_cast<qint64>(next) / channelCount : -1;
}

qint64 Recorder::frameCount() const {
    const std::lock_guard lock(m_mutex);
    return static_cast<qint64>(m_samples.size()) / channelCount;
}

std::vector<float> Recorder::samplesFrom(qint64 frame) const {
    const std::lock_guard lock(m_mutex);
    return {m_samples.begin() + static_cast<std::ptrdiff_t>(frame * channelCount), m_samples.end()};
}

std::chrono::nanoseconds Recorder::arrival(qint64 frame) const {
    const std::lock_guard lock(m_mutex);
    const auto chunk = std::ranges::upper_bound(m_chunks, frame, {}, &Chunk::endFrame);
    return chunk == m_chunks.end() ? std::chrono::nanoseconds::max() : chunk->arrival;
}

} // namespace tamsel::test
