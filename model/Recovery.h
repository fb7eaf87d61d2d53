#pragma once

#include "model/DataFile.h"

#include <QDateTime>
#include <QString>

#include <optional>

// What can be done when the data of an earlier start cannot be used. Nobody else may have the file open.
namespace tamsel::recovery {

// Looks through the whole settings file: every page, every value, and the history, without which the program does not
// start. One line that names the file and says what is wrong; nothing when it can be used, or when there is none.
std::optional<QString> problemIn(const QString& settingsFile);

// Puts a copy of the backup into the settings file's place. What lay there stays beside it, its name extended by
// "-damaged-" and the moment. On failure one line that says why.
std::optional<QString> restore(const QString& backup, const QString& settingsFile, const QDateTime& now,
                               const datafile::Calls& calls = datafile::Calls::system());

// Marks that a program uses the data of a folder. The mark of one that was killed, or that stopped, is left behind, and
// tells the next start to look through everything.
class UseMark {
public:
    explicit UseMark(const QString& folder);
    // Removes the mark, unless `keep` was called.
    ~UseMark();
    UseMark(const UseMark&) = delete;
    UseMark& operator=(const UseMark&) = delete;

    // Whether an earlier program has left its mark.
    bool wasLeft() const { return m_wasLeft; }
    void keep() { m_isKept = true; }

private:
    const QString m_path;
    bool m_wasLeft = false;
    bool m_isKept = false;
};

} // namespace tamsel::recovery
