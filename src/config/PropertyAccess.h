#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/Value.h"

namespace orv {

// Typed access to a property dictionary. A getter answers its default for a key that is missing or
// holds another type; without a default that is 0, false or nothing. Numbers of either kind are
// converted: fractions are dropped, an integer too wide keeps its low bits, a real out of range
// becomes the nearest number and not-a-number 0. Booleans are never converted.

[[nodiscard]] std::int32_t GetIntProperty(const quelm::Dictionary& properties, const char* key);
[[nodiscard]] std::int32_t GetIntPropertyWithDefault(const quelm::Dictionary& properties,
                                                     const char* key, std::int32_t fallback);
[[nodiscard]] std::int64_t GetLongProperty(const quelm::Dictionary& properties, const char* key);
[[nodiscard]] std::int64_t GetLongPropertyWithDefault(const quelm::Dictionary& properties,
                                                      const char* key, std::int64_t fallback);
[[nodiscard]] double GetFloatProperty(const quelm::Dictionary& properties, const char* key);
[[nodiscard]] double GetFloatPropertyWithDefault(const quelm::Dictionary& properties,
                                                 const char* key, double fallback);
[[nodiscard]] bool GetBoolProperty(const quelm::Dictionary& properties, const char* key);
[[nodiscard]] bool GetBoolPropertyWithDefault(const quelm::Dictionary& properties, const char* key,
                                              bool fallback);

[[nodiscard]] std::optional<std::string> GetStringProperty(const quelm::Dictionary& properties,
                                                           const char* key);
[[nodiscard]] std::string GetStringPropertyWithDefault(const quelm::Dictionary& properties,
                                                       const char* key,
                                                       const std::string& fallback);
/// A path, in the bytes that the file system uses.
[[nodiscard]] std::optional<std::string> GetFilesystemStringProperty(
    const quelm::Dictionary& properties, const char* key);
[[nodiscard]] std::string GetFilesystemStringPropertyWithDefault(
    const quelm::Dictionary& properties, const char* key, const std::string& fallback);

// Whatever is stored under the key, of any type; borrowed from the dictionary.
[[nodiscard]] const quelm::Value* GetArrayProperty(const quelm::Dictionary& properties,
                                                   const char* key);
[[nodiscard]] const quelm::Value* GetArrayPropertyWithDefault(const quelm::Dictionary& properties,
                                                              const char* key,
                                                              const quelm::Value* fallback);
[[nodiscard]] const quelm::Value* GetDictionaryProperty(const quelm::Dictionary& properties,
                                                        const char* key);
[[nodiscard]] const quelm::Value* GetDictionaryPropertyWithDefault(
    const quelm::Dictionary& properties, const char* key, const quelm::Value* fallback);

// The same for a row of an array; a row that is not there or no dictionary has no keys.
[[nodiscard]] bool GetBoolPropertyWithDefaultForRowInArray(const quelm::Array& array,
                                                           std::size_t row, const char* key,
                                                           bool fallback);
[[nodiscard]] std::optional<std::string> GetStringPropertyForRowInArray(const quelm::Array& array,
                                                                        std::size_t row,
                                                                        const char* key);

bool SetIntProperty(quelm::Dictionary& properties, const char* key, std::int32_t value);
bool SetLongProperty(quelm::Dictionary& properties, const char* key, std::int64_t value);
bool SetFloatProperty(quelm::Dictionary& properties, const char* key, double value);
bool SetBoolProperty(quelm::Dictionary& properties, const char* key, bool value);
/// False, with nothing changed, for text that is not UTF-8.
bool SetStringProperty(quelm::Dictionary& properties, const char* key, const std::string& value);
bool SetFilesystemStringProperty(quelm::Dictionary& properties, const char* key,
                                 const std::string& value);
void RemoveProperty(quelm::Dictionary& properties, const char* key);

}  // namespace orv
