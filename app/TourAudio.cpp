#include "app/TourAudio.h"

#include "metronome/WavFile.h"

#include <chrono>

namespace tamsel {

namespace {
constexpr std::chrono::milliseconds blockInterval{10};
}

TourAudio::TourAudio(const Clock& clock) : m_clock(clock), m_start(clock.hostTime()) {
    m_timer.setTimerType(Qt::PreciseTimer);
    QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { renderUntilNow(); });
    m_timer.start(blockInterval);
}

void TourAudio::beginTimeline() {
    renderUntilNow();
    m_output.setTimelineStart(m_clock.hostTime());
}

void TourAudio::renderUntilNow() {
    const double elapsed = std::chrono::duration<double>(m_clock.hostTime() - m_start).count();
    const auto due = static_cast<qint64>(elapsed * m_output.sampleRate());
    const auto made = static_cast<qint64>(m_samples.size()) / OfflineOutput::channelCount;
    if (due <= made)
        return;
    const std::vector<float> block = m_output.render(due - made);
    m_samples.insert(m_samples.end(), block.begin(), block.end());
}

std::vector<qint64> TourAudio::onsets() const {
    // Longer than any silence inside a click (it has none), shorter than any between two.
    constexpr qint64 silence = 1000;
    std::vector<qint64> found;
    qint64 lastLoud = -silence - 1;
    for (std::size_t i = 0; i < m_samples.size(); i += OfflineOutput::channelCount) {
        if (m_samples[i] == 0.0F)
            continue;
        const auto frame = static_cast<qint64>(i) / OfflineOutput::channelCount;
        if (frame - lastLoud > silence)
            found.push_back(frame);
        lastLoud = frame;
    }
    return found;
}

bool TourAudio::write(const QString& path) const {
    WavFile file(path, m_output.sampleRate(), static_cast<qint64>(m_samples.size()) / OfflineOutput::channelCount);
    file.write(m_samples);
    return file.finish();
}

} // namespace tamsel
