#include "app/App.h"

#include "platform/Log.h"

#include <QFileInfo>

#include <cstdio>
#include <optional>
#include <utility>

namespace tamsel {

namespace {

void reportAudioSessionFailure(const QString& error) {
    const QString line = QStringLiteral("Failed to set audio session category.  Error: ") + error;
    log(line);
    // For the system's log as well, which collects standard error.
    std::fprintf(stderr, "%s\n", line.toUtf8().constData());
}

// A step that fails ends the rest; the program goes on.
void configureAudioSession(AudioSession& session) {
    if (const auto error = session.setCategory(AudioSession::Category::Playback, AudioSession::Mixing::Exclusive)) {
        reportAudioSessionFailure(*error);
        return;
    }
    if (const auto error = session.activate()) {
        reportAudioSessionFailure(*error);
        return;
    }
    session.beginReceivingRemoteControlEvents();
}

// Empty for a store that lies in no file.
QString dataFolder(const SettingsStore& store) {
    const QFileInfo file(store.location());
    return file.isAbsolute() ? file.path() : QString();
}

} // namespace

App::App(SettingsStore& settingsStore, const Platform& platform, AudioOutput& audioOutput, AudioSession& audioSession,
         int acceleration, std::optional<JournalReading> journal, TipProvider* tipProvider,
         Backups::WorkQueue backupQueue)
    : m_singletons(settingsStore, platform, audioOutput, audioSession, std::move(journal)),
      m_backups(settingsStore, platform, dataFolder(settingsStore), std::move(backupQueue)),
      m_coordinator(m_singletons, platform, acceleration, tipProvider) {
    configureAudioSession(audioSession);
    m_content.emplace(m_singletons, platform, m_coordinator, m_backups);
    m_backups.begin();
}

} // namespace tamsel
