#include "tavrone/formula/DateFunctions.h"

#include <algorithm>
#include <climits>

#include "tavrone/core/ObjectList.h"
#include "tavrone/core/Raise.h"
#include "tavrone/core/Wrappers.h"

namespace tavrone {
namespace {

constexpr char const *SOURCE = "cpp/formula/DateFunctions";

// Unchanged for what would stand before the first Julian day.
DateTime moved(DateTime const &value, long long seconds, int milliseconds = 0) {
  bool const isBefore = value.getTimeSpan().getTotalSeconds() + seconds < 0;
  return isBefore ? value : value + TimeSpan(seconds, milliseconds);
}

// Months since January of the year 0.
long long monthCount(DateTime const &value) {
  return value.getYear() * 12LL + value.getMonth() - 1;
}

DateTime movedByMonths(DateTime const &value, long long months) {
  long long const count = monthCount(value) + months;
  long long const year = (count < 0 ? count - 11 : count) / 12;
  if (year < INT_MIN || year > INT_MAX) return value;
  int const y = static_cast<int>(year);
  int const month = static_cast<int>(count - year * 12) + 1;
  int const date = value.getDate();
  bool const fits = date < 28 || Date::isDayInMonth(y, month, date);
  return DateTime(Date(y, month, fits ? date : Date::daysInMonth(y, month)), value.getTimePortion());
}

DateTime withDate(DateTime const &value, int date) {
  return DateTime(Date(value.getYear(), value.getMonth(), date), value.getTimePortion());
}

int toInt(long long value) {
  return static_cast<int>(std::clamp<long long>(value, INT_MIN, INT_MAX));
}

}  // namespace

bool DateFunctions::isWeekend(DateTime const &value) {
  int const day = dayOfWeek(value);
  return day == 1 || day == 7;
}

int DateFunctions::dayOfYear(DateTime const &value) {
  Date const first(value.getYear(), 1, 1);
  return toInt(value.getDatePortion().getTimeSpan().days() - first.getTimeSpan().days() + 1);
}

DateTime DateFunctions::addYears(DateTime const &value, int years) {
  return movedByMonths(value, years * 12LL);
}
DateTime DateFunctions::addMonths(DateTime const &value, int months) {
  return movedByMonths(value, months);
}
DateTime DateFunctions::addDays(DateTime const &value, int days) {
  return moved(value, static_cast<long long>(days) * TimeDefs::SECONDS_IN_DAY);
}
DateTime DateFunctions::addHours(DateTime const &value, int hours) {
  return moved(value, static_cast<long long>(hours) * TimeDefs::SECONDS_IN_HOUR);
}
DateTime DateFunctions::addMinutes(DateTime const &value, int minutes) {
  return moved(value, static_cast<long long>(minutes) * TimeDefs::SECONDS_IN_MINUTE);
}
DateTime DateFunctions::addSeconds(DateTime const &value, int seconds) {
  return moved(value, seconds);
}
DateTime DateFunctions::addMilliseconds(DateTime const &value, int milliseconds) {
  int const rest = milliseconds % 1000;
  return rest < 0 ? moved(value, milliseconds / 1000 - 1, rest + 1000) : moved(value, milliseconds / 1000, rest);
}

int DateFunctions::yearsBetween(DateTime const &first, DateTime const &second) {
  return monthsBetween(first, second) / 12;
}
int DateFunctions::monthsBetween(DateTime const &first, DateTime const &second) {
  long long months = monthCount(second) - monthCount(first);
  // The last one is not over yet.
  if (months > 0 && movedByMonths(first, months) > second) --months;
  if (months < 0 && movedByMonths(first, months) < second) ++months;
  return toInt(months);
}
int DateFunctions::daysBetween(DateTime const &first, DateTime const &second) {
  return toInt(secondsBetween(first, second) / TimeDefs::SECONDS_IN_DAY);
}
long long DateFunctions::secondsBetween(DateTime const &first, DateTime const &second) {
  return millisecondsBetween(first, second) / 1000;
}
// The difference of two spans has no sign, so it is taken here.
long long DateFunctions::millisecondsBetween(DateTime const &first, DateTime const &second) {
  TimeSpan const from = first.getTimeSpan();
  TimeSpan const to = second.getTimeSpan();
  return (to.getTotalSeconds() - from.getTotalSeconds()) * 1000 + to.getMilliseconds() - from.getMilliseconds();
}

DateTime DateFunctions::firstDayOfMonth(DateTime const &value) {
  return withDate(value, 1);
}
DateTime DateFunctions::lastDayOfMonth(DateTime const &value) {
  return withDate(value, daysInMonth(value.getYear(), value.getMonth()));
}

DateTime DateFunctions::parse(tvstring const &text, tvstring const &pattern) {
  try {
    return DateTime::fromString(text, pattern);
  } catch (TransformRuntimeException const &) {
    ObjectList texts;
    texts.add(StringObject(text));
    texts.add(StringObject(pattern));
    raiseCatalogued<TransformRuntimeException>("SRT563", texts, SOURCE);
  }
}
bool DateFunctions::isDate(tvstring const &text, tvstring const &pattern) {
  try {
    DateTime::fromString(text, pattern);
    return true;
  } catch (TransformRuntimeException const &) {
    return false;
  }
}

ISODateTime DateFunctions::toOffset(ISODateTime const &value, int minutes) {
  return ISODateTime(convert(value, value.getTimeZoneOffset(), minutes), minutes);
}
DateTime DateFunctions::convert(DateTime const &value, int from, int to) {
  return moved(value, (static_cast<long long>(to) - from) * TimeDefs::SECONDS_IN_MINUTE);
}

}  // namespace tavrone
