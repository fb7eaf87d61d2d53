#include "app/Tour.h"
#include "model/SettingsKeys.h"

#include <QUuid>

namespace tamsel {

void Tour::workTheList() {
    Singletons& stores = m_app.singletons();
    auto& navigation = *m_app.content().tabViewModel()->practiceNavigationStack();
    for (const QString& name : {QStringLiteral("Étude 10"), QStringLiteral("Étude 9"), QStringLiteral("Long tones"),
                                QStringLiteral("Arpeggios")})
        stores.exercises.add(name);
    waitUntil(QStringLiteral("the items show"), [&] { return lookFor(QStringLiteral("exercise_row_4")) != nullptr; });
    picture(QStringLiteral("list-items"));

    tap(QStringLiteral("sort_order_menu"));
    find(QStringLiteral("sort_by_practice_time"));
    picture(QStringLiteral("list-sort"));
    tap(QStringLiteral("sort_by_practice_time"));
    find(QStringLiteral("sort_practiceTime_last30Days"));
    picture(QStringLiteral("list-sort-ranges"));
    tap(QStringLiteral("sort_practiceTime_last30Days"));
    expect(QStringLiteral("the order is kept"),
           stores.userDefaults.data(keys::sortOrder) == QByteArray("{\"practiceTime\":{}}"));
    tell(QStringLiteral("sorted by practice time"));

    tap(QStringLiteral("search_field"));
    type(QStringLiteral("étude"), 0);
    waitUntil(QStringLiteral("two items are found"), [&] {
        return lookFor(QStringLiteral("exercise_row_1")) != nullptr &&
               lookFor(QStringLiteral("exercise_row_2")) == nullptr;
    });
    picture(QStringLiteral("list-search"));
    type(QStringLiteral(" 11"), 0);
    find(QStringLiteral("add_searched_item_button"));
    picture(QStringLiteral("list-nothing-found"));
    tap(QStringLiteral("add_searched_item_button"));
    waitUntil(QStringLiteral("the item of that name opens"), [&] {
        return navigation.practiceViewModel() != nullptr &&
               navigation.practiceViewModel()->exerciseName() == QStringLiteral("étude 11");
    });
    press(Qt::Key_Escape);
    tell(QStringLiteral("searched, and added what was not found"));

    find(QStringLiteral("exercise_row_0")).forceActiveFocus(Qt::TabFocusReason);
    press(Qt::Key_Delete);
    find(QStringLiteral("undo_button"));
    expect(QStringLiteral("the item is archived"), stores.exercises.archivedItems().size() == 1);
    picture(QStringLiteral("list-undo"));
    tap(QStringLiteral("undo_button"));
    expect(QStringLiteral("the item is back"), stores.exercises.archivedItems().isEmpty());
    find(QStringLiteral("exercise_row_0")).forceActiveFocus(Qt::TabFocusReason);
    press(Qt::Key_Delete);
    // By the keyboard, which brings a title out from below the message.
    const auto toggle = [this](const QString& title) {
        find(title).forceActiveFocus(Qt::TabFocusReason);
        press(Qt::Key_Space);
    };
    toggle(QStringLiteral("archive_header"));
    find(QStringLiteral("archive_row_0"));
    picture(QStringLiteral("list-archive"));
    for (const QString& title :
         {QStringLiteral("archive_header"), QStringLiteral("exercises_header"), QStringLiteral("daily_log_header")})
        toggle(title);
    picture(QStringLiteral("list-collapsed"));
    tell(QStringLiteral("archived an item, took that back and did it again"));

    // More than three hours, so that the next visit thanks for them.
    const QList<HistoryEvent> events = stores.history.events();
    QList<HistoryEvent> longEvents = events;
    longEvents.first().practiceTime = 181;
    stores.history.setEvents(longEvents);
    tap(QStringLiteral("thanks_tab"));
    tap(QStringLiteral("practice_tab"));
    find(QStringLiteral("review_close_button"));
    picture(QStringLiteral("list-review"));
    tap(QStringLiteral("review_close_button"));
    stores.history.setEvents(events);
    tell(QStringLiteral("was thanked for three hours of practice"));

    m_app.content().tabViewModel()->setShowUnreadVariantOfThanksTabItem(true);
    picture(QStringLiteral("tabs-badge"));
    tap(QStringLiteral("thanks_tab"));
    tap(QStringLiteral("practice_tab"));
    expect(QStringLiteral("the badge goes when its tab is opened"),
           !m_app.content().tabViewModel()->showUnreadVariantOfThanksTabItem());
    picture(QStringLiteral("tabs-no-badge"));

    QList<Exercise> hundreds = {
        {QStringLiteral("A study of a name that is longer than any line: third movement, bars 120 to 188"),
         QUuid::createUuid()}};
    for (int i = 1; i < 300; ++i)
        hundreds += {QStringLiteral("Study %1").arg(i), QUuid::createUuid()};
    stores.exercises.setItems(hundreds);
    tap(QStringLiteral("exercises_header"));
    find(QStringLiteral("exercise_row_5"));
    picture(QStringLiteral("list-hundreds"));
    stores.exercises.setItems({});
    stores.exercises.setArchivedItems({});
    stores.dailyLog.setPracticeSessions({});
    find(QStringLiteral("add_first_item_button"));
    picture(QStringLiteral("list-empty"));
    tell(QStringLiteral("saw the list with hundreds of items and with none"));
}

} // namespace tamsel
