#pragma once

#include "app/Singletons.h"
#include "model/ShareFeature.h"
#include "platform/Observable.h"
#include "platform/Platform.h"
#include "reports/ItemColors.h"
#include "reports/PracticeTimeOverviewViewModel.h"
#include "reports/ReportDestinations.h"
#include "reports/TimeRange.h"
#include "reports/TimeRangeOption.h"
#include "reports/TopExercisesOverviewViewModel.h"

#include <QList>
#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include <memory>
#include <optional>

namespace tamsel {

// The history screen: what was practised in a range, at a glance. Main thread only.
class HistoryViewModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the history tab's stack")

    Q_PROPERTY(QString title READ title CONSTANT FINAL)
    // By its raw value; one that is not offered is ignored.
    Q_PROPERTY(int timeRange READ timeRangeValue WRITE selectTimeRange NOTIFY overviewsChanged FINAL)
    Q_PROPERTY(QList<tamsel::TimeRangeOption> timeRangeOptions READ timeRangeOptions NOTIFY overviewsChanged FINAL)
    Q_PROPERTY(tamsel::PracticeTimeOverviewViewModel* practiceTimeOverview READ practiceTimeOverview NOTIFY
                   overviewsChanged FINAL)
    Q_PROPERTY(tamsel::TopExercisesOverviewViewModel* topExercisesOverview READ topExercisesOverview NOTIFY
                   overviewsChanged FINAL)
    Q_PROPERTY(bool isEmpty READ isEmpty NOTIFY overviewsChanged FINAL)

public:
    // Works out nothing before the screen asks.
    HistoryViewModel(Singletons& singletons, const Platform& platform, ItemColors& colors, TimeRange timeRange);

    QString title() const { return QStringLiteral("History"); }
    TimeRange timeRange() const { return m_timeRange; }
    int timeRangeValue() const { return static_cast<int>(m_timeRange); }
    void selectTimeRange(int value);
    // Remembered as the preferred range.
    void setTimeRange(TimeRange timeRange);
    QList<TimeRange> ranges() const;
    QList<TimeRangeOption> timeRangeOptions() const { return tamsel::timeRangeOptions(ranges()); }

    // Of the present range; made anew whenever it or the journal changed.
    PracticeTimeOverviewViewModel* practiceTimeOverview();
    TopExercisesOverviewViewModel* topExercisesOverview();
    // No event was ever recorded.
    bool isEmpty() const { return m_singletons.history.events().isEmpty(); }

    ShareFeature& shareFeature() { return m_shareFeature; }
    Q_INVOKABLE void share() { m_shareFeature.share(); }

    // Each time the screen comes to be looked at: midnight may have passed since.
    Q_INVOKABLE void onAppear();
    Q_INVOKABLE void openPracticeTime();
    Q_INVOKABLE void openTopExercises();
    // Opens the day or month of a bar, counted from the oldest.
    Q_INVOKABLE void openBar(int bar);

Q_SIGNALS:
    void overviewsChanged();
    void historyDestinationRequested(const tamsel::destinations::FromHistoryView& destination);
    void barDestinationRequested(const tamsel::destinations::FromPracticeTimeDetailView& destination);

private:
    // What was made for the screen before stays until the next reload: the screen is still letting go of it.
    template <class T>
    struct Made {
        std::unique_ptr<T> current;
        std::unique_ptr<T> previous;

        void expire() { previous = std::move(current); }
    };

    void reload();
    // Made when first asked for.
    template <class T>
    T& present(Made<T>& made);

    Singletons& m_singletons;
    const Platform m_platform;
    ItemColors& m_colors;
    ShareFeature m_shareFeature;
    TimeRange m_timeRange;
    Made<PracticeTimeOverviewViewModel> m_practiceTime;
    Made<TopExercisesOverviewViewModel> m_topExercises;
    std::optional<int> m_madeOn; // the number of the day
    bool m_willReload = false;
    std::shared_ptr<HistoryViewModel*> m_self = std::make_shared<HistoryViewModel*>(this);
    Observable::Subscription m_subscription;
};

} // namespace tamsel
