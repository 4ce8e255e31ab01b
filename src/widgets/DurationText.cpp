#include "widgets/DurationText.h"

#include <array>
#include <fmt/format.h>

#include "foundation/system/LocalizedString.h"

namespace orv {

namespace {

struct DurationUnit {
    int DateComponents::*count;
    /// Units of a coarser group hide those of the finer ones.
    int group;
    quelm::LocalizedText one;
    quelm::LocalizedText several;
};

constexpr std::array durationUnits = {
    DurationUnit{&DateComponents::years,
                 0,
                 {"DateComponents.year", "year"},
                 {"DateComponents.years", "years"}},
    DurationUnit{&DateComponents::months,
                 0,
                 {"DateComponents.month", "month"},
                 {"DateComponents.months", "months"}},
    DurationUnit{
        &DateComponents::days, 0, {"DateComponents.day", "day"}, {"DateComponents.days", "days"}},
    DurationUnit{&DateComponents::hours,
                 1,
                 {"DateComponents.hour", "hour"},
                 {"DateComponents.hours", "hours"}},
    DurationUnit{&DateComponents::minutes,
                 1,
                 {"DateComponents.minute", "minute"},
                 {"DateComponents.minutes", "minutes"}},
    DurationUnit{&DateComponents::seconds,
                 2,
                 {"DateComponents.second", "second"},
                 {"DateComponents.seconds", "seconds"}},
};

}  // namespace

std::string durationString(const DateComponents& components) {
    std::string text;
    int shownGroup = 0;
    for (const DurationUnit& unit : durationUnits) {
        const int count = components.*unit.count;
        if (!text.empty() && unit.group != shownGroup) break;
        if (count == 0) continue;
        const auto& word = count < 2 ? unit.one : unit.several;
        text += fmt::format("{}{} {}", text.empty() ? "" : " ", count,
                            quelm::GetLocalizedString(word.key, word.defaultText));
        shownGroup = unit.group;
    }
    return text;
}

}  // namespace orv
