#pragma once

#include <QStringList>
#include <QtGlobal>

namespace tamsel::test {

// Collects what Qt warns of while it lives. A warning of the QML engine is a fault: a name that is not there, a binding
// that turns in circles, a missing picture. One at a time.
class WarningCollector {
public:
    WarningCollector() : m_before(qInstallMessageHandler(collect)) { s_warnings.clear(); }
    ~WarningCollector() { qInstallMessageHandler(m_before); }

    WarningCollector(const WarningCollector&) = delete;
    WarningCollector& operator=(const WarningCollector&) = delete;

    std::string text() const { return s_warnings.join(QLatin1Char('\n')).toStdString(); }

private:
    static void collect(QtMsgType type, const QMessageLogContext&, const QString& message) {
        if (type != QtDebugMsg && type != QtInfoMsg)
            s_warnings.append(message);
    }

    static inline QStringList s_warnings;
    const QtMessageHandler m_before;
};

} // namespace tamsel::test
