#include "reports/Formats.h"

#include "platform/Checked.h"
#include "platform/FatalError.h"
#include "platform/IcuText.h"
#include "platform/NumberText.h"
#include "platform/TimeUnits.h"

#include <unicode/gregocal.h>
#include <unicode/measfmt.h>
#include <unicode/measunit.h>
#include <unicode/measure.h>
#include <unicode/numberformatter.h>
#include <unicode/smpdtfmt.h>
#include <unicode/timezone.h>

#include <cmath>
#include <limits>
#include <memory>
#include <vector>

namespace tamsel {

namespace {

constexpr qint64 minutesPerDay = 1440;
constexpr double millisecondsPerSecond = 1000.0;

void require(UErrorCode status) {
    if (U_FAILURE(status))
        trap();
}

struct Amount {
    qint64 number;
    icu::MeasureUnit unit;
};

// The amounts that are not zero, or the last one alone when all are.
QString formatted(const icu::MeasureFormat& format, const std::vector<Amount>& amounts) {
    UErrorCode status = U_ZERO_ERROR;
    std::vector<icu::Measure> measures;
    for (std::size_t i = 0; i < amounts.size(); ++i) {
        const bool isLastResort = measures.empty() && i + 1 == amounts.size();
        if (amounts[i].number != 0 || isLastResort)
            measures.emplace_back(icu::Formattable(static_cast<int64_t>(amounts[i].number)),
                                  new icu::MeasureUnit(amounts[i].unit), status);
    }
    require(status);
    icu::UnicodeString text;
    icu::FieldPosition position(icu::FieldPosition::DONT_CARE);
    format.formatMeasures(measures.data(), static_cast<int32_t>(measures.size()), text, position, status);
    require(status);
    return fromIcu(text);
}

std::unique_ptr<icu::MeasureFormat> measureFormat(UMeasureFormatWidth width) {
    UErrorCode status = U_ZERO_ERROR;
    auto format = std::make_unique<icu::MeasureFormat>(icu::Locale::getDefault(), width, status);
    require(status);
    return format;
}

// A formatter of dates, made once. It is given what the zone's clocks show.
class DateText {
public:
    explicit DateText(icu::DateFormat* format) : m_format(format) {
        if (format == nullptr)
            trap();
        // The calendar's rules count for all time, as everywhere in Tamsel.
        std::unique_ptr<icu::Calendar> rules(format->getCalendar()->clone());
        if (auto* const gregorian = dynamic_cast<icu::GregorianCalendar*>(rules.get())) {
            UErrorCode status = U_ZERO_ERROR;
            gregorian->setGregorianChange(-std::numeric_limits<double>::max(), status);
            require(status);
            m_format->adoptCalendar(rules.release());
        }
        m_format->setTimeZone(*icu::TimeZone::getGMT());
    }
    static DateText pattern(const char16_t* pattern) {
        UErrorCode status = U_ZERO_ERROR;
        auto* const format = new icu::SimpleDateFormat(icu::UnicodeString(pattern), icu::Locale::getDefault(), status);
        require(status);
        return DateText(format);
    }
    // The language's own order and punctuation of these fields.
    static DateText skeleton(const char16_t* fields) {
        UErrorCode status = U_ZERO_ERROR;
        auto* const format =
            icu::DateFormat::createInstanceForSkeleton(icu::UnicodeString(fields), icu::Locale::getDefault(), status);
        require(status);
        return DateText(format);
    }

