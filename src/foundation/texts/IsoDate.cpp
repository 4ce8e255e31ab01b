#include "foundation/texts/IsoDate.h"

#include <chrono>
#include <cmath>
#include <fmt/format.h>

namespace quelm {

namespace {

constexpr std::string_view form = "0000-00-00T00:00:00Z";

bool hasForm(std::string_view text) {
    if (text.size() != form.size()) return false;
    for (std::size_t i = 0; i < form.size(); ++i) {
        const bool isDigit = text[i] >= '0' && text[i] <= '9';
        if (form[i] == '0' ? !isDigit : text[i] != form[i]) return false;
    }
    return true;
}

int number(std::string_view digits) {
    int value = 0;
    for (const char c : digits)
        value = value * 10 + (c - '0');
    return value;
}

}  // namespace

std::optional<std::int64_t> ParseIsoDate(std::string_view text) {
    using namespace std::chrono;
    if (!hasForm(text)) return std::nullopt;
    const year_month_day date{year(number(text.substr(0, 4))),
                              month(static_cast<unsigned>(number(text.substr(5, 2)))),
                              day(static_cast<unsigned>(number(text.substr(8, 2))))};
    const int hour = number(text.substr(11, 2));
    const int minute = number(text.substr(14, 2));
    const int second = number(text.substr(17, 2));
    if (!date.ok() || hour > 23 || minute > 59 || second > 59) return std::nullopt;
    const auto time = sys_days(date) + hours(hour) + minutes(minute) + seconds(second);
    return duration_cast<seconds>(time.time_since_epoch()).count();
}

std::optional<std::string> FormatIsoDate(double secondsSince1970) {
    using namespace std::chrono;
    constexpr auto first = sys_seconds(sys_days(year(1) / 1 / 1)).time_since_epoch().count();
    constexpr auto end = sys_seconds(sys_days(year(10000) / 1 / 1)).time_since_epoch().count();
    const double whole = std::floor(secondsSince1970);
    if (!(whole >= static_cast<double>(first) && whole < static_cast<double>(end))) {
        return std::nullopt;
    }
    const sys_seconds time{seconds(static_cast<std::int64_t>(whole))};
    const auto midnight = floor<days>(time);
    const year_month_day date(midnight);
    const hh_mm_ss clock(time - midnight);
    return fmt::format("{:04}-{:02}-{:02}T{:02}:{:02}:{:02}Z", int{date.year()},
                       unsigned{date.month()}, unsigned{date.day()}, clock.hours().count(),
                       clock.minutes().count(), clock.seconds().count());
}

}  // namespace quelm
