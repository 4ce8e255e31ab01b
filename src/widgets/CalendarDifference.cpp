#include "widgets/CalendarDifference.h"

#include <ctime>
#include <utility>

namespace orv {

namespace {

/// `from` moved on by so many units of a calendar field; a day that a month lacks runs into the
/// next.
std::int64_t moved(std::int64_t from, int std::tm::*field, int count) {
    const std::time_t start = from;
    std::tm date = {};
    if (localtime_r(&start, &date) == nullptr) return from;
    date.*field += count;
    date.tm_isdst = -1;
    return std::mktime(&date);
}

/// How many whole units lie between; `from` is moved on by them.
int takeUnits(std::int64_t& from, std::int64_t to, int std::tm::*field) {
    constexpr int most = 10'000;
    int count = 0;
    std::int64_t reached = from;
    for (std::int64_t next = moved(from, field, 1); next > reached && next <= to && count < most;
         next = moved(from, field, count + 1)) {
        reached = next;
        ++count;
    }
    from = reached;
    return count;
}

}  // namespace

DateComponents CalendarDifference(std::int64_t from, std::int64_t to) {
    constexpr std::int64_t minute = 60;
    constexpr std::int64_t hour = 60 * minute;
    DateComponents difference;
    difference.years = takeUnits(from, to, &std::tm::tm_year);
    difference.months = takeUnits(from, to, &std::tm::tm_mon);
    difference.days = takeUnits(from, to, &std::tm::tm_mday);
    const std::int64_t rest = to > from ? to - from : 0;
    difference.hours = static_cast<int>(rest / hour);
    difference.minutes = static_cast<int>(rest % hour / minute);
    return difference;
}

}  // namespace orv
