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
#include <optional>

namespace tamsel {

namespace {

const QString itemName = QStringLiteral("C Major Scales");
constexpr int patienceMilliseconds = 10'000;
constexpr int stillMilliseconds = 40;   // two frames and a bit
constexpr int settleMilliseconds = 400; // longer than any transition of a screen

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
        if (stage == QStringLiteral("restart")) {
            findPracticeAgain();
        } else if (stage == QStringLiteral("tools")) {
            useTheTools();
            tell(QStringLiteral("worked the six tools, the settings sheet, the notes and the item's history"));
        } else if (stage == QStringLiteral("list")) {
            workTheList();
        } else if (stage == QStringLiteral("history")) {
            showHistory();
        } else if (stage == QStringLiteral("data")) {
            exchangeData();
        } else {
            practise();
        }
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
    press(Qt::Key_Space);
    expect(QStringLiteral("Space stops the metronome"), !metronome.isPlaying());
    const std::vector<qint64> onsets = m_audio.onsets();
    expect(QStringLiteral("clicks were heard"), onsets.size() >= 3);
    for (std::size_t i = 1; i < onsets.size(); ++i)
        expect(QStringLiteral("clicks are 22050 frames apart"), onsets[i] - onsets[i - 1] == 22050);
    expect(QStringLiteral("the clicks are written"), m_audio.write(m_folder + QStringLiteral("/clicks.wav")));
    tell(QStringLiteral("played %1 clicks at 120 BPM, each 22050 frames after the one before: clicks.wav")
             .arg(onsets.size()));

    tap(QStringLiteral("timer_button"));
    tap(QStringLiteral("timer_save"));
    waitUntil(QStringLiteral("the session shows under the tools"),
              [&] { return lookFor(QStringLiteral("recent_session_0")) != nullptr; });
    expect(QStringLiteral("the history has the session"), m_app.singletons().history.events().size() == 1);
    picture(QStringLiteral("practice-saved"));
    tell(QStringLiteral("ran a timer in accelerated time and saved: %1").arg(practice.todayText()));

    press(Qt::Key_Escape);
    waitUntil(QStringLiteral("today's log shows the session"),
              [&] { return lookFor(QStringLiteral("daily_log_row_0")) != nullptr; });
    picture(QStringLiteral("list-log"));

    tap(QStringLiteral("daily_log_row_0"));
    waitUntil(QStringLiteral("the row opens its item"), [&] { return navigation.practiceViewModel() != nullptr; });
    tap(QStringLiteral("stopwatch_button"));
    waitUntil(QStringLiteral("the stopwatch counts"),
              [&] { return navigation.practiceViewModel()->stopwatchSeconds().value_or(0) >= 10; });
    tell(QStringLiteral("ended the app while a stopwatch ran"));
}

void Tour::findPracticeAgain() {
    const auto& log = m_app.singletons().dailyLog.practiceSessions();
    waitUntil(QStringLiteral("today's log shows the session after a restart"),
              [&] { return lookFor(QStringLiteral("daily_log_row_0")) != nullptr; });
    expect(QStringLiteral("the log has the item's session"), log.size() == 2 && log.first().exercise.name == itemName);
    expect(QStringLiteral("what ran when the app ended was saved"),
           log.last().type == SessionType::stopwatch && log.last().seconds >= 10);
    expect(QStringLiteral("the history has its event"),
           m_app.singletons().history.events().size() == 1 &&
               m_app.singletons().history.events().first().practiceTime >= 1);
    picture(QStringLiteral("restarted"));
    tap(QStringLiteral("daily_log_row_0"));
    const auto& navigation = *m_app.content().tabViewModel()->practiceNavigationStack();
    waitUntil(QStringLiteral("the row opens its item"), [&] {
        auto* const practice = const_cast<PracticeNavigationStackViewModel&>(navigation).practiceViewModel();
        return practice != nullptr && practice->metronomeViewModel()->tempo() == 120;
    });
    resize(360, 640);
    picture(QStringLiteral("practice-small"));
    resize(1180, 820);
    picture(QStringLiteral("practice-wide"));
    press(Qt::Key_Escape);
    picture(QStringLiteral("list-wide"));
    resize(360, 640);
    picture(QStringLiteral("list-small"));
    m_appearance.setTextScale(2);
    picture(QStringLiteral("list-large-text"));
    m_appearance.setTextScale(1);
    resize(390, 844);
    tap(QStringLiteral("history_tab"));
    picture(QStringLiteral("history"));
    tap(QStringLiteral("thanks_tab"));
    picture(QStringLiteral("thanks"));
    writeDocuments();
    tell(QStringLiteral("started again and found both sessions in today's log, at the saved tempo"));
}

QQuickItem* Tour::lookFor(const QString& identifier) const {
    return lookBelow(*m_window.contentItem(), identifier);
}

QQuickItem& Tour::find(const QString& identifier) {
    waitUntil(QStringLiteral("“%1” is there").arg(identifier), [&] { return lookFor(identifier) != nullptr; });
    return *lookFor(identifier);
}

void Tour::tap(const QString& identifier) {
    find(identifier);
    const auto middle = [&]() -> std::optional<QPointF> {
        const QQuickItem* const item = lookFor(identifier);
        return item == nullptr ? std::nullopt
                               : std::optional(item->mapToScene(QPointF(item->width() / 2, item->height() / 2)));
    };
    // Nobody taps on what is still moving: it would be elsewhere when the finger is lifted, or below something else.
    QPointF position;
    waitUntil(QStringLiteral("“%1” stands still").arg(identifier), [&] {
        const auto before = middle();
        watch(stillMilliseconds);
        position = middle().value_or(QPointF());
        return before == position;
    });
    const auto send = [&](QEvent::Type type, Qt::MouseButtons buttons) {
        QMouseEvent event(type, position, m_window.mapToGlobal(position), Qt::LeftButton, buttons, Qt::NoModifier,
                          QPointingDevice::primaryPointingDevice());
        QCoreApplication::sendEvent(&m_window, &event);
    };
    send(QEvent::MouseButtonPress, Qt::LeftButton);
    send(QEvent::MouseButtonRelease, Qt::NoButton);
    watch(0);
}

void Tour::press(int key, const QString& text) {
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, key, Qt::NoModifier, text);
        QCoreApplication::sendEvent(&m_window, &event);
    }
    watch(0);
}

