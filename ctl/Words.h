#pragma once

#include "reports/TimeRange.h"

#include <QCommandLineOption>
#include <QCommandLineParser>
#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

namespace tamsel::ctl {

// The words behind the name of a command that shows something from the user's data. --help and --json go with each.
// Words that make no sense, and the wish for help, end it by throwing the `Answer`.
class Words {
public:
    // `command` is how it is called: "tamselctl log".
    Words(const QString& command, const QString& description, const QList<QCommandLineOption>& options = {});

    // Options of more than one command.
    static QCommandLineOption rangeOption(const QString& meaning);

    // A word that is no option, for the help.
    void describe(const QString& word, const QString& meaning) { m_parser.addPositionalArgument(word, meaning); }
    void parse(const QStringList& arguments);

    bool asJson() const { return m_parser.isSet(m_json); }
    // The first of the words that are no options, and so on; empty where there is none.
    QString at(qsizetype index) const { return m_parser.positionalArguments().value(index); }
    void expectAtMost(qsizetype count) const;
    // `subject` is what the option does not go with.
    void expectNot(const QString& option, const QString& subject) const;

    // Of an option that takes a value; nothing where it is not given.
    std::optional<QString> value(const QString& option) const;
    std::optional<TimeRange> range() const;

private:
    const QCommandLineOption m_help{{QStringLiteral("h"), QStringLiteral("help")}, QStringLiteral("Show this help.")};
    const QCommandLineOption m_json{QStringLiteral("json"), QStringLiteral("Write JSON, for scripts.")};
    const QString m_command;
    QCommandLineParser m_parser;
};

// The ranges as commands name them: "last7Days, last30Days" and so on.
QString timeRangeNames();

} // namespace tamsel::ctl
