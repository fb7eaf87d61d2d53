#pragma once

#include "model/BackupFile.h"
#include "model/SettingsStore.h"
#include "platform/Observable.h"
#include "platform/Platform.h"
#include "platform/SerialQueue.h"

#include <functional>
#include <memory>
#include <optional>

namespace tamsel {

// Keeps dated copies of all data in a folder: one for each day on which something had changed, and one before each time
// that data is replaced. Main thread only; the copies are made and read again on a queue of their own.
class Backups {
public:
    using WorkQueue = std::unique_ptr<Queue>;
    // The line that says why no copy could be made; nothing when there is one.
    using Completion = std::function<void(const std::optional<QString>& failure)>;

    // `dataFolder` is where the settings file lies; empty for a store that lies in no file, of which no copies are made
    // until a folder is chosen.
    Backups(SettingsStore& userDefaults, const Platform& platform, const QString& dataFolder,
            WorkQueue queue = std::make_unique<SerialQueue>("Backups"));

    // Looks now and then, from soon after the start on, whether today's copy is to be made.
    void begin();

    // Where copies are made: the folder that the user chose, by default "backups" in the data folder. Empty for none.
    QString folder() const;
    bool folderIsChosen() const { return m_chosenFolder.has_value(); }
    // Nothing goes back to the default. The reason when nothing can be written there; the folder then stays what it
    // was.
    std::optional<QString> setFolder(const std::optional<QString>& folder);

    // Makes today's copy when there is none yet and something differs from the copy before it.
    void makeDaily();
    // Makes a copy of everything as it is now.
    void makeBeforeReplacing(Completion completion);

    // Runs the work on the queue of the copies, then `finish` on the main thread unless this object is gone.
    void onQueue(std::function<void()> work, std::function<void()> finish);

    // Why the last copy could not be made; nothing when it could.
    const std::optional<QString>& failure() const { return m_failure; }
    // A copy was made or could not be, or the folder is another one.
    Observable& changed() { return m_changed; }

private:
    void look();
    void make(const BackupFile& backup, Completion completion);
    // The day and time on the user's calendar.
    BackupFile now(BackupFile::Kind kind) const;

    SettingsStore& m_userDefaults;
    const Platform m_platform;
    const QString m_dataFolder;
    std::optional<QString> m_chosenFolder;
    std::optional<QString> m_failure;
    Observable m_changed;
    std::shared_ptr<Backups*> m_self = std::make_shared<Backups*>(this);
    WorkQueue m_queue;
};

} // namespace tamsel
