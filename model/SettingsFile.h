#pragma once

#include "model/PendingChanges.h"
#include "model/SettingsStore.h"
#include "model/SqliteDatabase.h"

#include <memory>

namespace tamsel {

class SqliteStatement;

// The values in a settings file (SettingsSchema.h): how they are read from it and written to it. Remembers nothing
// between calls. Calls that can fail say so by their result, and `error` then tells why. One thread only.
class SettingsFile {
public:
    SettingsFile();
    ~SettingsFile();

    // What becomes of the write-ahead log: its changes move over to the file, or wait for whoever opens that next.
    enum class OnClose { moveLog, leaveLog };

    // Makes the file where there is none; its folder must exist. To be called once, before everything else.
    [[nodiscard]] bool open(const QString& path, OnClose onClose = OnClose::moveLog);
    // Instead of it: for reading on another thread while the file is open already.
    [[nodiscard]] bool openBeside(const QString& path);
    // Instead of it: for reading a copy that nobody is changing. Looks through the whole file, which stays untouched.
    [[nodiscard]] bool openCopy(const QString& path);

    // Whether every page of it is in order.
    [[nodiscard]] bool isSound();

    [[nodiscard]] bool read(const QString& key, std::optional<SettingsValue>& value);
    [[nodiscard]] bool readAll(QMap<QString, SettingsValue>& values);

    // Makes all the changes durable, or none. Writes only those chunks of data that differ from what is there.
    [[nodiscard]] bool write(const PendingChanges& changes);

    QString error() const { return m_database.error(); }

private:
    struct Statements;
    struct Entry;

    bool prepare();
    bool valueOf(const SqliteStatement& row, SettingsValue& value);
    bool readData(const SqliteStatement& row, QByteArray& bytes);
    bool find(const QString& key, Entry& entry);

    bool writeEach(const PendingChanges& changes);
    bool writeChange(const QString& key, const SettingsValue& value);
    bool writeChange(const QString& key, const PendingChanges::Tail& tail);
    bool writeChange(const QString& key, const PendingChanges::Removal& removal);
    bool writeData(Entry& entry, qint64 firstChunk, QByteArrayView bytes);
    bool writeChunk(qint64 row, QByteArrayView bytes);
    bool removeChunks(const Entry& entry, qint64 firstChunk);

    SqliteDatabase m_database;
    std::unique_ptr<Statements> m_statements; // gone before the connection
};

} // namespace tamsel
