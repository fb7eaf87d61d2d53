#include "tests/ui/UiWorld.h"

#include "platform/InlineQueue.h"
#include "ui/Ui.h"

#include <QGuiApplication>
#include <QQmlEngine>
#include <QTest>
#include <QtQuickTest>

#include <algorithm>
#include <functional>
#include <utility>

namespace tamsel::test {

namespace {

QQuickItem* findBelow(QQuickItem& item, const QString& identifier) {
    if (!item.isVisible())
        return nullptr;
    if (item.objectName() == identifier)
        return &item;
    // What lies on top comes first, such as a sheet before the screen below it.
    QList<QQuickItem*> children = item.childItems();
    std::ranges::stable_sort(children, std::greater(), &QQuickItem::z);
    for (QQuickItem* const child : std::as_const(children))
        if (QQuickItem* const found = findBelow(*child, identifier))
            return found;
    return nullptr;
}

bool waitsForLayout(const QQuickItem& item) {
    if (QQuickTest::qIsPolishScheduled(&item))
        return true;
    const QList<QQuickItem*> children = item.childItems();
    return std::ranges::any_of(children, [](const QQuickItem* child) { return waitsForLayout(*child); });
}

} // namespace

UiWorld::UiWorld() {
    world.singletons->exercises.setItems({});
}

UiWorld::~UiWorld() {
    m_engine.reset();
    m_app.reset();
}

void UiWorld::addExercises(const QStringList& names) {
    QList<Exercise> items = world.singletons->exercises.items();
    for (const QString& name : names)
        items.append({name, world.uuids.next()});
    world.singletons->exercises.setItems(items);
}

void UiWorld::practise(const QString& name, qint64 seconds, SessionType type) {
    const QList<Exercise>& items = world.singletons->exercises.items();
    const auto item = std::find_if(items.begin(), items.end(), [&](const Exercise& one) { return one.name == name; });
    const auto session = PracticeSession::make(world.clock.now(), *item, seconds, type);
    world.singletons->history.record(*session);
}

void UiWorld::open(QSize size) {
    // The program makes stores of its own from what is stored.
    world.singletons.reset();
    m_app = std::make_unique<App>(world.store, world.platform, world.output, world.session, 1, std::nullopt,
                                  tipProvider, std::make_unique<InlineQueue>());
    m_engine = std::make_unique<QQmlApplicationEngine>();
    ui::registerWith(*m_engine);
    m_engine->setInitialProperties({{QStringLiteral("content"), QVariant::fromValue(&m_app->content())}});
    m_engine->load(QUrl(QStringLiteral("qrc:/qt/qml/Tamsel/Ui/screens/AppWindow.qml")));
    m_window = qobject_cast<QQuickWindow*>(m_engine->rootObjects().value(0));
    Q_ASSERT(m_window);
    m_appearance = m_engine->singletonInstance<Appearance*>(qmlTypeId("Tamsel.Ui", 1, 0, "Appearance"));
    m_window->requestActivate();
    resize(size);
}

void UiWorld::settle() {
    // What one round makes due, such as a layout or a deleted object, the next one does.
    for (int round = 0; round < 2; ++round) {
        world.mainQueue.runDue();
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        const bool laidOut = QTest::qWaitFor([this] { return !waitsForLayout(*m_window->contentItem()); });
        Q_ASSERT(laidOut || !m_window->isVisible());
    }
}

void UiWorld::resize(QSize size) {
    m_window->resize(size);
    settle();
}

QImage UiWorld::grab() {
    settle();
    return m_window->grabWindow();
}

QQuickItem* UiWorld::find(const QString& identifier) {
    settle();
    return findBelow(*m_window->contentItem(), identifier);
}

QRectF UiWorld::area(const QString& identifier) {
    const QQuickItem* const item = find(identifier);
    return item ? item->mapRectToScene(QRectF(0, 0, item->width(), item->height())) : QRectF();
}

bool UiWorld::click(const QString& identifier, Qt::MouseButton button) {
    const QRectF target = area(identifier);
    if (target.isEmpty())
        return false;
    QTest::mouseClick(m_window, button, Qt::NoModifier, target.center().toPoint());
    settle();
    return true;
}

void UiWorld::press(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    QTest::keyClick(m_window, key, modifiers);
    settle();
}

void UiWorld::type(const QString& text) {
    for (const QChar character : text)
        QTest::keyClick(m_window, character.toLatin1());
    settle();
}

} // namespace tamsel::test
