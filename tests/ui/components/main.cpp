#include "ui/Ui.h"

#include <QQmlEngine>
#include <QtQuickTest>

namespace tamsel::test {

// Gives each test file's engine what the program's engine has.
class ComponentSetup : public QObject {
    Q_OBJECT

public Q_SLOTS:
    void qmlEngineAvailable(QQmlEngine* engine) { ui::registerWith(*engine); }
};

} // namespace tamsel::test

QUICK_TEST_MAIN_WITH_SETUP(components, tamsel::test::ComponentSetup)

#include "main.moc"
