#pragma once

#include "app/DataViewModel.h"
#include "app/LeftPracticeViewModel.h"
#include "app/Singletons.h"
#include "list/Coordinator.h"
#include "list/TabViewModel.h"
#include "model/Backups.h"
#include "platform/Observable.h"
#include "platform/Platform.h"

#include <QObject>
#include <QString>
#include <QUrl>
#include <QtQml/qqmlregistration.h>

#include <memory>

namespace tamsel {

// The root of the screens: the tabs, and what stands above all of them. Main thread only.
class ContentViewModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the app")

    Q_PROPERTY(tamsel::TabViewModel* tabViewModel READ tabViewModel CONSTANT FINAL)
    Q_PROPERTY(tamsel::DataViewModel* dataViewModel READ dataViewModel CONSTANT FINAL)
    Q_PROPERTY(tamsel::LeftPracticeViewModel* leftPractice READ leftPractice CONSTANT FINAL)
    Q_PROPERTY(QString storageWarning READ storageWarning NOTIFY storageWarningChanged FINAL)

public:
    ContentViewModel(Singletons& singletons, const Platform& platform, const Coordinator& coordinator,
                     Backups& backups);

    TabViewModel* tabViewModel() { return &m_tabViewModel; }
    DataViewModel* dataViewModel() { return &m_dataViewModel; }
    LeftPracticeViewModel* leftPractice() { return &m_leftPractice; }

    // While a change is not on disk yet: the sentence to show. It is tried again until it is.
    QString storageWarning() const;

    // What the program was asked to open, as launchRequests() gives it: a URL or the absolute path of a document.
    void open(const QString& request);
    // The program was opened with a URL. None is acted upon.
    void handleLaunchURL(const QUrl& url);
    // Shows what the document would replace, or why it cannot be used.
    void openDocument(const QString& path);

    // The window closes or the system ends the program: what runs is saved. Allowed more than once.
    Q_INVOKABLE void leave();

Q_SIGNALS:
    void storageWarningChanged();

private:
    void leaveScreens();
    void storageChanged();
    void scheduleRetry();

    Singletons& m_singletons;
    const Platform m_platform;
    TabViewModel m_tabViewModel;
    DataViewModel m_dataViewModel;
    LeftPracticeViewModel m_leftPractice;
    bool m_retryIsScheduled = false;
    std::shared_ptr<ContentViewModel*> m_self = std::make_shared<ContentViewModel*>(this);
    Observable::Subscription m_writeFailureSubscription;
    Observable::Subscription m_shareSubscription;
};

} // namespace tamsel
