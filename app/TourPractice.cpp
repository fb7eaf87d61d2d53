#include "app/Tour.h"
#include "ui/Appearance.h"

#include <QKeyEvent>

// The part of the tour that works the tools of the practice screen.
namespace tamsel {

void Tour::useTheTools() {
    waitUntil(QStringLiteral("today's log shows the item"),
              [&] { return lookFor(QStringLiteral("daily_log_row_0")) != nullptr; });
    tap(QStringLiteral("daily_log_row_0"));
    auto& navigation = *m_app.content().tabViewModel()->practiceNavigationStack();
    waitUntil(QStringLiteral("the row opens its item"), [&] { return navigation.practiceViewModel() != nullptr; });
    PracticeViewModel& practice = *navigation.practiceViewModel();
    MetronomeViewModel& metronome = *practice.metronomeViewModel();
    picture(QStringLiteral("tools-none"));

    // High enough for the whole sheet.
    resize(390, 1500);
    tap(QStringLiteral("settings_button"));
    for (const char* const tool :
         {"thumbs_up_counter", "thumbs_down_counter", "quick_notes", "beat_patterns", "tap_tempo", "bookmarked_tempi"})
        tap(QString::fromLatin1(tool));
    expect(QStringLiteral("the switches bring six tools"), practice.toolsGrid().numberOfOptionalToolsEnabled == 6);
    resize(390, 844);
    picture(QStringLiteral("settings"));
    tap(QStringLiteral("done_button"));
    picture(QStringLiteral("tools-all"));

    tap(QStringLiteral("thumbs_up_counter"));
    tap(QStringLiteral("thumbs_up_counter"));
    expect(QStringLiteral("two taps count two"), practice.thumbsUpCount() == 2);
    practice.toolsGrid().thumbsUp->onCountChanged(99);
    tap(QStringLiteral("thumbs_up_counter"));
    practice.toolsGrid().thumbsDown->onCountChanged(1234);
    tap(QStringLiteral("timer_button"));
    tap(QStringLiteral("5 minute timer"));
    picture(QStringLiteral("tools-timer-running"));
    tap(QStringLiteral("timer_pause_button"));
    picture(QStringLiteral("tools-timer-paused"));
    practice.cancelTimer();
    tap(QStringLiteral("stopwatch_button"));
    picture(QStringLiteral("tools-stopwatch-running"));
    practice.cancelStopwatch();

    for (int i = 0; i < 10; ++i) {
        metronome.setTempo(60 + 8 * i);
        tap(QStringLiteral("tempo_bookmarks_button"));
    }
    expect(QStringLiteral("there are ten bookmarks"), practice.exerciseSettings().bookmarks.size() == 10);
    expect(QStringLiteral("another tempo clears the counters"),
           practice.thumbsUpCount() == 0 && practice.thumbsDownCount() == 0);
    find(QStringLiteral("tempo_bookmarks_button")).forceActiveFocus(Qt::TabFocusReason);
    press(Qt::Key_Menu);
    find(QStringLiteral("bookmark_9"));
    picture(QStringLiteral("tools-bookmarks"));
    tap(QStringLiteral("bookmark_0"));
    expect(QStringLiteral("a bookmark sets its tempo"), metronome.tempo() == 60);

    tap(QStringLiteral("quick_note_button"));
    find(QStringLiteral("note_text_field"));
    watch(0);
    type(QStringLiteral("Thumb under earlier."), 0);
    picture(QStringLiteral("note-editor"));
    tap(QStringLiteral("note_save_button"));
    tap(QStringLiteral("notes_button"));
    find(QStringLiteral("note_0"));
    picture(QStringLiteral("notes"));
    press(Qt::Key_Escape);
    tap(QStringLiteral("history_button"));
    find(QStringLiteral("practice_time_row_0"));
    picture(QStringLiteral("item-history"));
    press(Qt::Key_Escape);

    for (const auto& [name, file] :
         {std::pair{QStringLiteral("Rachmaninov: Piano Concerto No. 3 in D minor, third movement, bars 120 to 188"),
                    QStringLiteral("tools-long-name")},
          std::pair{QStringLiteral("סולמות בדו מז'ור"), QStringLiteral("tools-right-to-left")}}) {
        m_app.singletons().exercises.rename(practice.exercise(), name);
        picture(file);
    }
    resize(360, 640);
    picture(QStringLiteral("tools-small"));
    m_appearance.setTextScale(2);
    picture(QStringLiteral("tools-large-text"));
    m_appearance.setTextScale(1);
}

} // namespace tamsel
