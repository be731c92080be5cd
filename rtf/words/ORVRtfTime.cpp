#include "ORVRtfTime_p.h"

namespace {

// Packed times have years from this one on, in 9 bits.
const int firstPackedYear = 1900;
const int mostPackedYears = 0x1FF;

} // namespace

QDateTime ORVRtfTime::dateTime() const
{
    const QDate date(year, month, day);
    const QTime time(hour, minute, second);
    return date.isValid() && time.isValid() ? QDateTime(date, time) : QDateTime();
}

ORVRtfTime ORVRtfTime::of(const QDateTime& time)
{
    ORVRtfTime result;
    result.year = time.date().year();
    result.month = time.date().month();
    result.day = time.date().day();
    result.hour = time.time().hour();
    result.minute = time.time().minute();
    result.second = time.time().second();
    return result;
}

ORVRtfTime ORVRtfTime::fromPacked(quint32 bits)
{
    ORVRtfTime time;
    time.minute = int(bits & 0x3F);
    time.hour = int(bits >> 6 & 0x1F);
    time.day = int(bits >> 11 & 0x1F);
    time.month = int(bits >> 16 & 0xF);
    time.year = int(bits >> 20 & 0x1FF) + firstPackedYear;
    return time;
}

quint32 ORVRtfTime::packed() const
{
    const int years = year - firstPackedYear;
    const QDate date(year, month, day);
    if (years < 0 || years > mostPackedYears || !date.isValid())
        return 0;
    const quint32 weekday = quint32(date.dayOfWeek() % Qt::Sunday);
    return quint32(minute) | quint32(hour) << 6 | quint32(day) << 11 | quint32(month) << 16
        | quint32(years) << 20 | weekday << 29;
}
