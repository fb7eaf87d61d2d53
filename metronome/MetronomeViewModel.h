#pragma once

#include "metronome/Metronome.h"
#include "metronome/MetronomeBeat.h"
#include "metronome/MetronomeDelegate.h"
#include "metronome/Rhythm.h"
#include "model/ExerciseSettings.h"
#include "platform/Clock.h"
#include "platform/Date.h"
#include "platform/Queue.h"

#include <QList>
#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include <memory>
#include <optional>

namespace tamsel {

// The screen's side of the one shared metronome: the whole-number tempo that the user sees, the buttons that change it,
// and the visual bell. Main thread only; clicks arrive on the metronome's queue and hop over.
class MetronomeViewModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the screen model that owns it")

    Q_PROPERTY(bool compactDisplay READ compactDisplay CONSTANT FINAL)
    Q_PROPERTY(qint64 tempo READ tempo NOTIFY tempoChanged FINAL)
    Q_PROPERTY(QString tempoTextFieldText READ tempoTextFieldText WRITE setTempoTextFieldText NOTIFY
                   tempoTextFieldTextChanged FINAL)
    Q_PROPERTY(bool tempoTextFieldFocused READ tempoTextFieldFocused WRITE setTempoTextFieldFocused NOTIFY
                   tempoTextFieldFocusedChanged FINAL)
    Q_PROPERTY(bool isVisualBellOn READ isVisualBellOn NOTIFY isVisualBellOnChanged FINAL)
    Q_PROPERTY(bool isPlaying READ isPlaying NOTIFY isPlayingChanged FINAL)
    Q_PROPERTY(int rhythmIndex READ rhythmIndex NOTIFY rhythmSelectionChanged FINAL)
    Q_PROPERTY(int beatIndicatorCount READ beatIndicatorCount NOTIFY rhythmSelectionChanged FINAL)
    Q_PROPERTY(int beatIndicatorIndex READ beatIndicatorIndex NOTIFY beatIndicatorIndexChanged FINAL)
    Q_PROPERTY(bool canStepUp READ canStepUp NOTIFY bookmarkStepsChanged FINAL)
    Q_PROPERTY(bool canStepDown READ canStepDown NOTIFY bookmarkStepsChanged FINAL)

public:
    // The text field that has the keyboard.
    enum class Focus { tempoTextField };

    // Beats per minute that the buttons stay within.
    static constexpr qint64 slowestTempo = 1;
    static constexpr qint64 fastestTempo = 500;

    // Shows the settings' tempo, or 120 without settings, and sets the metronome to plain clicks. The metronome keeps
    // its own tempo until `setTempo` is called.
    MetronomeViewModel(bool compactDisplay, std::optional<ExerciseSettings> exerciseSettings, Metronome& metronome,
                       const Clock& clock, Queue& mainQueue);
    ~MetronomeViewModel() override;

    bool compactDisplay() const { return m_compactDisplay; }
    qint64 tempo() const { return m_tempo; }
    const QString& tempoTextFieldText() const { return m_tempoTextFieldText; }
    bool tempoTextFieldFocused() const { return m_focus == Focus::tempoTextField; }
    bool isVisualBellOn() const { return m_isVisualBellOn; }
    bool isPlaying() const { return m_metronome.isPlaying(); }
    Rhythm rhythmSelection() const { return m_rhythmSelection; }
    int rhythmIndex() const { return static_cast<int>(m_rhythmSelection); }
    // Clicks in the group that the accent opens: the beat's subdivisions or the bar's beats.
    int beatIndicatorCount() const;
    // Which click of the group sounded last, from 0; -1 while nothing plays.
    int beatIndicatorIndex() const { return m_beatIndicatorIndex; }
    bool canStepUp() const { return nextBookmark() != m_tempo; }
    bool canStepDown() const { return previousBookmark() != m_tempo; }
    const std::optional<ExerciseSettings>& exerciseSettings() const { return m_exerciseSettings; }

    // Publishes the tempo and sets the metronome to it; the metronome clamps to 1...500, the shown value stays.
    void setTempo(qint64 beatsPerMinute);
    void setRhythmSelection(Rhythm rhythm);
    void setExerciseSettings(std::optional<ExerciseSettings> settings);
    // Starts or stops the metronome. A failing start leaves it stopped.
    void setIsPlaying(bool play);
    // Makes this controller the one that hears the metronome's clicks, and lets it show the rhythm that they have.
    void takeCharge();

    void setTempoTextFieldText(const QString& text);
    // Gaining the focus empties the field; losing it takes a number over and anything else back.
    void setTempoTextFieldFocused(bool focused);

    Q_INVOKABLE void plusTapped();
    Q_INVOKABLE void plusLongPressed();
    Q_INVOKABLE void minusTapped();
    Q_INVOKABLE void minusLongPressed();
    Q_INVOKABLE void upTapped();
    Q_INVOKABLE void downTapped();
    Q_INVOKABLE void playPauseTapped();
    Q_INVOKABLE void tapTempoTapped();

Q_SIGNALS:
    void tempoChanged();
    void tempoTextFieldTextChanged();
    void tempoTextFieldFocusedChanged();
    void isVisualBellOnChanged();
    void isPlayingChanged();
    void rhythmSelectionChanged();
    void beatIndicatorIndexChanged();
    void bookmarkStepsChanged();
    void exerciseSettingsChanged();

private:
    // Receives the clicks on the metronome's queue for as long as the controller lives.
    class TickReceiver;

    bool snapsToStandardTempi() const { return m_exerciseSettings && m_exerciseSettings->snapToStandardTempi; }
    // The bookmark that a step up or down leads to, or the current tempo where there is none. Stored order counts.
    qint64 nextBookmark() const;
    qint64 previousBookmark() const;
    void clickHeard(MetronomeBeat beat);
    // Tells the screen; one that is not playing does not stay lit.
    void isPlayingMayHaveChanged();
    void setVisualBellOn(bool on);
    void setBeatIndicatorIndex(int index);

    const bool m_compactDisplay;
    Metronome& m_metronome;
    const Clock& m_clock;
    bool m_isVisualBellOn = false;
    std::optional<Focus> m_focus;
    qint64 m_tempo;
    Rhythm m_rhythmSelection = Rhythm::zeroFour;
    std::optional<ExerciseSettings> m_exerciseSettings;
    QList<Date> m_tapTempoDates;
    QString m_tempoTextFieldText;
    int m_beatIndicatorIndex = -1;
    std::shared_ptr<TickReceiver> m_tickReceiver;
};

} // namespace tamsel
