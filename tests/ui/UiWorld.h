#pragma once

#include "app/App.h"
#include "tests/support/World.h"
#include "ui/Appearance.h"

#include <QQmlApplicationEngine>
#include <QQuickItem>
#include <QQuickWindow>

#include <memory>

namespace tamsel::test {

// The whole program behind a window, off screen: the real screens on the real models, in a test's time and memory.
// Fill the stores of `world` before `open`.
class UiWorld {
public:
    UiWorld();
    ~UiWorld();

    void addExercises(const QStringList& names);
    // A session that ended now, of an item that was added before.
    void practise(const QString& name, qint64 seconds, SessionType type);

    void open(QSize size = {390, 844});

    ContentViewModel& content() { return m_app->content(); }
    TabViewModel& tabs() { return *content().tabViewModel(); }
    PracticeListViewModel& list() { return *tabs().practiceNavigationStack()->practiceList(); }
    PracticeViewModel* practice() { return tabs().practiceNavigationStack()->practiceViewModel(); }
    Singletons& singletons() { return m_app->singletons(); }
    Backups& backups() { return m_app->backups(); }
    QQuickWindow& window() { return *m_window; }
    Appearance& appearance() { return *m_appearance; }

    // Lets everything happen that is due now: events, deferred work, layout.
    void settle();
    void resize(QSize size);
    QImage grab();

    // The visible element of that identifier, or null.
    QQuickItem* find(const QString& identifier);
    QRectF area(const QString& identifier);
    // False if there is no such element.
    bool click(const QString& identifier, Qt::MouseButton button = Qt::LeftButton);
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void type(const QString& text);

    World world;
    // Set it before `open`; without one no tips can be taken.
    TipProvider* tipProvider = nullptr;

private:
    std::unique_ptr<App> m_app;
    std::unique_ptr<QQmlApplicationEngine> m_engine;
    QQuickWindow* m_window = nullptr;
    Appearance* m_appearance = nullptr;
};

} // namespace tamsel::test
