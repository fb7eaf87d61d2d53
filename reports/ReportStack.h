#pragma once

#include "app/Singletons.h"
#include "platform/Platform.h"
#include "reports/ItemColors.h"
#include "reports/ReportDestinations.h"

#include <QAbstractListModel>
#include <QHash>
#include <QtQml/qqmlregistration.h>

#include <memory>
#include <vector>

namespace tamsel {

// The report screens that lie over the screen they were opened from, as rows for a view: the last one is on top. Builds
// the screen behind each destination. Main thread only.
class ReportStack final : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made by the navigation of its tab")
    Q_PROPERTY(int count READ count NOTIFY countChanged FINAL)

public:
    // Which screen it is, and its model.
    enum Role { KindRole = Qt::UserRole + 1, ScreenRole };
    enum class Kind { PracticeTime, MostPracticed, Month, Day };
    Q_ENUM(Kind)

    ReportStack(Singletons& singletons, const Platform& platform, QObject* parent = nullptr);

    void open(const destinations::FromHistoryView& destination);
    void open(const destinations::FromPracticeTimeDetailView& destination);
    void open(const destinations::FromMonthReport& destination);
    // Back by one screen; does nothing without one.
    Q_INVOKABLE void pop();
    // Back to the screen below all.
    Q_INVOKABLE void clear();

    int count() const { return static_cast<int>(m_screens.size()); }
    // The model of the screen on top; null without one.
    QObject* top() const { return m_screens.empty() ? nullptr : m_screens.back().model.get(); }
    ItemColors& colors() { return m_colors; }

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

Q_SIGNALS:
    void countChanged();

private:
    struct Screen {
        Kind kind;
        std::unique_ptr<QObject> model;
    };

    void push(Kind kind, std::unique_ptr<QObject> model);
    void openDay(const DayOfEvents& day);
    void openMonth(const MonthOfEvents& month);

    Singletons& m_singletons;
    const Platform m_platform;
    ItemColors m_colors;
    std::vector<Screen> m_screens;
    // The screens that were left stay until the next one is opened: they are still being moved away.
    std::vector<Screen> m_left;
};

} // namespace tamsel
