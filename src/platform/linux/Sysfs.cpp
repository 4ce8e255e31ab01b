#include "platform/linux/Sysfs.h"

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <filesystem>
#include <memory>

#include "platform/linux/BoundedFile.h"

namespace platform {

namespace {

constexpr std::size_t longestAttribute = 4096;  // a page, the most that sysfs writes
constexpr std::size_t mostNames = 65'536;

std::string canonical(const std::string& path) {
    const std::unique_ptr<char, decltype(&std::free)> resolved(::realpath(path.c_str(), nullptr),
                                                               &std::free);
    return resolved ? resolved.get() : "";
}

std::string within(std::string_view folder, std::string_view name) {
    return std::string(folder).append("/").append(name);
}

}  // namespace

Sysfs::Sysfs(const std::string& root)
    : root_(canonical(root)), devices_(root_.empty() ? "" : canonical(root_ + "/devices")) {}

bool Sysfs::holds(std::string_view folder) const {
    return present() && folder.size() > devices_.size() + 1 && folder.starts_with(devices_) &&
           folder[devices_.size()] == '/' && folder.find("/../") == std::string_view::npos &&
           !folder.ends_with("/..");
}

std::optional<std::string> Sysfs::deviceAt(const std::string& path) const {
    auto folder = canonical(path);
    if (!holds(folder)) return std::nullopt;
    return folder;
}

std::vector<std::string> Sysfs::classFolders(std::string_view className) const {
    const std::string folder = within(root_ + "/class", className);
    std::vector<std::string> folders;
    for (const auto& name : NamesIn(folder)) {
        if (auto device = deviceAt(within(folder, name))) folders.push_back(std::move(*device));
    }
    return folders;
}

std::optional<std::string> Sysfs::blockFolder(std::string_view name) const {
    if (!IsPlainName(name)) return std::nullopt;
    return deviceAt(within(root_ + "/class/block", name));
}

std::optional<std::string> Sysfs::mappedBlockFolder(std::string_view name) const {
    for (auto& folder : classFolders("block")) {
        if (ReadAttribute(folder, "dm/name") == name) return std::move(folder);
    }
    return std::nullopt;
}

std::optional<std::string> Sysfs::blockFolder(unsigned major, unsigned minor) const {
    return deviceAt(root_ + "/dev/block/" + std::to_string(major) + ":" + std::to_string(minor));
}

std::optional<std::string> Sysfs::parentDevice(std::string_view folder) const {
    while (holds(folder)) {
        folder = folder.substr(0, folder.rfind('/'));
        if (holds(folder) && HasFile(std::string(folder), "uevent")) return std::string(folder);
    }
    return std::nullopt;
}

std::optional<std::string> ReadRawAttribute(const std::string& folder, std::string_view name) {
    return ReadFileStart(within(folder, name), longestAttribute);
}

std::optional<std::string> ReadAttribute(const std::string& folder, std::string_view name) {
    const auto raw = ReadRawAttribute(folder, name);
    return raw ? CleanText(*raw) : std::nullopt;
}

std::optional<unsigned> ReadNumber(const std::string& folder, std::string_view name) {
    const auto text = ReadAttribute(folder, name).value_or("");
    unsigned number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
    return number;
}

std::optional<std::string> CleanText(std::string_view text) {
    constexpr std::string_view blanks(" \t\r\n\0", 5);
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos) return std::nullopt;
    text = text.substr(first, text.find_last_not_of(blanks) + 1 - first);
    const auto isControl = [](unsigned char c) { return c < 0x20 || c == 0x7F; };
    if (std::ranges::any_of(text, isControl)) return std::nullopt;
    return std::string(text);
}

bool HasFile(const std::string& folder, std::string_view name) {
    std::error_code ignored;
    return std::filesystem::exists(within(folder, name), ignored);
}

std::vector<std::string> NamesIn(const std::string& folder) {
    std::vector<std::string> names;
    std::error_code error;
    for (std::filesystem::directory_iterator entry(folder, error), end;
         !error && entry != end && names.size() < mostNames; entry.increment(error)) {
        names.push_back(entry->path().filename().string());
    }
    std::ranges::sort(names);
    return names;
}

std::string LastComponent(std::string_view path) {
    return std::string(path.substr(path.rfind('/') + 1));
}

bool IsPlainName(std::string_view name) {
    return !name.empty() && name != "." && name != ".." &&
           name.find_first_of(std::string_view("/\0", 2)) == std::string_view::npos;
}

std::string WholeDisk(const std::string& folder) {
    return HasFile(folder, "partition") ? folder.substr(0, folder.rfind('/')) : folder;
}

}  // namespace platform
