#include "ctl/ClickCommand.h"
#include "ctl/Command.h"
#include "ctl/DataCommands.h"
#include "ctl/ListCommand.h"
#include "ctl/ReportCommand.h"
#include "platform/DeviceLanguage.h"
#include "platform/Log.h"

#include <QCoreApplication>

#include <algorithm>
#include <array>
#include <cstdio>

namespace tamsel::ctl {

namespace {

constexpr std::array commands = {
    Command{"export", "write all data as one document", exportData},
    Command{"import", "replace all data by that of a document", importData},
    Command{"check", "look through a document or a backup", check},
    Command{"backups", "list the backups", listBackups},
    Command{"restore", "replace all data by that of a backup", restore},
    Command{"click", "write what the metronome would play as a WAV file", click},
    Command{"list", "show the practice list", showList},
    Command{"log", "show what was practised today", showLog},
    Command{"report", "show what was practised: days, months, items", report},
};

QString usage() {
    QString text = QStringLiteral("usage: tamselctl COMMAND [ARGUMENT …]\n\n");
    for (const Command& command : commands) {
        text += QStringLiteral("  %1  %2\n").arg(QLatin1String(command.name), -8).arg(QLatin1String(command.summary));
    }
    return text + QStringLiteral("\n`tamselctl COMMAND --help` tells more.\n");
}

int run(const QStringList& arguments) {
    const QString name = arguments.value(1);
    if (name == QStringLiteral("--help") || name == QStringLiteral("-h")) {
        std::fputs(usage().toUtf8().constData(), stdout);
        return exitDone;
    }
    const auto* const command = std::ranges::find_if(
        commands, [&name](const Command& candidate) { return name == QLatin1String(candidate.name); });
    if (command == commands.end()) {
        return fail(exitUsage, name.isEmpty() ? QStringLiteral("a command is missing; see tamselctl --help")
                                              : QStringLiteral("no such command: %1; see tamselctl --help").arg(name));
    }
    return command->run(arguments.sliced(2));
}

} // namespace

} // namespace tamsel::ctl

int main(int argc, char* argv[]) {
    tamsel::adoptDeviceLanguage();
    QCoreApplication::setApplicationName(QStringLiteral("tamselctl"));
    const QCoreApplication application(argc, argv);
    // Standard output is for what a command is asked for.
    tamsel::setLogStream(stderr);
    return tamsel::ctl::run(QCoreApplication::arguments());
}
