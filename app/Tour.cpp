#include "app/Tour.h"

#include "ui/Appearance.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QEventLoop>
#include <QFile>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointingDevice>
#include <QTimer>

#include <cstdio>

namespace tamsel {

namespace {

const QString itemName = QStringLiteral("C Major Scales");
constexpr int patienceMilliseconds = 10'000;
constexpr int settleMilliseconds = 400; // longer than any transition of a screen

void tell(const QString& line) {
    std::printf("tour: %s\n", line.toUtf8().constData());
    std::fflush(stdout);
}

QQuickItem* lookBelow(QQuickItem& item, const QString& identifier) {
    if (item.objectName() == identifier && item.isVisible() && item.isEnabled())
        return &item;
    for (QQuickItem* const child : item.childItems()) {
        if (QQuickItem* const found = child->isVisible() ? lookBelow(*child, identifier) : nullptr)
            return found;
    }
    return nullptr;
}

} // namespace

Tour::Tour(QQuickWindow& window, Appearance& appearance, App& app, TourAudio& audio, const QString& folder)
    : m_window(window), m_appearance(appearance), m_app(app), m_audio(audio), m_folder(folder) {}

bool Tour::take(const QString& stage) {
    try {
        resize(390, 844);
        if (stage == QStringLiteral("restart"))
            findPracticeAgain();
        else
            practise();
        return true;
    } catch (const Failed&) {
        saveGrab(QStringLiteral("failed"));
        return false;
    }
}

void Tour::practise() {
    auto& navigation = *m_app.content().tabViewModel()->practiceNavigationStack();
    waitUntil(QStringLiteral("the first start opens its one item"),
              [&] { return lookFor(QStringLiteral("play pause button")) && navigation.practiceViewModel(); });
    press(Qt::Key_Escape);
    waitUntil(QStringLiteral("Escape leads back to the list"), [&] { return !navigation.practiceViewModel(); });
    picture(QStringLiteral("list-first"));

    tap(QStringLiteral("add_item_button"));
    find(QStringLiteral("alert_text_field"));
    watch(settleMilliseconds);
    type(itemName, 0);
    picture(QStringLiteral("list-add"));
    press(Qt::Key_Return);
    waitUntil(QStringLiteral("the new item opens"), [&] {
        return navigation.practiceViewModel() && navigation.practiceViewModel()->exerciseName() == itemName;
    });
    PracticeViewModel& practice = *navigation.practiceViewModel();
    MetronomeViewModel& metronome = *practice.metronomeViewModel();
    picture(QStringLiteral("practice-idle"));
    tell(QStringLiteral("added “%1”, which opened").arg(itemName));

    for (int i = 0; i < 6; ++i)
        press(Qt::Key_Up);
    for (int i = 0; i < 6; ++i)
        tap(QStringLiteral("plus button"));
    expect(QStringLiteral("six taps and six keys make 72 beats per minute"), metronome.tempo() == 72);
    metronome.setTempo(120);
    m_audio.beginTimeline();
    tap(QStringLiteral("play pause button"));
    waitUntil(QStringLiteral("the bell flashes with the click"), [&] { return metronome.beatIndicatorIndex() >= 0; });

    tap(QStringLiteral("timer_button"));
    find(QStringLiteral("5 minute timer"));
    picture(QStringLiteral("practice-timer-menu"));
    tap(QStringLiteral("5 minute timer"));
    waitUntil(QStringLiteral("the timer counts down"),
              [&] { return practice.timerSecondsRemaining().value_or(300) < 300 - 65; });
    picture(QStringLiteral("practice-playing"));
