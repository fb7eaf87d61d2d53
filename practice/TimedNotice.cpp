#include "practice/TimedNotice.h"

#include <utility>

namespace tamsel {

void TimedNotice::confirm(const QString& text) {
    show(text, {}, {}, confirmationTime);
}

void TimedNotice::offerUndo(const QString& text, std::function<void()> undo) {
    show(text, QStringLiteral("Undo"), std::move(undo), undoTime);
}

void TimedNotice::act() {
    const std::function<void()> action = std::exchange(m_action, {});
    end();
    if (action)
        action();
}

void TimedNotice::end() {
    show({}, {}, {}, {});
}

void TimedNotice::show(const QString& text, const QString& actionText, std::function<void()> action,
                       std::chrono::seconds duration) {
    ++m_number;
    m_action = std::move(action);
    if (!text.isEmpty()) {
        m_mainQueue.asyncAfter(duration, [self = std::weak_ptr(m_self), number = m_number] {
            const auto notice = self.lock();
            if (notice && (*notice)->m_number == number)
                (*notice)->end();
        });
    }
    if (m_text == text && m_actionText == actionText)
        return;
    m_text = text;
    m_actionText = actionText;
    Q_EMIT changed();
}

} // namespace tamsel
