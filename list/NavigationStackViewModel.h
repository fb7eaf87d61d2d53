#pragma once

#include <QAbstractListModel>
#include <QHash>
#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include <memory>
#include <vector>

namespace tamsel {

// One screen on a navigation stack: its model, and how it is shown.
struct StackedScreen {
    QString file;     // of the screen, such as "PracticeScreen.qml"
    QString argument; // the screen's property that takes the model
    std::unique_ptr<QObject> model;
};

// A tab's stack of screens over its first one, which is not counted. The rows are the screens, the one on top last.
// Main thread only.
class NavigationStackViewModel : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the tab model")
    Q_PROPERTY(int depth READ depth NOTIFY depthChanged FINAL)

public:
    enum Role { FileRole = Qt::UserRole + 1, ArgumentRole, ScreenModelRole };

    int depth() const { return static_cast<int>(m_screens.size()); }
    // 0 is the one just over the tab's first screen.
    QObject* screenModel(int level) const { return m_screens.at(static_cast<std::size_t>(level)).model.get(); }

    void push(StackedScreen screen);
    // One screen instead of all; the tab's first screen is not uncovered in between.
    void replaceAll(StackedScreen screen);
    // Takes the screen on top off the stack. Does nothing on the tab's first one.
    Q_INVOKABLE void pop();
    // What a key or a gesture means by "back": closes what lies over the screen on top, or else leaves that screen.
    Q_INVOKABLE void back();

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

Q_SIGNALS:
    // Another screen is on top.
    void topChanged();
    void depthChanged();

protected:
    // The screen is about to leave the stack.
    virtual void leaving(QObject& screenModel);
    // Closes what the screen shows over itself; false if there is nothing.
    virtual bool closesWithin(QObject& screenModel);

private:
    void append(StackedScreen screen);
    void remove(int first, int count);

    std::vector<StackedScreen> m_screens;
    // What has left stays until the next screen comes: the window may still be drawing it.
    std::vector<StackedScreen> m_left;
};

} // namespace tamsel
