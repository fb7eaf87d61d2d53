#pragma once

#include "model/PendingChanges.h"
#include "model/SettingsStore.h"

#include <memory>

namespace tamsel {

class SettingsFile;

// A settings store in one SQLite file, which docs/data-format.md describes. Main thread only; one store for a file.
//
// A read that fails after the file was opened ends the program with a line that names the key and the file: taken for
// an absent value, it would be overwritten by the next save.
class SqliteSettingsStore final : public SettingsStore {
public:
    inline static const QString standardSuite = QStringLiteral("standard");

    struct [[nodiscard]] Opened {
        std::unique_ptr<SqliteSettingsStore> store; // null when it could not be opened
        QString failure;                            // then one line that names the file and the reason
    };
    // Opens the suite's file in the folder; makes both where they are missing. A file that is damaged, of a newer
    // format or not Tamsel's is left as it is.
    static Opened open(const QString& folder, const QString& suite = standardSuite);

    // The suite's file. Characters that could mean something to a file system are written as %XX.
    static QString filePath(const QString& folder, const QString& suite = standardSuite);

    // Tries what is not on disk once more, and says so on the console where that fails.
    ~SqliteSettingsStore() override;

    std::optional<SettingsValue> value(const QString& key) const override;
    void set(const QString& key, SettingsValue value) override;
    void replaceTail(const QString& key, qsizetype keptBytes, QByteArrayView tail) override;
    void remove(const QString& key) override;
    QMap<QString, SettingsValue> dictionaryRepresentation() const override;
    void atomically(const std::function<void()>& changes) override;
    std::optional<QString> writeFailure() const override { return m_writeFailure; }
    bool retryFailedWrites() override;
    QString location() const override { return m_path; }

private:
    SqliteSettingsStore(std::unique_ptr<SettingsFile> file, QString path);

    std::optional<SettingsValue> stored(const QString& key) const;
    // Writes all that is pending, unless a group of changes is still growing.
    void write();
    QString failureLine() const;

    const std::unique_ptr<SettingsFile> m_file;
    const QString m_path;
    PendingChanges m_pending;
    int m_groupDepth = 0;
    std::optional<QString> m_writeFailure;
};

} // namespace tamsel
