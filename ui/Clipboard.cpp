#include "ui/Clipboard.h"

#include <QClipboard>
#include <QGuiApplication>

namespace tamsel {

void Clipboard::setText(const QString& text) {
    QGuiApplication::clipboard()->setText(text);
}

} // namespace tamsel
