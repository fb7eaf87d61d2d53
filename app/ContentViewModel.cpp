#include "app/ContentViewModel.h"

#include "platform/Log.h"

#include <QDir>

#include <chrono>

namespace tamsel {

namespace {
constexpr std::chrono::seconds retryInterval{2};
}

ContentViewModel::ContentViewModel(Singletons& singletons, const Platform& platform, const Coordinator& coordinator,
                                   Backups& backups)
    : m_singletons(singletons), m_platform(platform), m_tabViewModel(singletons, platform, coordinator),
      m_dataViewModel(singletons, platform, backups, [this] { leaveScreens(); }), m_leftPractice(singletons, platform),
      m_writeFailureSubscription(singletons.userDefaults.writeFailureChanged().subscribe([this] { storageChanged(); })),
      m_shareSubscription(m_tabViewModel.historyViewModel()->shareFeature().requested().subscribe(
          [this] { m_dataViewModel.setSheetIsPresented(true); })) {
    // A change may have failed while the stores were made.
    storageChanged();
}

QString ContentViewModel::storageWarning() const {
    if (!m_singletons.userDefaults.writeFailure())
        return {};
    return QStringLiteral("Your latest changes are not saved to disk yet. Tamsel keeps them and goes on trying.");
}

void ContentViewModel::storageChanged() {
    Q_EMIT storageWarningChanged();
    if (m_singletons.userDefaults.writeFailure() && !m_retryIsScheduled)
        scheduleRetry();
}

void ContentViewModel::scheduleRetry() {
    m_retryIsScheduled = true;
    m_platform.mainQueue.asyncAfter(retryInterval, [self = std::weak_ptr(m_self)] {
        const auto content = self.lock();
        if (!content)
            return;
        (*content)->m_retryIsScheduled = false;
        if (!(*content)->m_singletons.userDefaults.retryFailedWrites() && !(*content)->m_retryIsScheduled)
            (*content)->scheduleRetry();
    });
}

void ContentViewModel::open(const QString& request) {
    if (QDir::isAbsolutePath(request)) {
        openDocument(request);
        return;
    }
    const QUrl url(request);
    handleLaunchURL(url);
    // This is how a desktop may hand over a file.
    if (url.isLocalFile())
        openDocument(url.toLocalFile());
}

void ContentViewModel::handleLaunchURL(const QUrl& url) {
    log(QStringLiteral("launching app, unhandled url: ") + url.toString(QUrl::FullyEncoded));
}

void ContentViewModel::openDocument(const QString& path) {
    log(QStringLiteral("opening document: ") + path);
    m_dataViewModel.openDocument(path);
}

void ContentViewModel::leaveScreens() {
    for (NavigationStackViewModel* const stack : std::initializer_list<NavigationStackViewModel*>{
             m_tabViewModel.practiceNavigationStack(), m_tabViewModel.historyNavigationStack()}) {
        while (stack->depth() > 0)
            stack->pop();
    }
}

void ContentViewModel::leave() {
    m_tabViewModel.practiceNavigationStack()->leave();
}

} // namespace tamsel
