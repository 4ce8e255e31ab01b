#include "widgets/TimeText.h"

#include <array>

#include "foundation/system/LocalizedString.h"

namespace orv {

namespace {

using quelm::FormatLocalizedString;
using quelm::LocalizedText;

struct Words {
    LocalizedText one;
    LocalizedText several;
};

constexpr Words hourWords = {{"Time.Hour", "1 hour "}, {"Time.XHours", "%d hours "}};
constexpr Words minuteWords = {{"Time.Minute", "1 minute "}, {"Time.XMinutes", "%d minutes "}};
constexpr Words secondWords = {{"Time.Second", "1 second "}, {"Time.XSeconds", "%d seconds "}};

/// With a blank behind it; empty for 0 and less.
std::string part(std::int64_t count, const Words& words) {
    if (count < 1) return {};
    if (count == 1) return quelm::GetLocalizedString(words.one.key, words.one.defaultText);
    return FormatLocalizedString(words.several.key, words.several.defaultText, {count});
}

void removeLastCharacter(std::string& text) {
    const auto isInsideCharacter = [](char c) { return (c & '\xC0') == '\x80'; };
    while (text.size() > 1 && isInsideCharacter(text.back()))
        text.pop_back();
    if (!text.empty()) text.pop_back();
}

}  // namespace

std::string TimeIntervalToString(std::int64_t seconds) {
    const std::int64_t hours = seconds / 3600;
    const std::int64_t rest = seconds % 3600;
    std::string text = part(hours, hourWords) + part(rest / 60, minuteWords);
    if (hours == 0) text += part(rest % 60, secondWords);
    removeLastCharacter(text);
    return text;
}

std::string TimeEstimationToString(std::int64_t seconds, double bytesPerSecond) {
    constexpr double kilobyte = 1000;
    constexpr double megabyte = 1'000'000;
    if (!(bytesPerSecond >= 1.0)) {
        return quelm::GetLocalizedString("TimeEst.NoSpeed", "--- (0 KB per second)");
    }
    const std::string speed = bytesPerSecond < megabyte
                                  ? FormatLocalizedString("TimeEst.Kbs", " (%.1f KB per second)",
                                                          {bytesPerSecond / kilobyte})
                                  : FormatLocalizedString("TimeEst.Mbs", " (%.1f MB per second)",
                                                          {bytesPerSecond / megabyte});
    return TimeIntervalToString(seconds) + speed;
}

}  // namespace orv
