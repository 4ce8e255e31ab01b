#include <algorithm>
#include <fmt/format.h>
#include <fmt/ostream.h>
#include <ostream>
#include <vector>

#include "agentlink/AgentVocabulary.h"
#include "cli/Commands.h"
#include "cli/Complaint.h"
#include "cli/ReadableFile.h"
#include "cli/SettingText.h"
#include "cli/SettingsChange.h"
#include "cli/Spelling.h"
#include "cli/ValueText.h"
#include "config/AgentSettings.h"
#include "config/ConfigurationPath.h"
#include "config/Locations.h"
#include "foundation/system/LocalizedString.h"

namespace orv::cli {

namespace {

using quelm::FormatLocalizedString;

/// None, after a message, when there is a record that cannot be read.
std::optional<orvAgentSettings> loadRecord(Console& console) {
    const std::string folder = GetConfigurationPath();
    if (!IsAbsentOrReadable(folder + "/" + files::userInfo, quelm::Value::Type::Dictionary,
                            console)) {
        return std::nullopt;
    }
    std::optional<orvAgentSettings> record(folder);
    record->load();
    return record;
}

ExitCode unknownKey(Console& console, const std::string& key) {
    std::vector<std::string_view> keys;
    std::ranges::transform(AllAgentSettings(), std::back_inserter(keys), KeyOf);
    return Fail(
        console, ExitCode::Usage,
        FormatLocalizedString("Settings.UnknownKey", "%@ is no setting. The nearest one is %@.",
                              {key, NearestWord(key, keys)}));
}

ExitCode wrongType(Console& console, const AgentSetting& setting, const std::string& text) {
    return Fail(console, ExitCode::Usage,
                FormatLocalizedString("Settings.WrongType", "%@ is no value for %@: its type is %@",
                                      {text, KeyOf(setting), TypeNameOf(setting)}));
}

ExitCode readOnly(Console& console, const AgentSetting& setting) {
    return Fail(console, ExitCode::Failed,
                FormatLocalizedString("Settings.ReadOnly",
                                      "%@ is written by the agent and the server alone and was "
                                      "left as it is.",
                                      {KeyOf(setting)}));
}

std::string plainText(const std::optional<quelm::Value>& value) {
    const std::string* text = value ? value->asString() : nullptr;
    if (text) return *text;
    return value ? ValueAsJson(*value) : "";
}

}  // namespace

ExitCode ListSettings(const Arguments&, Console& console) {
    const auto record = loadRecord(console);
    if (!record) return ExitCode::Failed;
    quelm::Dictionary values;
    for (const AgentSetting& setting : AllAgentSettings()) {
        if (const auto value = record->value(setting)) values.set(KeyOf(setting), *value);
    }
    if (console.json) {
        fmt::print(console.out, "{}\n", ValueAsJson(values));
    } else {
        for (const auto& [key, value] : values)
            fmt::print(console.out, "{}: {}\n", key, ValueAsJson(value));
    }
    return ExitCode::Done;
}

ExitCode GetSetting(const Arguments& arguments, Console& console) {
    const AgentSetting* setting = FindAgentSetting(arguments[0]);
    if (!setting) return unknownKey(console, arguments[0]);
    const auto record = loadRecord(console);
    if (!record) return ExitCode::Failed;
    const auto value = record->value(*setting);
    if (console.json) {
        fmt::print(console.out, "{}\n", value ? ValueAsJson(*value) : "null");
    } else {
        fmt::print(console.out, "{}\n", plainText(value));
    }
    return ExitCode::Done;
}

ExitCode SetSetting(const Arguments& arguments, Console& console) {
    const AgentSetting* setting = FindAgentSetting(arguments[0]);
    if (!setting) return unknownKey(console, arguments[0]);
    if (AccessOf(*setting) == SettingAccess::ReadOnly) return readOnly(console, *setting);
    const auto value = ParseSetting(*setting, arguments[1]);
    if (!value) return wrongType(console, *setting, arguments[1]);
    auto record = loadRecord(console);
    if (!record) return ExitCode::Failed;
    if (!record->setValue(*setting, *value)) return wrongType(console, *setting, arguments[1]);
    MakeConfigurationFolder();
    if (!record->store()) {
        return Fail(console, ExitCode::Failed,
                    FormatLocalizedString("Settings.NotStored",
                                          "%@ cannot be written and was left as it is. Is its "
                                          "folder there, and is there room on the disk?",
                                          {GetConfigurationPath(files::userInfo)}));
    }
    AnnounceSettingsChange(HintAgentSettings, console);
    return ExitCode::Done;
}

}  // namespace orv::cli
