#include "widgets/MomentText.h"

#include <array>
#include <ctime>

#include "foundation/system/LocalizedString.h"

namespace orv {

namespace {

std::string formatted(const std::tm& date, const char* format) {
    std::array<char, 32> text{};
    return {text.data(), std::strftime(text.data(), text.size(), format, &date)};
}

bool isSameDay(const std::tm& a, const std::tm& b) {
    return a.tm_year == b.tm_year && a.tm_yday == b.tm_yday;
}

}  // namespace

std::string MomentText(std::int64_t moment, std::int64_t now) {
    using quelm::FormatLocalizedString;
    std::tm date = {};
    std::tm today = {};
    const std::time_t then = moment;
    const std::time_t present = now;
    if (!localtime_r(&then, &date) || !localtime_r(&present, &today)) return "---";
    std::tm yesterday = today;
    --yesterday.tm_mday;
    yesterday.tm_hour = 12;  // no change of the clock is near
    yesterday.tm_isdst = -1;
    std::mktime(&yesterday);
    const std::string time = formatted(date, "%H:%M");
    if (isSameDay(date, today)) {
        return FormatLocalizedString("Moment.Today", "today at %@", {time});
    }
    if (isSameDay(date, yesterday)) {
        return FormatLocalizedString("Moment.Yesterday", "yesterday at %@", {time});
    }
    return FormatLocalizedString("Moment.Date", "%@ at %@", {formatted(date, "%Y-%m-%d"), time});
}

}  // namespace orv
