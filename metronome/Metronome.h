#pragma once

#include "metronome/AudioOutput.h"
#include "metronome/AudioSession.h"
#include "metronome/MetronomeBeat.h"
#include "metronome/MetronomeDelegate.h"
#include "metronome/Rhythm.h"
#include "metronome/SoundBuffer.h"
#include "platform/SerialQueue.h"

#include <atomic>
#include <memory>
#include <mutex>

namespace tamsel {

// The click engine: keeps a fixed number of future clicks queued on the output at exact samples, and tells its delegate
// of each click at the moment it is heard. One for the whole program.
//
// Members are called on the main thread unless they say otherwise; the clicks are scheduled and the delegate is called
// on a queue of its own, labelled "Metronome".
class Metronome {
public:
    // The slowest and the fastest tempo, in beats per minute.
    static constexpr double slowestBPM = 1.0;
    static constexpr double fastestBPM = 500.0;

    // Idle, at 120 BPM, without accents. A session that cannot be set up is logged as "ERROR" and changes nothing else.
    Metronome(AudioOutput& output, AudioSession& session);
    ~Metronome();

    Metronome(const Metronome&) = delete;
    Metronome& operator=(const Metronome&) = delete;

    // Any thread.
    bool isPlaying() const { return m_isPlaying.load(); }
    double tempoBPM() const { return m_tempoBPM.load(); }
    Rhythm rhythmSelection() const { return m_rhythmSelection.load(); }
    qint64 beatNumber() const { return m_beatNumber.load(); }
    // How many clicks may wait on the output at once. Those that it has finished with, because they begin so soon that
    // they can only be played, do not count.
    qint64 beatsToScheduleAhead() const { return m_beatsToScheduleAhead.load(); }

    // Clamps to slowestBPM...fastestBPM. Changes nothing, deliberately, when the whole numbers of beats per minute are
    // the same. Takes effect with the next click that is queued, which opens a new group.
    void setTempo(double bpm);

    // The next click that is queued opens a new group. Deliberately leaves the number of clicks queued ahead as the
    // last tempo change made it.
    void setRhythmSelection(Rhythm rhythm);

    // Held weakly; an empty pointer for none.
    void setDelegate(std::weak_ptr<MetronomeDelegate> delegate);

    // The next click that is queued opens a new group.
    void resetBeatNumber();

    // Plays from the first click of a group. Where the output cannot start, logs its error and stays stopped. A
    // metronome that plays already starts anew.
    void start();

    // Nothing sounds and no tick is delivered after it returns, until the next start.
    void stop();

    // Plays the alert sound "BEEP!" once, now, whether or not the metronome plays.
    void playAlert();

private:
    struct Click {
        const SoundBuffer& sound;
        MetronomeBeat beat;
    };

    void setUpSession(AudioSession& session);
    void setPlaying(bool playing);

    std::weak_ptr<MetronomeDelegate> delegate() const;

    // On the queue.
    void outputFailed();
    void scheduleBeats();
    void scheduleNextBeat();
    void scheduleTick(qint64 sampleTime, MetronomeBeat beat);
    void beatFinished();
    Click clickFor(Rhythm rhythm, qint64 beatNumber) const;

    std::atomic<bool> m_isPlaying = false;
    std::atomic<Rhythm> m_rhythmSelection = Rhythm::zeroFour;
    std::atomic<double> m_tempoBPM = 0;
    mutable std::mutex m_delegateMutex;
    std::weak_ptr<MetronomeDelegate> m_delegate;

    AudioOutput& m_output;
    const AudioFormat m_format;
    const SoundBuffer m_soundBufferHigh;
    const SoundBuffer m_soundBufferLow;
    const SoundBuffer m_alert;
    const double m_bufferSampleRate;

    std::atomic<qint64> m_beatNumber = 0;
    std::atomic<qint64> m_beatsToScheduleAhead = 0;
    // The rest belongs to the queue.
    double m_nextBeatSampleTime = 0; // not a whole number, so that intervals with a fraction do not drift
    qint64 m_beatsScheduled = 0;
    bool m_playerStarted = false;

    // Last, so that its thread has ended before anything it uses is gone.
    SerialQueue m_callbacksSyncQueue;
};

} // namespace tamsel
