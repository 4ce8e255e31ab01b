#include "config/AgentSettings.h"

#include <utility>

#include "config/Locations.h"
#include "config/PropertyAccess.h"
#include "config/PropertyFiles.h"
#include "foundation/texts/Utf8.h"

namespace orv {

namespace {

constexpr char separator = ',';

std::vector<std::string> split(const std::string& text) {
    std::vector<std::string> parts(1);
    for (const char c : text) {
        if (c == separator) {
            parts.emplace_back();
        } else {
            parts.back() += c;
        }
    }
    return parts;
}

std::string join(const std::vector<std::string>& parts) {
    std::string text;
    for (const std::string& part : parts) {
        if (&part != &parts.front()) text += separator;
        text += part;
    }
    return text;
}

// What a getter answers, as a property value.
template <typename T>
std::optional<quelm::Value> asValue(const T& value) {
    return value;
}
template <typename T>
std::optional<quelm::Value> asValue(const T* value) {
    return value ? std::optional<quelm::Value>(*value) : std::nullopt;
}
std::optional<quelm::Value> asValue(const std::optional<std::string>& value) {
    return value ? std::optional<quelm::Value>(*value) : std::nullopt;
}
std::optional<quelm::Value> asValue(const std::optional<std::vector<std::string>>& value) {
    return value ? std::optional<quelm::Value>(quelm::Array(value->begin(), value->end()))
                 : std::nullopt;
}

// The reverse, by the type of the setting; none for a value of another type.
std::optional<bool> typed(const BooleanSetting&, const quelm::Value& value) {
    return value.asBoolean() ? std::optional(*value.asBoolean()) : std::nullopt;
}
std::optional<std::int32_t> typed(const IntegerSetting&, const quelm::Value& value) {
    const auto* number = value.asInteger();
    if (!number || !std::in_range<std::int32_t>(*number)) return std::nullopt;
    return static_cast<std::int32_t>(*number);
}
std::optional<std::int64_t> typed(const LongSetting&, const quelm::Value& value) {
    return value.asInteger() ? std::optional(*value.asInteger()) : std::nullopt;
}
template <typename Text>
std::optional<std::string> typed(const Text&, const quelm::Value& value) {
    return value.asString() ? std::optional(*value.asString()) : std::nullopt;
}
std::optional<std::vector<std::string>> typed(const TextListSetting&, const quelm::Value& value) {
    return value.asString() ? std::optional(split(*value.asString())) : std::nullopt;
}

}  // namespace

orvAgentSettings::orvAgentSettings(const std::string& folder) {
    if (!folder.empty()) _settingsPath = folder + "/" + files::userInfo;
}

bool orvAgentSettings::load() {
    return _settingsPath && loadFromSpecificPath(std::string(*_settingsPath));
}

bool orvAgentSettings::loadFromSpecificPath(const std::string& path) {
    auto list = LoadPropertiesFromFile(path);
    if (list && list->asDictionary()) _settings = std::move(*list->asDictionary());
    _settingsPath = path;
    return true;
}

bool orvAgentSettings::store() {
    return _settingsPath && storeToSpecificPath(*_settingsPath);
}

bool orvAgentSettings::storeToSpecificPath(const std::string& path) {
    if (!ChangePropertiesInFile(path, _settings)) return false;
    auto list = LoadPropertiesFromFile(path);
    if (list && list->asDictionary()) _settings = std::move(*list->asDictionary());
    return true;
}

std::optional<std::string> orvAgentSettings::getStringProperty(const char* key) const {
    return GetStringProperty(_settings, key);
}

std::optional<quelm::Value> orvAgentSettings::value(const AgentSetting& setting) const {
    return std::visit([this](const auto& row) { return asValue(get(row)); }, setting);
}

bool orvAgentSettings::setValue(const AgentSetting& setting, const quelm::Value& value) {
    if (AccessOf(setting) == SettingAccess::ReadOnly) return false;
    const auto change = [&](const auto& row) {
        if constexpr (requires { this->set(row, *typed(row, value)); }) {
            const auto content = typed(row, value);
            return content && this->set(row, *content);
        } else {
            return false;
        }
    };
    return std::visit(change, setting);
}

bool orvAgentSettings::setUserId(const std::optional<std::string>& value) {
    if (value) return set(settings::userId, *value);
    RemoveProperty(_settings, settings::userId.key);
    return true;
}

bool orvAgentSettings::get(const BooleanSetting& setting) const {
    return GetBoolPropertyWithDefault(_settings, setting.key, setting.fallback);
}

std::int32_t orvAgentSettings::get(const IntegerSetting& setting) const {
    return GetIntPropertyWithDefault(_settings, setting.key, setting.fallback);
}

std::int64_t orvAgentSettings::get(const LongSetting& setting) const {
    return GetLongPropertyWithDefault(_settings, setting.key, setting.fallback);
}

double orvAgentSettings::get(const RealSetting& setting) const {
    return GetFloatPropertyWithDefault(_settings, setting.key, setting.fallback);
}

std::string orvAgentSettings::get(const TextSetting& setting) const {
    const auto text = GetStringProperty(_settings, setting.key);
    const bool isMissing = !text || (setting.emptyIsMissing && text->empty());
    return isMissing ? computed(setting.fallback) : *text;
}

std::optional<std::string> orvAgentSettings::get(const OptionalTextSetting& setting) const {
    return GetStringProperty(_settings, setting.key);
}

std::optional<std::vector<std::string>> orvAgentSettings::get(
    const TextListSetting& setting) const {
    const auto text = GetStringProperty(_settings, setting.key);
    return text ? std::optional(split(*text)) : std::nullopt;
}

const quelm::Array* orvAgentSettings::get(const ArraySetting& setting) const {
    const auto* value = GetArrayProperty(_settings, setting.key);
    return value ? value->asArray() : nullptr;
}

const quelm::Dictionary* orvAgentSettings::get(const DictionarySetting& setting) const {
    const auto* value = GetDictionaryProperty(_settings, setting.key);
    return value ? value->asDictionary() : nullptr;
}

bool orvAgentSettings::setText(const char* key, const std::string& value) {
    return quelm::IsXmlText(value) && SetStringProperty(_settings, key, value);
}

bool orvAgentSettings::set(const TextSetting& setting, const std::string& value) {
    if (setting.access == SettingAccess::WritableIfChanged && value == get(setting)) return true;
    return setText(setting.key, value);
}

bool orvAgentSettings::set(const OptionalTextSetting& setting, const std::string& value) {
    return setText(setting.key, value);
}

bool orvAgentSettings::set(const TextListSetting& setting, const std::vector<std::string>& value) {
    return setText(setting.key, join(value));
}

}  // namespace orv
