#include "practice/NotesViewModel.h"

#include "tests/support/World.h"

#include <QAbstractItemModelTester>

#include <gtest/gtest.h>

#include <csignal>
#include <memory>

namespace tamsel {
namespace {

using namespace std::chrono_literals;

class NotesViewModelTest : public testing::Test {
protected:
    void open() {
        screen = std::make_unique<NotesViewModel>(store(), world.platform, scales, drafts);
        tester = std::make_unique<QAbstractItemModelTester>(screen->rows(),
                                                            QAbstractItemModelTester::FailureReportingMode::Fatal);
    }

    Notes& store() { return world.singletons->notes; }

    // Stored notes of the texts, each written an hour after the one before.
    void write(const QStringList& texts) {
        for (const QString& text : texts) {
            store().add({world.clock.now(), world.uuids.next(), text}, scales);
            world.clock.advance(1h);
        }
    }

    QStringList stored() {
        QStringList texts;
        for (const Note& note : store().notes(scales).value_or(QList<Note>()))
            texts += note.value;
        return texts;
    }

    // The screen's rows, with each day's title before its notes.
    QStringList shown() {
        QStringList texts;
        for (int i = 0; i < screen->rows()->rowCount(); ++i) {
            const auto read = [&](NoteListModel::Role role) {
                return screen->rows()->data(screen->rows()->index(i), role);
            };
            if (const QString day = read(NoteListModel::DayTitleRole).toString(); !day.isEmpty())
                texts += day;
            texts += read(NoteListModel::TextRole).toString();
        }
        return texts;
    }

    // The identifier of the shown note of that text.
    QString id(const QString& text) {
        for (const Note& note : store().notes(scales).value_or(QList<Note>())) {
            if (note.value == text)
                return note.id.toString(QUuid::WithoutBraces);
        }
        return {};
    }

    void edit(const QString& from, const QString& to) {
        screen->editTapped(id(from));
        screen->setEditorText(to);
        screen->saveEditor();
    }

