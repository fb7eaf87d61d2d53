#pragma once

#include <QByteArray>
#include <QList>
#include <QProcess>
#include <QProcessEnvironment>
#include <QString>
#include <QStringList>

#include <utility>

namespace tamsel::test {

struct Ended {
    int exitCode; // -1 when it crashed
    QByteArray output;
    QByteArray errors;
};

// Runs the program with these words, and with these variables beside those of the test.
inline Ended tamselctl(const QStringList& arguments, const QList<std::pair<QString, QString>>& variables = {}) {
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const auto& [name, value] : variables)
        environment.insert(name, value);
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral(TAMSEL_CTL), arguments);
    process.waitForFinished();
    return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1, process.readAllStandardOutput(),
            process.readAllStandardError()};
}

} // namespace tamsel::test
