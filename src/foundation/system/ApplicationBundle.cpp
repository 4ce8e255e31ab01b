#include "foundation/system/ApplicationBundle.h"

#include <array>
#include <cstdlib>
#include <fmt/format.h>

#include "foundation/paths/Paths.h"
#include "foundation/propertylist/PropertyList.h"
#include "foundation/system/Log.h"

namespace quelm {

namespace {

constexpr std::array<std::string_view, 2> tableNames = {"Localizable", "notifications"};

const Bundle* sApplicationBundle = nullptr;

/// A language becomes part of a path: "de", "de_DE", "zh-Hans".
bool isLanguage(std::string_view text) {
    const auto isAllowed = [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
               c == '_' || c == '-';
    };
    return !text.empty() && text.size() <= 32 &&
           std::find_if_not(text.begin(), text.end(), isAllowed) == text.end();
}

void addLanguage(std::vector<std::string>& languages, std::string_view locale) {
    const std::string_view language = locale.substr(0, locale.find_first_of(".@"));
    if (!isLanguage(language) || language == "C" || language == "POSIX") return;
    languages.emplace_back(language);
    const auto country = language.find_first_of("_-");
    if (country != std::string_view::npos) languages.emplace_back(language.substr(0, country));
}

}  // namespace

Bundle::Bundle(std::string resourcesFolder, const std::vector<std::string>& languages)
    : resourcesFolder_(std::move(resourcesFolder)) {
    for (const std::string& language : languages)
        load(language);
    load("en");
}

void Bundle::load(const std::string& language) {
    for (const std::string_view name : tableNames) {
        const std::string path =
            fmt::format("{}/{}.lproj/{}.strings", resourcesFolder_, language, name);
        auto list = ReadPropertyListFile(path).value;
        Dictionary* texts = list ? list->asDictionary() : nullptr;
        if (texts != nullptr) tables_.push_back({std::string(name), std::move(*texts)});
    }
}

const std::string* Bundle::localizedString(std::string_view key, std::string_view table) const {
    for (const Table& candidate : tables_) {
        if (candidate.name != table) continue;
        const Value* text = candidate.texts.find(key);
        if (text != nullptr && text->asString() != nullptr) return text->asString();
    }
    return nullptr;
}

std::vector<std::string> PreferredLanguages() {
    std::vector<std::string> languages;
    for (const char* variable : {"LANGUAGE", "LC_ALL", "LC_MESSAGES", "LANG"}) {
        const char* value = std::getenv(variable);
        std::string_view list = value != nullptr ? value : "";
        while (!list.empty()) {
            addLanguage(languages, list.substr(0, list.find(':')));
            list.remove_prefix(std::min(list.find(':'), list.size() - 1) + 1);
        }
        if (!languages.empty()) break;
    }
    return languages;
}

void SetApplicationBundle(const Bundle* bundle) {
    sApplicationBundle = bundle;
}
const Bundle* getBundle() {
    return sApplicationBundle;
}

std::string FindResourcesFolder() {
    if (const char* application = std::getenv("TIDEWELL_APPLICATION")) {
        return std::string(application) + "/Contents/Resources";
    }
    const std::string program = GetAbsolutePath("/proc/self/exe");
    const std::string_view folder = RemoveLastPathComponent(RemoveLastPathComponent(program));
    return std::string(folder) + "/share/tidewell";
}

}  // namespace quelm
