#include "ctl/Words.h"

#include "ctl/Command.h"

namespace tamsel::ctl {

Words::Words(const QString& command, const QString& description, const QList<QCommandLineOption>& options)
    : m_command(command) {
    m_parser.setApplicationDescription(description);
    m_parser.addOptions(QList<QCommandLineOption>{m_help, m_json} + options);
}

QCommandLineOption Words::rangeOption(const QString& meaning) {
    return {QStringLiteral("range"), meaning.arg(timeRangeNames()), QStringLiteral("range")};
}

void Words::parse(const QStringList& arguments) {
    if (!m_parser.parse(QStringList(m_command) + arguments)) {
        QString problem = m_parser.errorText();
        if (problem.endsWith(QLatin1Char('.')))
            problem.chop(1);
        throw Answer{exitUsage, QStringLiteral("%1; see %2 --help").arg(problem, m_command)};
    }
    if (m_parser.isSet(m_help))
        throw Answer{exitDone, m_parser.helpText()};
}

void Words::expectAtMost(qsizetype count) const {
    if (m_parser.positionalArguments().size() > count)
        throw Answer{exitUsage, QStringLiteral("unexpected argument: %1; see %2 --help").arg(at(count), m_command)};
}

void Words::expectNot(const QString& option, const QString& subject) const {
    if (m_parser.isSet(option))
        throw Answer{exitUsage, QStringLiteral("--%1 does not go with %2").arg(option, subject)};
}

std::optional<QString> Words::value(const QString& option) const {
    return m_parser.isSet(option) ? std::optional(m_parser.value(option)) : std::nullopt;
}

std::optional<TimeRange> Words::range() const {
    const auto name = value(QStringLiteral("range"));
    if (!name)
        return std::nullopt;
    const auto range = timeRangeFromCaseName(*name);
    if (!range)
        throw Answer{exitUsage, QStringLiteral("--range %1: expected one of %2").arg(*name, timeRangeNames())};
    return range;
}

QString timeRangeNames() {
    QStringList names;
    for (const TimeRange range : everyTimeRange())
        names += caseName(range);
    return names.join(QStringLiteral(", "));
}

} // namespace tamsel::ctl
