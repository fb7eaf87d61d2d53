#pragma once

#include "app/Singletons.h"
#include "list/Destinations.h"
#include "list/ListRowModel.h"
#include "metronome/MetronomeViewModel.h"
#include "model/PracticeSession.h"
#include "platform/Observable.h"
#include "platform/Platform.h"

#include <QList>
#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include <memory>
#include <optional>
#include <vector>

namespace tamsel {

// The practice list: today's sessions, the items that were not practised today, and the small metronome below them.
// Main thread only.
class PracticeListViewModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the navigation stack")

    Q_PROPERTY(QString dailyLogTitle READ dailyLogTitle NOTIFY dailyLogTitleChanged FINAL)
    Q_PROPERTY(tamsel::ListRowModel* dailyLogRows READ dailyLogRows CONSTANT FINAL)
    Q_PROPERTY(QString exercisesTitle READ exercisesTitle CONSTANT FINAL)
    Q_PROPERTY(tamsel::ListRowModel* exerciseRows READ exerciseRows CONSTANT FINAL)
    Q_PROPERTY(bool addExerciseAlertIsPresented READ addExerciseAlertIsPresented WRITE setAddExerciseAlertIsPresented
                   NOTIFY addExerciseAlertIsPresentedChanged FINAL)
    Q_PROPERTY(QString addExerciseAlertTextFieldText READ addExerciseAlertTextFieldText WRITE
                   setAddExerciseAlertTextFieldText NOTIFY addExerciseAlertTextFieldTextChanged FINAL)
    Q_PROPERTY(tamsel::MetronomeViewModel* metronomeViewModel READ metronomeViewModel CONSTANT FINAL)

public:
    PracticeListViewModel(Singletons& singletons, const Platform& platform);
    ~PracticeListViewModel() override;

    // Today's date and how long was practised; empty without a session today.
    const QString& dailyLogTitle() const { return m_dailyLogTitle; }
    ListRowModel* dailyLogRows() { return &m_dailyLogRows; }
    QString exercisesTitle() const { return QStringLiteral("Items"); }
    ListRowModel* exerciseRows() { return &m_exerciseRows; }
    MetronomeViewModel* metronomeViewModel() { return &m_metronomeViewModel; }

    bool addExerciseAlertIsPresented() const { return m_addExerciseAlertIsPresented; }
    // Closing the alert adds an item named as its text says, unless that is empty, and opens it.
    void setAddExerciseAlertIsPresented(bool presented);
    const QString& addExerciseAlertTextFieldText() const { return m_addExerciseAlertTextFieldText; }
    void setAddExerciseAlertTextFieldText(const QString& text);

    // Set when a screen is to open; taken by the navigation stack.
    std::optional<destinations::FromPracticeList> takeDestination();

    // Reads the stores again, on a later turn of the main queue.
    void asynchronouslyReloadData();

    Q_INVOKABLE void addTapped();
    Q_INVOKABLE void openExercise(int row);
    Q_INVOKABLE void openDailyLogRow(int row);
    // Each time the list appears: the small metronome takes charge of the one there is.
    Q_INVOKABLE void onAppear();

Q_SIGNALS:
    void dailyLogTitleChanged();
    void addExerciseAlertIsPresentedChanged();
    void addExerciseAlertTextFieldTextChanged();
    void destinationChanged();

private:
    void addExercise();
    void reload();
    void open(destinations::FromPracticeList destination);

    Singletons& m_singletons;
    const Platform m_platform;
    MetronomeViewModel m_metronomeViewModel;
    // Behind the rows, in their order.
    QList<PracticeSession> m_dailyLogSessions;
    QList<Exercise> m_exercises;
    ListRowModel m_dailyLogRows{this};
    ListRowModel m_exerciseRows{this};
    QString m_dailyLogTitle;
    bool m_isFirstLaunch = true; // until the list has appeared once
    bool m_addExerciseAlertIsPresented = false;
    QString m_addExerciseAlertTextFieldText;
    std::optional<destinations::FromPracticeList> m_destination;
    std::shared_ptr<PracticeListViewModel*> m_self = std::make_shared<PracticeListViewModel*>(this);
    std::vector<Observable::Subscription> m_subscriptions;
};

} // namespace tamsel
