#include "metronome/Metronome.h"

#include "metronome/AlertSound.h"
#include "metronome/TriangleWaveGenerator.h"
#include "platform/Checked.h"
#include "platform/FatalError.h"
#include "platform/Log.h"
#include "platform/NumberText.h"
#include "platform/TimeUnits.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace tamsel {

namespace {

constexpr int channelCount = 2;
constexpr float highFrequencyHz = 1567.98F; // G6
constexpr float lowFrequencyHz = 1046.5F;   // C6
constexpr double initialBPM = 120.0;
constexpr double lookAheadSeconds = 0.25;

AudioFormat requireFormat(double sampleRate) {
    const std::optional<AudioFormat> format = AudioFormat::standard(sampleRate, channelCount);
    if (!format)
        fatalError(QStringLiteral("No format"));
    return *format;
}

double secondsPerClick(double tempoBPM, Rhythm rhythm) {
    return secondsPerMinute / (tempoBPM * clicksPerBeat(rhythm));
}

} // namespace

Metronome::Metronome(AudioOutput& output, AudioSession& session)
    : m_output(output), m_format(requireFormat(output.sampleRate())),
      m_soundBufferHigh(makeClickBuffer(m_format, highFrequencyHz)),
      m_soundBufferLow(makeClickBuffer(m_format, lowFrequencyHz)), m_alert(makeAlertBuffer(m_format)),
      m_bufferSampleRate(m_format.sampleRate), m_callbacksSyncQueue("Metronome") {
    // First, as an output that is attached may reach for the sound server, which then learns what the session says.
    setUpSession(session);
    m_output.setFailed([this] { outputFailed(); });
    m_output.attach(m_callbacksSyncQueue, [this] { beatFinished(); });
    setTempo(initialBPM);
}

Metronome::~Metronome() {
    stop();
    m_callbacksSyncQueue.sync([this] { m_output.detach(); });
}

void Metronome::setUpSession(AudioSession& session) {
    if (session.setCategory(AudioSession::Category::Playback, AudioSession::Mixing::WithOthers) || session.activate())
        log(u"ERROR");
}

void Metronome::setTempo(double bpm) {
    const double clamped = std::max(std::min(bpm, fastestBPM), slowestBPM);
    if (checkedTruncate(clamped) == checkedTruncate(tempoBPM())) {
        log(QStringLiteral("Metronome: Skipping unnecessary side-effect, oldTempo and newTempo are the same (%1).")
                .arg(decimalText(bpm)));
        return;
    }
    m_tempoBPM.store(clamped);
    resetBeatNumber();
    const double clicks = lookAheadSeconds / secondsPerClick(clamped, rhythmSelection());
    m_beatsToScheduleAhead.store(std::max(checkedTruncate(clicks), qint64{1}));
}

void Metronome::setRhythmSelection(Rhythm rhythm) {
    m_rhythmSelection.store(rhythm);
    resetBeatNumber();
}

void Metronome::setDelegate(std::weak_ptr<MetronomeDelegate> delegate) {
    const std::lock_guard lock(m_delegateMutex);
    m_delegate = std::move(delegate);
}

std::weak_ptr<MetronomeDelegate> Metronome::delegate() const {
    const std::lock_guard lock(m_delegateMutex);
    return m_delegate;
}

void Metronome::resetBeatNumber() {
    m_beatNumber.store(0);
}

void Metronome::setPlaying(bool playing) {
    m_isPlaying.store(playing);
    resetBeatNumber();
}

void Metronome::start() {
    if (isPlaying())
        stop();
    m_callbacksSyncQueue.sync([this] {
        if (const std::optional<QString> error = m_output.start()) {
            log(*error);
            return;
        }
        setPlaying(true);
        m_nextBeatSampleTime = 0;
        scheduleBeats();
    });
}

void Metronome::stop() {
    setPlaying(false);
    m_output.stop();
    m_callbacksSyncQueue.async([this] { m_playerStarted = false; });
}

void Metronome::playAlert() {
    m_output.playAlert(m_alert);
}

// On the queue

void Metronome::outputFailed() {
    setPlaying(false);
    m_playerStarted = false;
    if (const auto heard = delegate().lock())
        heard->metronomeHasStopped(*this);
}

void Metronome::scheduleBeats() {
    if (!isPlaying())
        return;
    while (m_beatsScheduled < m_beatsToScheduleAhead.load())
        scheduleNextBeat();
}

void Metronome::scheduleNextBeat() {
    const Rhythm rhythm = rhythmSelection();
    const qint64 number = beatNumber();
    const qint64 sampleTime = checkedTruncate(m_nextBeatSampleTime);
    const Click click = clickFor(rhythm, number);
    m_output.schedule(click.sound, sampleTime);
    if (!m_playerStarted) {
        m_output.play();
        m_playerStarted = true;
    }
    scheduleTick(sampleTime, click.beat);
    m_beatsScheduled = checkedAdd(m_beatsScheduled, 1);
    // A reset that came in between stays: the next click opens a new group.
    qint64 expected = number;
    m_beatNumber.compare_exchange_strong(expected, checkedAdd(number, 1));
    m_nextBeatSampleTime += m_bufferSampleRate * secondsPerClick(tempoBPM(), rhythm);
}

Metronome::Click Metronome::clickFor(Rhythm rhythm, qint64 beatNumber) const {
    const int position = static_cast<int>(beatNumber % clicksPerGroup(rhythm));
    const bool high = accent(rhythm) == Accent::always || (accent(rhythm) == Accent::firstOfGroup && position == 0);
    const MetronomeBeat beat = isSubdivision(rhythm) ? MetronomeBeat{.beat = 1, .subdivision = position + 1}
                                                     : MetronomeBeat{.beat = position + 1, .subdivision = 1};
    return {high ? m_soundBufferHigh : m_soundBufferLow, beat};
}

void Metronome::scheduleTick(qint64 sampleTime, MetronomeBeat beat) {
    const std::weak_ptr<MetronomeDelegate> listener = delegate();
    if (listener.expired())
        return;
    const qint64 deadline = checkedAdd(m_output.hostTime(sampleTime).count(), m_output.latency().count());
    m_callbacksSyncQueue.asyncAt(std::chrono::nanoseconds(deadline), [this, listener, beat] {
        if (!isPlaying())
            return;
        if (const std::shared_ptr<MetronomeDelegate> present = listener.lock())
            present->metronomeTicking(*this, beat);
    });
}

void Metronome::beatFinished() {
    m_beatsScheduled = checkedSubtract(m_beatsScheduled, 1);
    scheduleBeats();
}

} // namespace tamsel
