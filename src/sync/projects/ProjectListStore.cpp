#include "sync/projects/ProjectListStore.h"

#include <cerrno>
#include <fmt/format.h>
#include <system_error>
#include <utility>

#include "foundation/files/Existence.h"
#include "foundation/files/ReplacedFile.h"
#include "foundation/propertylist/PropertyList.h"
#include "foundation/system/Log.h"

namespace orv {

std::optional<quelm::Array> ProjectListStore::load(const std::string& path) {
    if (!quelm::Exists(path)) return std::nullopt;
    auto list = quelm::ReadPropertyListFile(path, quelm::FileLock::None);
    quelm::Array* const rows = list.value ? list.value->asArray() : nullptr;
    if (rows) return std::move(*rows);
    quelm::LogError(
        fmt::format("The list of projects {} cannot be read: {}. It is made anew when the agent "
                    "answers.",
                    path, list.value ? "it is no array" : list.error));
    return std::nullopt;
}

void ProjectListStore::store(const quelm::Array& rows) {
    const auto failed = [path = path_](const std::string& reason) {
        quelm::LogError("Unable to save project list: " + path + ": " + reason);
    };
    auto text = quelm::WritePropertyList(rows);
    if (!text) return failed("it holds a text that no property list can hold");
    writer_.replaceWaiting([path = path_, failed, bytes = std::move(*text)] {
        if (!quelm::ReplaceFile(path, bytes)) {
            failed(std::generic_category().message(errno));
        }
    });
}

}  // namespace orv
