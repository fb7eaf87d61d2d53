#include "tests/ctl/Tamselctl.h"

#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QtEndian>

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <vector>

namespace tamsel {
namespace {

using test::Ended;
using test::tamselctl;

template <class T>
T littleEndian(const QByteArray& bytes, qsizetype at) {
    return qFromLittleEndian<T>(bytes.constData() + at);
}

constexpr qsizetype headingBytes = 44;

class ClickCommandTest : public testing::Test {
protected:
    QByteArray wav(const QStringList& arguments) {
        const Ended ended =
            tamselctl(QStringList({QStringLiteral("click"), QStringLiteral("--output"), path}) + arguments);
        EXPECT_EQ(ended.exitCode, 0) << ended.errors.toStdString();
        EXPECT_EQ(ended.output, QByteArray()) << "standard output is not for log lines";
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    // Frames at which the left channel begins to sound after silence.
    static std::vector<qint64> onsets(const QByteArray& wav) {
        std::vector<qint64> found;
        bool wasLoud = false;
        qint64 quietFrames = 0;
        for (qsizetype at = headingBytes; at < wav.size(); at += 4) {
            const bool isLoud = littleEndian<qint16>(wav, at) != 0;
            quietFrames = isLoud ? 0 : quietFrames + 1;
            if (isLoud && !wasLoud)
                found.push_back((at - headingBytes) / 4);
            wasLoud = isLoud || (wasLoud && quietFrames < 100);
        }
        return found;
    }

    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("clicks.wav"));
};

TEST_F(ClickCommandTest, TheClickTrackKeepsTheSchedule) {
    struct Case {
        const char* tempo;
        const char* rhythm;
        int rate;
        double interval; // frames
    };
    for (const Case& test :
         {Case{"132.5", "triplets", 44100, 44100 * 60 / (132.5 * 3)},
          Case{"120.5", "zeroFour", 44100, 44100 * 60 / 120.5}, Case{"1.5", "fourFour", 8000, 8000 * 60 / 1.5},
          Case{"133", "twoFour", 48000, 48000.0 * 60 / 133}}) {
        const QByteArray bytes = wav({QStringLiteral("--tempo"), QLatin1String(test.tempo), QStringLiteral("--rhythm"),
                                      QLatin1String(test.rhythm), QStringLiteral("--rate"), QString::number(test.rate),
                                      QStringLiteral("--seconds"), QStringLiteral("90")});
        const auto frames = static_cast<qint64>(test.rate) * 90;
        ASSERT_EQ(bytes.size(), headingBytes + frames * 4);
        const std::vector<qint64> found = onsets(bytes);
        ASSERT_EQ(static_cast<double>(found.size()), std::ceil(static_cast<double>(frames) / test.interval))
            << test.tempo;
        for (std::size_t n = 0; n < found.size(); ++n)
            ASSERT_LE(std::abs(found[n] - static_cast<qint64>(static_cast<double>(n) * test.interval)), 1) << n;
    }
}

TEST_F(ClickCommandTest, TheFileSaysWhatItIs) {
    const QByteArray bytes =
        wav({QStringLiteral("--seconds"), QStringLiteral("0.5"), QStringLiteral("--rate"), QStringLiteral("48000")});
    EXPECT_EQ(bytes.first(4), QByteArray("RIFF"));
    EXPECT_EQ(littleEndian<quint32>(bytes, 4), bytes.size() - 8);
    EXPECT_EQ(bytes.mid(8, 8), QByteArray("WAVEfmt "));
    EXPECT_EQ(littleEndian<quint16>(bytes, 20), 1) << "linear PCM";
    EXPECT_EQ(littleEndian<quint16>(bytes, 22), 2) << "channels";
    EXPECT_EQ(littleEndian<quint32>(bytes, 24), 48000U);
    EXPECT_EQ(littleEndian<quint32>(bytes, 28), 48000U * 4);
    EXPECT_EQ(littleEndian<quint16>(bytes, 34), 16) << "bits";
    EXPECT_EQ(littleEndian<quint32>(bytes, 40), 24000U * 4);
    EXPECT_EQ(littleEndian<qint16>(bytes, headingBytes), 32767) << "the click is driven into clipping";
    EXPECT_EQ(littleEndian<qint16>(bytes, headingBytes + 2), 32767) << "on both sides";
}

TEST_F(ClickCommandTest, BadWordsGetOneLineAndCodeTwo) {
    const QStringList cases[] = {
        {QStringLiteral("--tempo"), QStringLiteral("0")},
        {QStringLiteral("--tempo"), QStringLiteral("501")},
        {QStringLiteral("--tempo"), QStringLiteral("nan")},
        {QStringLiteral("--tempo"), QStringLiteral("fast")},
        {QStringLiteral("--rhythm"), QStringLiteral("waltz")},
        {QStringLiteral("--seconds"), QStringLiteral("-1")},
        {QStringLiteral("--seconds"), QStringLiteral("1e9")},
        {QStringLiteral("--rate"), QStringLiteral("44100.5")},
        {QStringLiteral("--rate"), QStringLiteral("0")},
        {QStringLiteral("--loudly")},
        {QStringLiteral("extra")},
    };
    for (const QStringList& words : cases) {
        const Ended ended = tamselctl(QStringList({QStringLiteral("click"), QStringLiteral("--output"), path}) + words);
        EXPECT_EQ(ended.exitCode, 2) << words.join(QLatin1Char(' ')).toStdString();
        EXPECT_EQ(ended.errors.count('\n'), 1) << ended.errors.toStdString();
        EXPECT_FALSE(QFileInfo::exists(path));
    }
    EXPECT_EQ(tamselctl({QStringLiteral("click")}).exitCode, 2) << "no file named";
    EXPECT_EQ(tamselctl({QStringLiteral("clack")}).exitCode, 2);
    EXPECT_EQ(tamselctl({}).exitCode, 2);
    EXPECT_EQ(tamselctl({QStringLiteral("--help")}).exitCode, 0);
}

TEST_F(ClickCommandTest, AFileThatCannotBeWrittenIsNamed) {
    const QString nowhere = folder.filePath(QStringLiteral("missing/clicks.wav"));
    const Ended ended = tamselctl({QStringLiteral("click"), QStringLiteral("--seconds"), QStringLiteral("0.1"),
                                   QStringLiteral("--output"), nowhere});
    EXPECT_EQ(ended.exitCode, 1);
    EXPECT_TRUE(ended.errors.contains(nowhere.toUtf8()));
}

} // namespace
} // namespace tamsel
