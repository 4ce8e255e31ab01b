#include "accounts/SettingsError.h"

#include <initializer_list>
#include <system_error>

namespace orv {

const SettingsErrorTexts printersErrorTexts{
    {"Printers.Error", "Error %d: %s"},
    {"Printers.UnknownError", "Unknown error: domain %@, code %d, info: %@"},
    {"Printers.FilePath", "\nPath: %@"}};
const SettingsErrorTexts paneErrorTexts{
    {"PrefPane.Error", "Error %d: %s"},
    {"PrefPane.UnknownError", "Unknown error: domain %@, code %d, info: %@"},
    {"PrefPane.FilePath", "\nPath: %@"}};

namespace {

std::string filled(const quelm::LocalizedText& text,
                   std::initializer_list<quelm::FormatArgument> arguments) {
    return quelm::FormatLocalizedString(text.key, text.defaultText, arguments);
}

std::string posixText(const SettingsError& error, const SettingsErrorTexts& texts) {
    const std::string text =
        filled(texts.posix, {error.code, std::generic_category().message(error.code)});
    return error.description.empty() ? text : error.description + ".\n" + text;
}

std::string textWithoutPath(const SettingsError& error, const SettingsErrorTexts& texts) {
    if (error.domain == SettingsError::posixDomain) return posixText(error, texts);
    if (error.domain == SettingsError::settingsDomain) return error.description;
    return filled(texts.unknown, {error.domain, error.code, error.info});
}

}  // namespace

std::string TextOf(const SettingsError& error, const SettingsErrorTexts& texts) {
    std::string text = textWithoutPath(error, texts);
    if (error.filePath) text += filled(texts.filePath, {*error.filePath});
    return text;
}

}  // namespace orv
