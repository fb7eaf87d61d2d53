#pragma once

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>

namespace tamsel::test {

// A folder that goes with the object. It lies in memory where the system has such a place: thousands of syncs cost
// nothing there, and a killed program leaves the same files as on a disk.
class TemporaryFolder : public QTemporaryDir {
public:
    TemporaryFolder() : QTemporaryDir(pattern()) {}

private:
    static QString pattern() {
        const QString memory = QStringLiteral("/dev/shm");
        return (QFileInfo(memory).isWritable() ? memory : QDir::tempPath()) + QStringLiteral("/tamsel-XXXXXX");
    }
};

} // namespace tamsel::test