    test::World world;
    const Exercise scales{QStringLiteral("C Major Scales"), test::SequentialUuids::numbered(101)};
    const std::shared_ptr<NoteDrafts> drafts = std::make_shared<NoteDrafts>();
    std::unique_ptr<NotesViewModel> screen;
    std::unique_ptr<QAbstractItemModelTester> tester;
};

const QString a = QStringLiteral("a");
const QString b = QStringLiteral("b");
const QString c = QStringLiteral("c");

TEST_F(NotesViewModelTest, NotesStandByDayNewestFirst) {
    world.clock.wall = Date::fromUnixSeconds(1735513200.0); // 2024-12-29 23:00:00 UTC
    write({a, b, c});
    // Stored late, written between: a note that was put back.
    store().add({Date::fromUnixSeconds(1735515000.0), world.uuids.next(), QStringLiteral("between")}, scales);
    open();
    EXPECT_EQ(shown(),
              (QStringList{QStringLiteral("12/30/25"), c, b, QStringLiteral("12/29/25"), QStringLiteral("between"), a}))
        << "the year is the one that the week belongs to";
    ASSERT_EQ(screen->sections().size(), 2);
    EXPECT_EQ(screen->sections().first().title, QStringLiteral("12/30/25"));
}

TEST_F(NotesViewModelTest, TheDayIsTheZones) {
    const Date evening = Date::fromUnixSeconds(1710457200.0); // 2024-03-14 23:00:00 UTC
    const QList<Note> notes = {{evening, QUuid(), a}, {evening + 7200, QUuid(), b}};
    EXPECT_EQ(noteSections(notes, Calendar(QStringLiteral("UTC"))).size(), 2);
    const auto sections = noteSections(notes, Calendar(QStringLiteral("Asia/Tokyo")));
    ASSERT_EQ(sections.size(), 1);
    EXPECT_EQ(sections.first().title, QStringLiteral("03/15/24"));
}

TEST_F(NotesViewModelTest, NotesAreAddedAndEdited) {
    open();
    EXPECT_TRUE(screen->isEmpty());
    screen->addTapped();
    EXPECT_EQ(screen->editorTitle(), QStringLiteral("New note"));
    EXPECT_FALSE(screen->canSave());
    screen->saveEditor();
    EXPECT_TRUE(screen->isShowingEditor()) << "nothing was typed yet";
    screen->setEditorText(a);
    screen->saveEditor();
    EXPECT_FALSE(screen->isShowingEditor());
    EXPECT_EQ(store().notes(scales)->first().date, world.clock.now());
    const Note before = store().notes(scales)->first();
    world.clock.advance(30min);
    edit(a, b);
    EXPECT_EQ(*store().notes(scales), (QList<Note>{{before.date, before.id, b}})) << "the same note with another text";
    EXPECT_EQ(shown(), (QStringList{QStringLiteral("03/14/24"), b}));
    screen->addTapped();
    EXPECT_EQ(screen->editorText(), QString()) << "what was saved is no draft";
}

TEST_F(NotesViewModelTest, WhatWasTypedStaysUntilItIsSavedOrDropped) {
    write({a});
    open();
    screen->addTapped();
    screen->setEditorText(QStringLiteral("new"));
    screen->closeEditor();
    screen->editTapped(id(a));
    EXPECT_EQ(screen->editorText(), a);
    screen->setEditorText(QStringLiteral("a, slower"));
    screen->closeEditor();
    open(); // the screen is opened anew
    screen->addTapped();
    EXPECT_EQ(screen->editorText(), QStringLiteral("new"));
    screen->cancelEditor();
    screen->addTapped();
    EXPECT_EQ(screen->editorText(), QString());
    screen->cancelEditor();
    screen->editTapped(id(a));
    EXPECT_EQ(screen->editorText(), QStringLiteral("a, slower"));
    screen->cancelEditor();
    EXPECT_EQ(stored(), QStringList{a});
}

TEST_F(NotesViewModelTest, DeletedNotesComeBackAtTheirOldPlace) {
    write({a, b, c});
    open();
    screen->deleteTapped(id(b));
    EXPECT_EQ(stored(), (QStringList{a, c}));
    EXPECT_EQ(screen->notice()->text(), QStringLiteral("Note deleted"));
    screen->deleteTapped(id(a));
    EXPECT_EQ(screen->notice()->text(), QStringLiteral("2 notes deleted"));
    EXPECT_EQ(shown(), (QStringList{QStringLiteral("03/14/24"), c}));
    screen->notice()->act();
    EXPECT_EQ(stored(), (QStringList{a, b, c}));
    EXPECT_EQ(shown(), (QStringList{QStringLiteral("03/14/24"), c, b, a}));
    EXPECT_FALSE(screen->notice()->isShown());

    screen->deleteTapped(id(c));
    world.mainQueue.advance(TimedNotice::undoTime);
    EXPECT_FALSE(screen->notice()->isShown());
    screen->deleteTapped(id(a));
    screen->notice()->act();
    EXPECT_EQ(stored(), (QStringList{a, b})) << "the time of the first was over";
    screen->deleteTapped(id(a));
    screen->deleteTapped(id(b));
    EXPECT_TRUE(screen->isEmpty());
    screen->notice()->act();
    EXPECT_EQ(stored(), (QStringList{a, b}));
}

TEST_F(NotesViewModelTest, EditingANoteThatHasVanishedStopsTheProgram) {
    write({a, b});
    open();
    screen->editTapped(id(a));
    screen->setEditorText(c);
    store().remove(store().notes(scales)->first(), scales);
    screen->reload();
    EXPECT_EXIT(screen->saveEditor(), testing::KilledBySignal(SIGABRT), "Row to edit is not found in any sections\n$");
}

} // namespace
} // namespace tamsel
