#pragma once

#include <QList>
#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include <functional>
#include <variant>

namespace tamsel {

// What an option of a toolbar's menu leads to at the second level.
struct ToolbarMenuSuboption {
    Q_GADGET
    QML_VALUE_TYPE(toolbarMenuSuboption)
    Q_PROPERTY(QString identifier MEMBER accessibilityIdentifier FINAL)
    Q_PROPERTY(QString image MEMBER image FINAL)
    Q_PROPERTY(QString title MEMBER title FINAL)

public:
    QString accessibilityIdentifier;
    QString image; // an icon's name; empty for none
    QString title;
    std::function<void()> action;
};

// One option of a toolbar's menu: a button, or the way to more of them.
struct ToolbarMenuOption {
    Q_GADGET
    QML_VALUE_TYPE(toolbarMenuOption)
    Q_PROPERTY(QString identifier MEMBER accessibilityIdentifier FINAL)
    Q_PROPERTY(QString image MEMBER image FINAL)
    Q_PROPERTY(QString title MEMBER title FINAL)

public:
    using Suboption = ToolbarMenuSuboption;
    using Button = std::function<void()>;
    using Submenu = QList<Suboption>;
    using Kind = std::variant<Button, Submenu>;

    QString accessibilityIdentifier;
    QString image; // an icon's name; empty for none
    Kind kind;
    QString title;
};

// A menu of a screen's toolbar, for any screen. Its owner sets the options anew when they change. Main thread only.
class ToolbarMenuViewModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by its screen model")

    Q_PROPERTY(QString accessibilityIdentifier READ accessibilityIdentifier CONSTANT FINAL)
    Q_PROPERTY(QString image READ image CONSTANT FINAL)
    Q_PROPERTY(QString title READ title CONSTANT FINAL)
    Q_PROPERTY(QList<tamsel::ToolbarMenuOption> options READ options NOTIFY optionsChanged FINAL)

public:
    using Option = ToolbarMenuOption;

    // The title is spoken for the button that opens the menu, and stands above its options.
    ToolbarMenuViewModel(QString accessibilityIdentifier, QString image, QString title, QObject* parent = nullptr);

    const QString& accessibilityIdentifier() const { return m_accessibilityIdentifier; }
    const QString& image() const { return m_image; }
    const QString& title() const { return m_title; }
    const QList<Option>& options() const { return m_options; }
    void setOptions(QList<Option> options);

    // What lies behind an option: nothing behind a button.
    Q_INVOKABLE QList<tamsel::ToolbarMenuSuboption> suboptions(int option) const;
    // Does what the option or the suboption says. Those that are not there do nothing.
    Q_INVOKABLE void choose(int option) const;
    Q_INVOKABLE void chooseSuboption(int option, int suboption) const;

Q_SIGNALS:
    void optionsChanged();

private:
    const QString m_accessibilityIdentifier;
    const QString m_image;
    const QString m_title;
    QList<Option> m_options;
};

} // namespace tamsel
