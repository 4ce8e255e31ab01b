#include "accounts/SettingsError.h"

#include <system_error>

#include "foundation/system/LocalizedString.h"

namespace orv {

namespace {

using quelm::FormatLocalizedString;

std::string posixText(const SettingsError& error) {
    const std::string text =
        FormatLocalizedString("Printers.Error", "Error %d: %s",
                              {error.code, std::generic_category().message(error.code)});
    return error.description.empty() ? text : error.description + ".\n" + text;
}

std::string textWithoutPath(const SettingsError& error) {
    if (error.domain == SettingsError::posixDomain) return posixText(error);
    if (error.domain == SettingsError::settingsDomain) return error.description;
    return FormatLocalizedString("Printers.UnknownError",
                                 "Unknown error: domain %@, code %d, info: %@",
                                 {error.domain, error.code, error.info});
}

}  // namespace

std::string TextOf(const SettingsError& error) {
    std::string text = textWithoutPath(error);
    if (error.filePath) {
        text += FormatLocalizedString("Printers.FilePath", "\nPath: %@", {*error.filePath});
    }
    return text;
}

}  // namespace orv
