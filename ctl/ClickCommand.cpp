#include "ctl/ClickCommand.h"

#include "metronome/Metronome.h"
#include "metronome/OfflineOutput.h"
#include "metronome/Rhythm.h"
#include "metronome/SystemAudioSession.h"
#include "metronome/WavFile.h"

#include <QCommandLineParser>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <optional>

namespace tamsel::ctl {

namespace {

constexpr double slowestRate = 8000;
constexpr double fastestRate = 192000;
constexpr qint64 blockFrames = 65536;

QString rhythmNames() {
    QStringList names;
    for (const Rhythm rhythm : allRhythms())
        names += caseName(rhythm);
    return names.join(QStringLiteral(", "));
}

// A plain decimal number in the range; nothing otherwise.
std::optional<double> number(const QString& text, double smallest, double largest) {
    bool isNumber = false;
    const double value = text.toDouble(&isNumber);
    if (!isNumber || !(value >= smallest && value <= largest))
        return std::nullopt;
    return value;
}

struct ClickTrack {
    double tempo = 0;
    Rhythm rhythm = Rhythm::zeroFour;
    qint64 frames = 0;
    double sampleRate = 0;
    QString path;
};

bool write(const ClickTrack& track, QString& error) {
    OfflineOutput output(track.sampleRate);
    SystemAudioSession session;
    Metronome metronome(output, session);
    metronome.setRhythmSelection(track.rhythm);
    // The metronome takes no tempo that begins with the same whole number as the present one, so it is moved away
    // first: 120.5 is not 120 on a click track.
    metronome.setTempo(track.tempo < 2 * Metronome::slowestBPM ? Metronome::fastestBPM : Metronome::slowestBPM);
    metronome.setTempo(track.tempo);
    metronome.start();

    WavFile file(track.path, track.sampleRate, track.frames);
    for (qint64 made = 0; made < track.frames; made += blockFrames)
        file.write(output.render(std::min(blockFrames, track.frames - made)));
    metronome.stop();
    const bool isWritten = file.finish();
    error = file.errorText();
    return isWritten;
}

} // namespace

ExitCode click(const QStringList& arguments) {
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Writes what the metronome would play, sample for sample, as a WAV file (16 bit, stereo)."));
    const QCommandLineOption help({QStringLiteral("h"), QStringLiteral("help")}, QStringLiteral("Show this help."));
    const QCommandLineOption tempo(QStringLiteral("tempo"), QStringLiteral("Beats per minute, 1 to 500."),
                                   QStringLiteral("bpm"), QStringLiteral("120"));
    const QCommandLineOption rhythm(QStringLiteral("rhythm"), QStringLiteral("One of: %1.").arg(rhythmNames()),
                                    QStringLiteral("name"), QStringLiteral("zeroFour"));
    const QCommandLineOption seconds(QStringLiteral("seconds"), QStringLiteral("How long."), QStringLiteral("seconds"),
                                     QStringLiteral("60"));
    const QCommandLineOption rate(QStringLiteral("rate"), QStringLiteral("Frames per second, 8000 to 192000."),
                                  QStringLiteral("rate"), QStringLiteral("44100"));
    const QCommandLineOption path(QStringLiteral("output"), QStringLiteral("The file to write."),
                                  QStringLiteral("file"));
    parser.addOptions({help, tempo, rhythm, seconds, rate, path});
    if (!parser.parse(QStringList(QStringLiteral("tamselctl click")) + arguments))
        return fail(exitUsage, parser.errorText());
    if (parser.isSet(help)) {
        std::fputs(parser.helpText().toUtf8().constData(), stdout);
        return exitDone;
    }
    if (!parser.positionalArguments().isEmpty())
        return fail(exitUsage, QStringLiteral("unexpected argument: %1").arg(parser.positionalArguments().first()));

    const auto bad = [&parser](const QCommandLineOption& option, const QString& expected) {
        return fail(exitUsage,
                    QStringLiteral("--%1 %2: expected %3").arg(option.names().first(), parser.value(option), expected));
    };
    const auto tempoValue = number(parser.value(tempo), Metronome::slowestBPM, Metronome::fastestBPM);
    if (!tempoValue)
        return bad(tempo, QStringLiteral("beats per minute from 1 to 500"));
    const auto rhythmValue = rhythmFromCaseName(parser.value(rhythm));
    if (!rhythmValue)
        return bad(rhythm, QStringLiteral("one of %1").arg(rhythmNames()));
    const auto rateValue = number(parser.value(rate), slowestRate, fastestRate);
    if (!rateValue || *rateValue != std::trunc(*rateValue))
        return bad(rate, QStringLiteral("whole frames per second from 8000 to 192000"));
    const double longest = static_cast<double>(WavFile::maximumFrames) / *rateValue;
    const auto secondsValue = number(parser.value(seconds), 0, longest);
    if (!secondsValue)
        return bad(seconds, QStringLiteral("seconds from 0 to %1").arg(std::floor(longest), 0, 'f', 0));
    if (parser.value(path).isEmpty())
        return fail(exitUsage, QStringLiteral("--output is missing: the file to write"));

    const ClickTrack track{*tempoValue, *rhythmValue, static_cast<qint64>(*secondsValue * *rateValue), *rateValue,
                           parser.value(path)};
    QString error;
    if (!write(track, error))
        return fail(exitRefused, QStringLiteral("cannot write %1: %2").arg(track.path, error));
    return exitDone;
}

} // namespace tamsel::ctl
