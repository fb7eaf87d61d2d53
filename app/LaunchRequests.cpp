#include "app/LaunchRequests.h"

#include <QFile>
#include <QRegularExpression>

namespace tamsel {

namespace {

// A scheme is at least two characters long here: a single one names a drive on some systems.
bool looksLikeUrl(const QString& argument) {
    static const QRegularExpression scheme(QStringLiteral("^[A-Za-z][A-Za-z0-9+.-]+:"));
    return scheme.match(argument).hasMatch();
}

} // namespace

QStringList launchRequests(const QStringList& arguments, const QDir& workingFolder) {
    QStringList requests;
    for (const QString& argument : arguments) {
        if (argument.isEmpty())
            continue;
        const QString path = QDir::cleanPath(workingFolder.absoluteFilePath(argument));
        // A file of that name comes first: names may have colons.
        requests += looksLikeUrl(argument) && !QFile::exists(path) ? argument : path;
    }
    return requests;
}

} // namespace tamsel
