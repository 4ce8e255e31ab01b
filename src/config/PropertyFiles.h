#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "platform/Value.h"

namespace orv {

// The property-list files that the panel and the agent share. Every operation opens its file for
// reading and writing, makes it (mode 0600) when it is missing, waits for the exclusive lock and
// holds it to the end: each is atomic for every other user of these functions. Any thread; a
// window calls them from a worker, because another process may hold the lock.
//
// A file that is not empty and holds no property list of the type that is stored is copied to
// "NAME.damaged-TIME" beside it before it is overwritten; where that is not possible it is left as
// it is. Space for the new content is
// reserved before the first byte changes, so that a full disk leaves the old content.

/// Nothing for a file that cannot be opened, is empty or cannot be parsed; the last is logged.
[[nodiscard]] std::optional<quelm::Value> LoadPropertiesFromFile(const std::string& path);
[[nodiscard]] std::optional<quelm::Value> LoadArrayFromFile(const std::string& path);

/// False only when the file cannot be opened: a list that cannot be encoded or written leaves a
/// line in the log and still answers true.
bool StorePropertiesToFile(const std::string& path, const quelm::Value& properties);
bool StoreArrayToFile(const std::string& path, const quelm::Value& properties);

/// Sets every key of the changes in the file's dictionary and keeps its other keys; a file that
/// holds no dictionary counts as an empty one. False when the file cannot be opened or written,
/// which leaves it as it was.
[[nodiscard]] bool ChangePropertiesInFile(const std::string& path,
                                          const quelm::Dictionary& changes);

enum class FileEdit { CannotOpen, CannotWrite, Done };
/// Lets `edit` change the file's dictionary and writes it back if that answers true, all under one
/// lock. What holds no dictionary counts as an empty one.
[[nodiscard]] FileEdit EditPropertiesInFile(const std::string& path,
                                            const std::function<bool(quelm::Dictionary&)>& edit);

/// Empties `data`, then takes the file's bytes; false when the file cannot be opened.
[[nodiscard]] bool LoadDataFromFile(const std::string& path, std::string& data);
[[nodiscard]] bool StoreDataToFile(const std::string& path, const void* data, std::uint32_t length);

[[nodiscard]] quelm::Dictionary CreateEmptyProperties();
/// Gives the list's memory back early.
void DestroyProperties(std::optional<quelm::Value>& properties);

}  // namespace orv
