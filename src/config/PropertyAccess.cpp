#include "config/PropertyAccess.h"

#include <cmath>
#include <limits>

#include "foundation/texts/Utf8.h"

namespace orv {

namespace {

using quelm::Dictionary;
using quelm::Value;

template <typename Integer>
Integer fromReal(double value) {
    using Limits = std::numeric_limits<Integer>;
    if (std::isnan(value)) return 0;
    // the largest 64-bit integer is no double; the power of two above it is
    const double end = std::ldexp(1.0, Limits::digits);
    if (value >= end) return Limits::max();
    if (value < -end) return Limits::min();
    return static_cast<Integer>(value);
}

template <typename Integer>
Integer integerOf(const Value* value, Integer fallback) {
    if (value == nullptr) return fallback;
    if (const auto* integer = value->asInteger()) return static_cast<Integer>(*integer);
    if (const auto* real = value->asReal()) return fromReal<Integer>(*real);
    return fallback;
}

bool setText(Dictionary& properties, const char* key, const std::string& value) {
    if (!quelm::IsValidUtf8(value)) return false;
    properties.set(key, value);
    return true;
}

const Dictionary* rowOf(const quelm::Array& array, std::size_t row) {
    return row < array.size() ? array[row].asDictionary() : nullptr;
}

}  // namespace

std::int32_t GetIntProperty(const Dictionary& properties, const char* key) {
    return GetIntPropertyWithDefault(properties, key, 0);
}

std::int32_t GetIntPropertyWithDefault(const Dictionary& properties, const char* key,
                                       std::int32_t fallback) {
    return integerOf(properties.find(key), fallback);
}

std::int64_t GetLongProperty(const Dictionary& properties, const char* key) {
    return GetLongPropertyWithDefault(properties, key, 0);
}

std::int64_t GetLongPropertyWithDefault(const Dictionary& properties, const char* key,
                                        std::int64_t fallback) {
    return integerOf(properties.find(key), fallback);
}

double GetFloatProperty(const Dictionary& properties, const char* key) {
    return GetFloatPropertyWithDefault(properties, key, 0.0);
}

double GetFloatPropertyWithDefault(const Dictionary& properties, const char* key, double fallback) {
    const Value* value = properties.find(key);
    if (value == nullptr) return fallback;
    if (const auto* real = value->asReal()) return *real;
    if (const auto* integer = value->asInteger()) return static_cast<double>(*integer);
    return fallback;
}

bool GetBoolProperty(const Dictionary& properties, const char* key) {
    return GetBoolPropertyWithDefault(properties, key, false);
}

bool GetBoolPropertyWithDefault(const Dictionary& properties, const char* key, bool fallback) {
    const Value* value = properties.find(key);
    const bool* boolean = value != nullptr ? value->asBoolean() : nullptr;
    return boolean != nullptr ? *boolean : fallback;
}

std::optional<std::string> GetStringProperty(const Dictionary& properties, const char* key) {
    const Value* value = properties.find(key);
    const std::string* text = value != nullptr ? value->asString() : nullptr;
    return text != nullptr ? std::optional(*text) : std::nullopt;
}

std::string GetStringPropertyWithDefault(const Dictionary& properties, const char* key,
                                         const std::string& fallback) {
    return GetStringProperty(properties, key).value_or(fallback);
}

std::optional<std::string> GetFilesystemStringProperty(const Dictionary& properties,
                                                       const char* key) {
    return GetStringProperty(properties, key);
}

std::string GetFilesystemStringPropertyWithDefault(const Dictionary& properties, const char* key,
                                                   const std::string& fallback) {
    return GetStringProperty(properties, key).value_or(fallback);
}

const Value* GetArrayProperty(const Dictionary& properties, const char* key) {
    return properties.find(key);
}

const Value* GetArrayPropertyWithDefault(const Dictionary& properties, const char* key,
                                         const Value* fallback) {
    const Value* value = properties.find(key);
    return value != nullptr ? value : fallback;
}

const Value* GetDictionaryProperty(const Dictionary& properties, const char* key) {
    return GetArrayProperty(properties, key);
}

const Value* GetDictionaryPropertyWithDefault(const Dictionary& properties, const char* key,
                                              const Value* fallback) {
    return GetArrayPropertyWithDefault(properties, key, fallback);
}

bool GetBoolPropertyWithDefaultForRowInArray(const quelm::Array& array, std::size_t row,
                                             const char* key, bool fallback) {
    const Dictionary* properties = rowOf(array, row);
    return properties != nullptr ? GetBoolPropertyWithDefault(*properties, key, fallback)
                                 : fallback;
}

std::optional<std::string> GetStringPropertyForRowInArray(const quelm::Array& array,
                                                          std::size_t row, const char* key) {
    const Dictionary* properties = rowOf(array, row);
    return properties != nullptr ? GetStringProperty(*properties, key) : std::nullopt;
}

bool SetIntProperty(Dictionary& properties, const char* key, std::int32_t value) {
    properties.set(key, value);
    return true;
}

bool SetLongProperty(Dictionary& properties, const char* key, std::int64_t value) {
    properties.set(key, value);
    return true;
}

bool SetFloatProperty(Dictionary& properties, const char* key, double value) {
    properties.set(key, value);
    return true;
}

bool SetBoolProperty(Dictionary& properties, const char* key, bool value) {
    properties.set(key, value);
    return true;
}

bool SetStringProperty(Dictionary& properties, const char* key, const std::string& value) {
    return setText(properties, key, value);
}

bool SetFilesystemStringProperty(Dictionary& properties, const char* key,
                                 const std::string& value) {
    return setText(properties, key, value);
}

void RemoveProperty(Dictionary& properties, const char* key) {
    properties.erase(key);
}

}  // namespace orv