    QString of(Date date, const Calendar& calendar) const {
        icu::UnicodeString text;
        m_format->format(calendar.wallClock(date).unixSeconds() * millisecondsPerSecond, text);
        return fromIcu(text);
    }

private:
    std::unique_ptr<icu::DateFormat> m_format;
};

} // namespace

QString formattedTimeInterval(double seconds) {
    if (!std::isfinite(seconds) || std::abs(seconds) >= 9.2e18)
        fatalError(QStringLiteral("Unable to parse time. timeInterval = ") + decimalText(seconds));
    const qint64 whole = checkedTruncate(seconds);
    const auto padded = [](qint64 number) { return QStringLiteral("%1").arg(number, 2, 10, QLatin1Char('0')); };
    const QString sign = whole < 0 ? QStringLiteral("-") : QString();
    const qint64 size = whole < 0 ? -whole : whole;
    if (seconds > static_cast<double>(secondsPerHour)) {
        return sign + QStringLiteral("%1:%2:%3")
                          .arg(size / secondsPerHour)
                          .arg(padded(size / secondsPerMinute % secondsPerMinute), padded(size % secondsPerMinute));
    }
    return sign + padded(size / secondsPerMinute) + QLatin1Char(':') + padded(size % secondsPerMinute);
}

QString abbreviatedHoursAndMinutes(qint64 seconds) {
    static const auto format = measureFormat(UMEASFMT_WIDTH_NARROW);
    const qint64 minutes = seconds / secondsPerMinute;
    return formatted(*format, {{minutes / secondsPerMinute, icu::MeasureUnit::getHour()},
                               {minutes % secondsPerMinute, icu::MeasureUnit::getMinute()}});
}

QString sessionDurationText(qint64 seconds) {
    return seconds < secondsPerMinute ? formattedTimeInterval(static_cast<double>(seconds))
                                      : abbreviatedHoursAndMinutes(seconds);
}

QString sessionTypeText(SessionType type) {
    return type == SessionType::timer ? QStringLiteral("Timer") : QStringLiteral("Stopwatch");
}

QString spokenDuration(qint64 seconds) {
    static const auto format = measureFormat(UMEASFMT_WIDTH_WIDE);
    return formatted(*format, {{seconds / secondsPerHour, icu::MeasureUnit::getHour()},
                               {seconds / secondsPerMinute % secondsPerMinute, icu::MeasureUnit::getMinute()},
                               {seconds % secondsPerMinute, icu::MeasureUnit::getSecond()}});
}

QString fullHoursAndMinutes(qint64 seconds) {
    static const auto format = measureFormat(UMEASFMT_WIDTH_WIDE);
    const qint64 minutes = seconds / secondsPerMinute;
    return formatted(*format, {{minutes / secondsPerMinute, icu::MeasureUnit::getHour()},
                               {minutes % secondsPerMinute, icu::MeasureUnit::getMinute()}});
}

QString spokenMinutes(qint64 minutes) {
    // Every bar of a chart has one; a format of measures would take thirty times as long.
    static const auto format = icu::number::NumberFormatter::withLocale(icu::Locale::getDefault())
                                   .unit(icu::MeasureUnit::getMinute())
                                   .unitWidth(UNUM_UNIT_WIDTH_FULL_NAME);
    UErrorCode status = U_ZERO_ERROR;
    const icu::UnicodeString text = format.formatInt(minutes, status).toString(status);
    require(status);
    return fromIcu(text);
}

qint64 totalPracticeTime(const QList<HistoryEvent>& events) {
    qint64 minutes = 0;
    for (const HistoryEvent& event : events)
        minutes = checkedAdd(minutes, event.practiceTime);
    return minutes;
}

QString practiceTimeText(qint64 minutes) {
    if (minutes < minutesPerHour)
        return QStringLiteral("%1m").arg(minutes);
    const qint64 left = minutes % minutesPerHour;
    return left == 0 ? QStringLiteral("%1h").arg(minutes / minutesPerHour)
                     : QStringLiteral("%1h %2m").arg(minutes / minutesPerHour).arg(left);
}

QString totalPracticeTimeText(const QList<HistoryEvent>& events) {
    return practiceTimeText(totalPracticeTime(events));
}

QString totalPracticeTimeTextWithDays(const QList<HistoryEvent>& events) {
    const qint64 minutes = totalPracticeTime(events);
    if (minutes < minutesPerDay)
        return practiceTimeText(minutes);
    return QStringLiteral("%1d %2h %3m")
        .arg(minutes / minutesPerDay)
        .arg(minutes / minutesPerHour)
        .arg(minutes % minutesPerHour);
}

QString dayTitle(Date date, const Calendar& calendar) {
    static const DateText text = DateText::pattern(u"MM/dd/YY");
    return text.of(date, calendar);
}

QString monthTitle(Date date, const Calendar& calendar) {
    static const DateText text = DateText::pattern(u"MMM YYYY");
    return text.of(date, calendar);
}

QString longDayTitle(Date date, const Calendar& calendar) {
    static const DateText text = DateText::pattern(u"MMM dd YYYY");
    return text.of(date, calendar);
}

QString shortDate(Date date, const Calendar& calendar) {
    static const DateText text{icu::DateFormat::createDateInstance(icu::DateFormat::kShort, icu::Locale::getDefault())};
    return text.of(date, calendar);
}

QString spokenDay(Date date, const Calendar& calendar) {
    static const DateText text = DateText::skeleton(u"MMMMd");
    return text.of(date, calendar);
}

QString fullDay(Date date, const Calendar& calendar) {
    static const DateText text = DateText::skeleton(u"yMMMMd");
    return text.of(date, calendar);
}

QString spokenMonth(Date date, const Calendar& calendar) {
    static const DateText text = DateText::skeleton(u"yMMMM");
    return text.of(date, calendar);
}

QString weekdayMark(Date date, const Calendar& calendar) {
    static const DateText text = DateText::skeleton(u"ccc");
    return text.of(date, calendar);
}

QString dayMark(Date date, const Calendar& calendar) {
    static const DateText text = DateText::skeleton(u"MMMd");
    return text.of(date, calendar);
}

QString narrowMonthMark(Date date, const Calendar& calendar) {
    static const DateText text = DateText::skeleton(u"LLLLL");
    return text.of(date, calendar);
}

QString monthMark(Date date, const Calendar& calendar) {
    static const DateText text = DateText::skeleton(u"yyMMM");
    return text.of(date, calendar);
}

QString yearMark(Date date, const Calendar& calendar) {
    static const DateText text = DateText::skeleton(u"y");
    return text.of(date, calendar);
}

} // namespace tamsel