void Tour::type(const QString& text, int finalKey) {
    for (const QChar character : text)
        press(Qt::Key_unknown, QString(character));
    if (finalKey != 0)
        press(finalKey);
}

void Tour::watch(int milliseconds) {
    QEventLoop loop;
    QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
    loop.exec();
}

void Tour::waitUntil(const QString& what, const std::function<bool()>& condition) {
    const QDeadlineTimer deadline(patienceMilliseconds);
    while (!condition() && !deadline.hasExpired())
        watch(5);
    expect(what, condition());
}

void Tour::expect(const QString& what, bool holds) {
    if (holds)
        return;
    tell(QStringLiteral("FAILED: ") + what);
    throw Failed();
}

void Tour::tell(const QString& line) {
    std::printf("tour: %s\n", line.toUtf8().constData());
    std::fflush(stdout);
}

void Tour::resize(int width, int height) {
    m_window.resize(width, height);
    watch(settleMilliseconds);
}

void Tour::picture(const QString& name) {
    watch(settleMilliseconds);
    for (const auto scheme : {Appearance::Scheme::Light, Appearance::Scheme::Dark}) {
        m_appearance.setScheme(scheme);
        watch(settleMilliseconds / 4);
        saveGrab(name + (scheme == Appearance::Scheme::Dark ? QStringLiteral("-dark") : QStringLiteral("-light")));
    }
    m_appearance.setScheme(Appearance::Scheme::Light);
}

void Tour::saveGrab(const QString& name) {
    const QString path = m_folder + QLatin1Char('/') + name + QStringLiteral(".png");
    if (!m_window.grabWindow().save(path))
        expect(QStringLiteral("the picture %1 is written").arg(path), false);
}

void Tour::writeDocuments() {
    const QString folder = m_folder + QStringLiteral("/documents");
    QDir().mkpath(folder);
    const auto values = m_app.singletons().userDefaults.dictionaryRepresentation();
    for (auto value = values.cbegin(); value != values.cend(); ++value) {
        const auto* const document = std::get_if<QByteArray>(&value->value);
        if (document == nullptr)
            continue;
        QFile file(folder + QLatin1Char('/') + value.key() + QStringLiteral(".json"));
        expect(QStringLiteral("the document %1 is written").arg(value.key()),
               file.open(QIODevice::WriteOnly) && file.write(*document) == document->size());
    }
    tell(QStringLiteral("wrote the stored documents to documents"));
}

} // namespace tamsel
