#pragma once

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonValue>
#include <QList>
#include <QString>
#include <QStringList>

#include <utility>

// JSON whose objects keep the order in which their keys were given.
namespace tamsel::ctl::json {

// A text, number or truth value.
inline QString value(const QJsonValue& value) {
    const QByteArray array = QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact);
    return QString::fromUtf8(array.mid(1, array.size() - 2));
}

// Of values that are JSON already.
inline QString array(const QStringList& values) {
    return QStringLiteral("[%1]").arg(values.join(QLatin1Char(',')));
}

inline QString object(const QList<std::pair<QString, QString>>& fields) {
    QStringList texts;
    for (const auto& [key, text] : fields)
        texts += value(key) + QLatin1Char(':') + text;
    return QStringLiteral("{%1}").arg(texts.join(QLatin1Char(',')));
}

} // namespace tamsel::ctl::json
