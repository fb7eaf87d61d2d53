#include "metronome/MetronomeViewModel.h"

#include "metronome/StandardTempos.h"
#include "platform/Checked.h"
#include "platform/Log.h"
#include "platform/TimeUnits.h"

#include <QPointer>

#include <algorithm>
#include <charconv>
#include <ranges>
#include <string>
#include <utility>

namespace tamsel {

namespace {

constexpr qint64 tempoWithoutSettings = 120;
constexpr qint64 longPressStep = 10;
constexpr double longestTapPauseSeconds = 3.0;
// Beyond these no hand has tapped: the clock was set between two taps.
constexpr double slowestTappedTempo = 1.0;
constexpr double fastestTappedTempo = 1'000'000.0;

// Base 10 with an optional sign and nothing else. A number too large to hold is no number.
std::optional<qint64> wholeNumber(const QString& text) {
    std::string digits = text.toStdString();
    if (digits.starts_with('+') && !digits.starts_with("+-"))
        digits.erase(0, 1);
    qint64 number = 0;
    const char* const end = digits.data() + digits.size();
    const auto result = std::from_chars(digits.data(), end, number);
    if (result.ec != std::errc() || result.ptr != end)
        return std::nullopt;
    return number;
}

// The newest interval counts twice, the one before it once; older ones not at all. Needs two taps or more.
double tappedTempo(const QList<Date>& taps) {
    const auto rate = [&taps](qsizetype last) { return secondsPerMinute / (taps.at(last) - taps.at(last - 1)); };
    const qsizetype newest = taps.size() - 1;
    if (newest < 2)
        return rate(newest);
    return (2 * rate(newest) + rate(newest - 1)) / 3;
}

} // namespace

class MetronomeViewModel::TickReceiver final : public MetronomeDelegate {
public:
    TickReceiver(MetronomeViewModel& owner, Queue& mainQueue) : m_owner(&owner), m_mainQueue(mainQueue) {}

    void metronomeTicking(Metronome&, MetronomeBeat beat) override {
        log(QStringLiteral("metronomeTicking: beat = ") + description(beat));
        m_mainQueue.async([owner = m_owner, beat] {
            if (owner)
                owner->clickHeard(beat);
        });
    }

