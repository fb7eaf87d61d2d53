#include "list/NavigationStackViewModel.h"

#include <QQmlEngine>

#include <iterator>
#include <utility>

namespace tamsel {

void NavigationStackViewModel::push(StackedScreen screen) {
    m_left.clear();
    append(std::move(screen));
    Q_EMIT depthChanged();
    Q_EMIT topChanged();
}

void NavigationStackViewModel::replaceAll(StackedScreen screen) {
    m_left.clear();
    const int before = depth();
    append(std::move(screen));
    remove(0, before);
    if (before != depth())
        Q_EMIT depthChanged();
    Q_EMIT topChanged();
}

void NavigationStackViewModel::pop() {
    if (m_screens.empty())
        return;
    leaving(*m_screens.back().model);
    remove(depth() - 1, 1);
    Q_EMIT depthChanged();
    Q_EMIT topChanged();
}

void NavigationStackViewModel::back() {
    if (!m_screens.empty() && !closesWithin(*m_screens.back().model))
        pop();
}

void NavigationStackViewModel::leaving(QObject&) {}

bool NavigationStackViewModel::closesWithin(QObject&) {
    return false;
}

void NavigationStackViewModel::append(StackedScreen screen) {
    // The stack owns it, whatever a screen does with it.
    QQmlEngine::setObjectOwnership(screen.model.get(), QQmlEngine::CppOwnership);
    beginInsertRows({}, depth(), depth());
    m_screens.push_back(std::move(screen));
    endInsertRows();
}

void NavigationStackViewModel::remove(int first, int count) {
    if (count == 0)
        return;
    beginRemoveRows({}, first, first + count - 1);
    const auto begin = m_screens.begin() + first;
    m_left.insert(m_left.end(), std::make_move_iterator(begin), std::make_move_iterator(begin + count));
    m_screens.erase(begin, begin + count);
    endRemoveRows();
}

int NavigationStackViewModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : depth();
}

QVariant NavigationStackViewModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || index.row() >= depth())
        return {};
    const StackedScreen& screen = m_screens.at(static_cast<std::size_t>(index.row()));
    switch (role) {
    case FileRole:
        return screen.file;
    case ArgumentRole:
        return screen.argument;
    case ScreenModelRole:
        return QVariant::fromValue(screen.model.get());
    default:
        return {};
    }
}

QHash<int, QByteArray> NavigationStackViewModel::roleNames() const {
    return {{FileRole, "file"}, {ArgumentRole, "argument"}, {ScreenModelRole, "screenModel"}};
}

} // namespace tamsel
