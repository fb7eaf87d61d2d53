#pragma once

#include "platform/Observable.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QList>
#include <QMap>
#include <QString>

#include <functional>
#include <optional>
#include <variant>

namespace tamsel {

// One value of the settings store. Arrays hold values of the other kinds.
struct SettingsValue {
    using Array = QList<SettingsValue>;

    std::variant<QByteArray, bool, qint64, double, Array> value;

    bool operator==(const SettingsValue&) const = default;
};

// The key-value store that everything persists into. Main thread only.
//
// A change is durable before the call that made it returns. Where that fails, the change is kept, is what every later
// read sees, is announced through `writeFailure`, and is tried again by `retryFailedWrites` until it is durable.
class SettingsStore {
public:
    virtual ~SettingsStore() = default;

    // The value under the key, or nothing. `data` and `array` yield nothing for a value of another kind; the plain
    // readers convert between the plain kinds (a number is true when it is not 0) and yield false, 0 or 0.0 otherwise.
    virtual std::optional<SettingsValue> value(const QString& key) const = 0;
    std::optional<QByteArray> data(const QString& key) const;
    std::optional<SettingsValue::Array> array(const QString& key) const;
    bool boolean(const QString& key) const;
    qint64 integer(const QString& key) const;
    double real(const QString& key) const;

    // Replaces what is under the key, of whatever kind it was.
    virtual void set(const QString& key, SettingsValue value) = 0;
    void setData(const QString& key, QByteArray bytes);
    void setArray(const QString& key, SettingsValue::Array values);
    void setBoolean(const QString& key, bool value);
    void setInteger(const QString& key, qint64 value);
    void setReal(const QString& key, double value);

    // Keeps the first `keptBytes` bytes of the data under the key and replaces everything behind them with `tail`: the
    // cheap way to extend a long document. Absent data counts as empty. `keptBytes` must not exceed the present length.
    virtual void replaceTail(const QString& key, qsizetype keptBytes, QByteArrayView tail) = 0;

    virtual void remove(const QString& key) = 0;

    // Every key with its value (dictionaryRepresentation). Costs a read of the whole store.
    virtual QMap<QString, SettingsValue> dictionaryRepresentation() const = 0;

    // All changes that `changes` makes become durable together, or none of them. May be nested; the outermost counts.
    virtual void atomically(const std::function<void()>& changes) = 0;

    // The line that tells which change is not on disk and why; nothing while all is durable.
    virtual std::optional<QString> writeFailure() const = 0;
    Observable& writeFailureChanged() { return m_writeFailureChanged; }

    // Tries the kept changes once more. True when nothing is left to write.
    virtual bool retryFailedWrites() = 0;

    // Names where the values live, for messages: a file's path, or "memory".
    virtual QString location() const = 0;

protected:
    void notifyWriteFailureChanged() const { m_writeFailureChanged.notify(); }

private:
    Observable m_writeFailureChanged;
};

} // namespace tamsel
