#include "config/PropertyFiles.h"

#include <fmt/format.h>
#include <string_view>

#include "config/DamagedFile.h"
#include "config/LockedFile.h"
#include "foundation/propertylist/PropertyList.h"
#include "foundation/system/Log.h"

namespace orv {

namespace {

using quelm::Value;

/// What a file of other data may hold at most, in bytes.
constexpr std::size_t maximumDataFile = std::size_t{256} << 20U;

quelm::PropertyListResult ReadPropertiesFile(const LockedFile& file) {
    const auto content = file.read(quelm::PropertyListLimits{}.bytes);
    if (content) return quelm::ReadPropertyList(content->view());
    return {std::nullopt, LastError()};
}

/// Present content that is neither sound nor empty is copied before it goes.
bool WritePropertiesFile(LockedFile& file, const std::string& path, const Value& properties,
                         bool isSound) {
    const auto text = quelm::WritePropertyList(properties);
    if (!text) {
        quelm::LogError(
            fmt::format("{}: its new content cannot be written as a property list", path));
        return false;
    }
    if (!isSound && !file.isEmpty() && !KeepDamagedFile(file, path)) return false;
    if (!file.replace(*text)) {
        quelm::LogError(fmt::format("{}: cannot be written: {}", path, LastError()));
        return false;
    }
    RememberSound(file, properties.type());
    return true;
}

/// Whether the file holds what the new content may take the place of: a list of its type.
bool holdsAnother(const LockedFile& file, const Value& properties) {
    if (IsKnownSound(file, properties.type())) return true;
    const auto present = ReadPropertiesFile(file).value;
    return present && present->type() == properties.type();
}

}  // namespace

std::optional<Value> LoadPropertiesFromFile(const std::string& path) {
    const LockedFile file(path);
    if (!file) return std::nullopt;
    auto [properties, error] = ReadPropertiesFile(file);
    if (properties) {
        RememberSound(file, properties->type());
    } else if (!file.isEmpty()) {
        quelm::LogError(fmt::format(
            "{} cannot be read and is not used: {}. Move it away to begin anew.", path, error));
    }
    return properties;
}

std::optional<Value> LoadArrayFromFile(const std::string& path) {
    return LoadPropertiesFromFile(path);
}

bool StorePropertiesToFile(const std::string& path, const Value& properties) {
    LockedFile file(path);
    if (!file) return false;
    static_cast<void>(WritePropertiesFile(file, path, properties, holdsAnother(file, properties)));
    return true;
}

bool StoreArrayToFile(const std::string& path, const Value& properties) {
    return StorePropertiesToFile(path, properties);
}

FileEdit EditPropertiesInFile(const std::string& path,
                              const std::function<bool(quelm::Dictionary&)>& edit) {
    LockedFile file(path);
    if (!file) return FileEdit::CannotOpen;
    auto properties = ReadPropertiesFile(file).value;
    const bool isSound = properties && properties->asDictionary() != nullptr;
    if (!isSound) properties = CreateEmptyProperties();
    if (!edit(*properties->asDictionary())) return FileEdit::Done;
    return WritePropertiesFile(file, path, *properties, isSound) ? FileEdit::Done
                                                                 : FileEdit::CannotWrite;
}

bool ChangePropertiesInFile(const std::string& path, const quelm::Dictionary& changes) {
    const auto merge = [&changes](quelm::Dictionary& properties) {
        for (const auto& [key, value] : changes)
            properties.set(key, value);
        return true;
    };
    return EditPropertiesInFile(path, merge) == FileEdit::Done;
}

bool LoadDataFromFile(const std::string& path, std::string& data) {
    data.clear();
    const LockedFile file(path);
    if (!file) return false;
    if (const auto content = file.read(maximumDataFile)) data = content->view();
    return true;
}

bool StoreDataToFile(const std::string& path, const void* data, std::uint32_t length) {
    LockedFile file(path);
    return file && file.replace({static_cast<const char*>(data), length});
}

quelm::Dictionary CreateEmptyProperties() {
    return {};
}

void DestroyProperties(std::optional<Value>& properties) {
    properties.reset();
}

}  // namespace orv
