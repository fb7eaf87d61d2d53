#pragma once

#include "app/App.h"
#include "app/TourAudio.h"

#include <QQuickItem>
#include <QQuickWindow>
#include <QString>

#include <functional>

namespace tamsel {

class Appearance;

// A practice that the app does by itself, through its own window: it finds what a person would tap by the identifiers,
// taps and types, looks whether the screen answers, and leaves pictures. Main thread only, inside the event loop.
class Tour {
public:
    // The folder must exist; pictures, clicks and documents go there.
    Tour(QQuickWindow& window, Appearance& appearance, App& app, TourAudio& audio, const QString& folder);

    // "practice": adds an item, plays, runs a timer, saves. "restart": finds the practice in today's log.
    // "tools": works the tools, the settings sheet and the notes of the practice screen. "list": searches, sorts,
    // archives and takes back. "history": looks through two made-up years, and removes them again. "data": takes all
    // data out as a document and in again. Tells each step on standard output. False when something was not as it
    // should be.
    bool take(const QString& stage);

private:
    class Failed {};

    void practise();
    void findPracticeAgain();
    void useTheTools();
    void workTheList();
    void showHistory();
    void exchangeData();

    // Each throws `Failed`, with a line that says what was missing.
    QQuickItem& find(const QString& identifier);
    void tap(const QString& identifier);
    void type(const QString& text, int finalKey);
    void waitUntil(const QString& what, const std::function<bool()>& condition);
    void expect(const QString& what, bool holds);

    QQuickItem* lookFor(const QString& identifier) const;
    void press(int key, const QString& text = {});
    // Lets the app run for a while.
    void watch(int milliseconds);
    // The window as it is, in light and dark.
    void picture(const QString& name);
    void saveGrab(const QString& name);
    void resize(int width, int height);
    void writeDocuments();
    static void tell(const QString& line);

    QQuickWindow& m_window;
    Appearance& m_appearance;
    App& m_app;
    TourAudio& m_audio;
    const QString m_folder;
};

} // namespace tamsel
