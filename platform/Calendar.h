#pragma once

#include "platform/Date.h"

#include <QString>

#include <memory>

namespace tamsel {

// Gregorian days in one time zone. Main thread only.
class Calendar {
public:
    // An IANA name such as "Europe/Berlin"; a name that is unknown counts as UTC.
    explicit Calendar(const QString& zoneName);
    // The device's zone, as it is when the call is made.
    static Calendar device();

    Calendar(Calendar&&) noexcept;
    ~Calendar();

    // The first moment of the day that `date` lies in. Where the zone skips midnight, the day starts later.
    Date startOfDay(Date date) const;
    bool sameDay(Date a, Date b) const;
    // The moment at which the day of `date` is over: the start of the next one.
    Date startOfNextDay(Date date) const;

    QString zoneName() const;

private:
    struct Fields;
    std::unique_ptr<Fields> m_fields;
};

} // namespace tamsel