    void metronomeHasStopped(Metronome&) override {
        m_mainQueue.async([owner = m_owner] {
            if (owner)
                owner->isPlayingMayHaveChanged();
        });
    }

private:
    // Only looked into on the main thread, where the controller lives and dies.
    const QPointer<MetronomeViewModel> m_owner;
    Queue& m_mainQueue;
};

MetronomeViewModel::MetronomeViewModel(bool compactDisplay, std::optional<ExerciseSettings> exerciseSettings,
                                       Metronome& metronome, const Clock& clock, Queue& mainQueue)
    : m_compactDisplay(compactDisplay), m_metronome(metronome), m_clock(clock),
      m_tempo(exerciseSettings ? exerciseSettings->tempo : tempoWithoutSettings),
      m_exerciseSettings(std::move(exerciseSettings)), m_tempoTextFieldText(QString::number(m_tempo)),
      m_tickReceiver(std::make_shared<TickReceiver>(*this, mainQueue)) {
    log(QStringLiteral("MetronomeViewModel.init"));
    m_metronome.setRhythmSelection(Rhythm::zeroFour);
    m_metronome.resetBeatNumber();
}

MetronomeViewModel::~MetronomeViewModel() = default;

int MetronomeViewModel::beatIndicatorCount() const {
    return clicksPerGroup(m_rhythmSelection);
}

void MetronomeViewModel::takeCharge() {
    m_metronome.setDelegate(m_tickReceiver);
    // Another controller may have chosen another rhythm meanwhile. Only shown: setting it would break off the bar.
    const Rhythm rhythm = m_metronome.rhythmSelection();
    if (std::exchange(m_rhythmSelection, rhythm) != rhythm)
        Q_EMIT rhythmSelectionChanged();
    isPlayingMayHaveChanged();
}

void MetronomeViewModel::isPlayingMayHaveChanged() {
    if (!m_metronome.isPlaying()) {
        setVisualBellOn(false);
        setBeatIndicatorIndex(-1);
    }
    Q_EMIT isPlayingChanged();
}

void MetronomeViewModel::setTempo(qint64 beatsPerMinute) {
    const bool changed = std::exchange(m_tempo, beatsPerMinute) != beatsPerMinute;
    m_metronome.setTempo(static_cast<double>(beatsPerMinute));
    setTempoTextFieldText(QString::number(beatsPerMinute));
    if (changed) {
        Q_EMIT tempoChanged();
        Q_EMIT bookmarkStepsChanged();
    }
}

void MetronomeViewModel::setRhythmSelection(Rhythm rhythm) {
    const bool changed = std::exchange(m_rhythmSelection, rhythm) != rhythm;
    m_metronome.setRhythmSelection(rhythm);
    if (changed)
        Q_EMIT rhythmSelectionChanged();
}

void MetronomeViewModel::setExerciseSettings(std::optional<ExerciseSettings> settings) {
    if (m_exerciseSettings == settings)
        return;
    m_exerciseSettings = std::move(settings);
    Q_EMIT exerciseSettingsChanged();
    Q_EMIT bookmarkStepsChanged();
}

void MetronomeViewModel::setIsPlaying(bool play) {
    if (play == m_metronome.isPlaying())
        return;
    if (play)
        m_metronome.start();
    else
        m_metronome.stop();
    isPlayingMayHaveChanged();
}

void MetronomeViewModel::plusTapped() {
    setTempo(snapsToStandardTempi() ? standardTempos::above(m_tempo) : std::min(checkedAdd(m_tempo, 1), fastestTempo));
}

void MetronomeViewModel::plusLongPressed() {
    setTempo(snapsToStandardTempi() ? standardTempos::nearest(static_cast<double>(checkedMultiply(m_tempo, 2)))
                                    : std::min(checkedAdd(m_tempo, longPressStep), fastestTempo));
}

void MetronomeViewModel::minusTapped() {
    setTempo(snapsToStandardTempi() ? standardTempos::below(m_tempo)
                                    : std::max(checkedSubtract(m_tempo, 1), slowestTempo));
}

void MetronomeViewModel::minusLongPressed() {
    setTempo(snapsToStandardTempi() ? standardTempos::nearest(static_cast<double>(m_tempo / 2))
                                    : std::max(checkedSubtract(m_tempo, longPressStep), slowestTempo));
}

void MetronomeViewModel::upTapped() {
    setTempo(nextBookmark());
}

void MetronomeViewModel::downTapped() {
    setTempo(previousBookmark());
}

qint64 MetronomeViewModel::nextBookmark() const {
    if (!m_exerciseSettings)
        return m_tempo;
    const QList<qint64>& bookmarks = m_exerciseSettings->bookmarks;
    const auto found = std::ranges::find_if(bookmarks, [this](qint64 bookmark) { return bookmark > m_tempo; });
    return found == bookmarks.end() ? m_tempo : *found;
}

qint64 MetronomeViewModel::previousBookmark() const {
    if (!m_exerciseSettings)
        return m_tempo;
    const auto fromTheEnd = std::views::reverse(m_exerciseSettings->bookmarks);
    const auto found = std::ranges::find_if(fromTheEnd, [this](qint64 bookmark) { return bookmark < m_tempo; });
    return found == fromTheEnd.end() ? m_tempo : *found;
}

void MetronomeViewModel::playPauseTapped() {
    setIsPlaying(!m_metronome.isPlaying());
}

void MetronomeViewModel::tapTempoTapped() {
    const Date now = m_clock.now();
    if (!m_tapTempoDates.isEmpty() && std::abs(now - m_tapTempoDates.last()) > longestTapPauseSeconds)
        m_tapTempoDates.clear();
    m_tapTempoDates += now;
    if (m_tapTempoDates.size() < 2)
        return;
    const double estimate = tappedTempo(m_tapTempoDates);
    if (!(estimate >= slowestTappedTempo && estimate <= fastestTappedTempo))
        return;
    setTempo(snapsToStandardTempi() ? standardTempos::nearest(estimate) : checkedTruncate(estimate));
}

void MetronomeViewModel::setTempoTextFieldText(const QString& text) {
    if (m_tempoTextFieldText == text)
        return;
    m_tempoTextFieldText = text;
    Q_EMIT tempoTextFieldTextChanged();
}

void MetronomeViewModel::setTempoTextFieldFocused(bool focused) {
    if (focused == tempoTextFieldFocused())
        return;
    m_focus = focused ? std::optional(Focus::tempoTextField) : std::nullopt;
    Q_EMIT tempoTextFieldFocusedChanged();
    if (focused) {
        setTempoTextFieldText(QString());
        return;
    }
    if (const auto typed = wholeNumber(m_tempoTextFieldText))
        setTempo(std::clamp(*typed, slowestTempo, fastestTempo));
    else
        setTempoTextFieldText(QString::number(m_tempo));
}

void MetronomeViewModel::clickHeard(MetronomeBeat beat) {
    if (!m_metronome.isPlaying())
        return; // stopped while the click was on its way to this thread: the screen stays dark
    setVisualBellOn(!m_isVisualBellOn);
    // One of the two counts through the group; the other stays 1.
    setBeatIndicatorIndex(static_cast<int>(std::max(beat.beat, beat.subdivision) - 1));
}

void MetronomeViewModel::setVisualBellOn(bool on) {
    if (std::exchange(m_isVisualBellOn, on) != on)
        Q_EMIT isVisualBellOnChanged();
}

void MetronomeViewModel::setBeatIndicatorIndex(int index) {
    if (std::exchange(m_beatIndicatorIndex, index) != index)
        Q_EMIT beatIndicatorIndexChanged();
}

} // namespace tamsel
