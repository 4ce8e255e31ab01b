#include "foundation/system/LocalizedString.h"

#include <fmt/format.h>

#include "foundation/system/ApplicationBundle.h"
#include "foundation/system/Log.h"

namespace quelm {

std::string GetLocalizedString(std::string_view key, std::string_view defaultText) {
    const Bundle* bundle = getBundle();
    const std::string* text =
        bundle != nullptr ? bundle->localizedString(key, "Localizable") : nullptr;
    return text != nullptr ? *text : std::string(defaultText);
}

std::string FormatLocalizedString(std::string_view key, std::string_view defaultText,
                                  std::initializer_list<FormatArgument> arguments) {
    if (auto filled = FormatText(GetLocalizedString(key, defaultText), arguments)) return *filled;
    LogWarning(fmt::format("the translation of \"{}\" does not fit its arguments", key));
    return FormatText(defaultText, arguments).value_or(std::string(defaultText));
}

}  // namespace quelm
