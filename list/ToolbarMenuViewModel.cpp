#include "list/ToolbarMenuViewModel.h"

#include <utility>

namespace tamsel {

ToolbarMenuViewModel::ToolbarMenuViewModel(QString accessibilityIdentifier, QString image, QString title,
                                           QObject* parent)
    : QObject(parent), m_accessibilityIdentifier(std::move(accessibilityIdentifier)), m_image(std::move(image)),
      m_title(std::move(title)) {}

void ToolbarMenuViewModel::setOptions(QList<Option> options) {
    m_options = std::move(options);
    Q_EMIT optionsChanged();
}

QList<ToolbarMenuSuboption> ToolbarMenuViewModel::suboptions(int option) const {
    if (option < 0 || option >= m_options.size())
        return {};
    const auto* const submenu = std::get_if<Option::Submenu>(&m_options.at(option).kind);
    return submenu ? *submenu : Option::Submenu();
}

void ToolbarMenuViewModel::choose(int option) const {
    if (option < 0 || option >= m_options.size())
        return;
    // A copy: what it does may set the options anew.
    const Option::Kind kind = m_options.at(option).kind;
    if (const auto* const action = std::get_if<Option::Button>(&kind); action && *action)
        (*action)();
}

void ToolbarMenuViewModel::chooseSuboption(int option, int suboption) const {
    const QList<ToolbarMenuSuboption> submenu = suboptions(option);
    if (suboption >= 0 && suboption < submenu.size() && submenu.at(suboption).action)
        submenu.at(suboption).action();
}

} // namespace tamsel
