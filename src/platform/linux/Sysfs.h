#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

/// The kernel's tree of devices. Device folders are canonical paths below its "devices". Any
/// thread.
class Sysfs {
 public:
    explicit Sysfs(const std::string& root = "/sys");

    /// Whether there is such a tree at all.
    [[nodiscard]] bool present() const { return !devices_.empty(); }
    /// Whether this is a device folder's path, though perhaps of one that is gone.
    [[nodiscard]] bool holds(std::string_view folder) const;

    /// All devices of a class ("net", "block"), sorted by name.
    [[nodiscard]] std::vector<std::string> classFolders(std::string_view className) const;
    /// A block device by its kernel name ("sda1", "dm-0").
    [[nodiscard]] std::optional<std::string> blockFolder(std::string_view name) const;
    /// A block device by the name it has under "/dev/mapper".
    [[nodiscard]] std::optional<std::string> mappedBlockFolder(std::string_view name) const;
    [[nodiscard]] std::optional<std::string> blockFolder(unsigned major, unsigned minor) const;
    /// The next device above; none for the topmost.
    [[nodiscard]] std::optional<std::string> parentDevice(std::string_view folder) const;

 private:
    [[nodiscard]] std::optional<std::string> deviceAt(const std::string& path) const;

    std::string root_;
    std::string devices_;
};

/// An attribute of a device: at most 4 KiB, as it stands. None when it cannot be read.
[[nodiscard]] std::optional<std::string> ReadRawAttribute(const std::string& folder,
                                                          std::string_view name);
/// The same without blanks and zero bytes around it; none when nothing or a control character
/// remains.
[[nodiscard]] std::optional<std::string> ReadAttribute(const std::string& folder,
                                                       std::string_view name);
[[nodiscard]] std::optional<unsigned> ReadNumber(const std::string& folder, std::string_view name);
/// Text without blanks and zero bytes around it; none when nothing or a control character remains.
[[nodiscard]] std::optional<std::string> CleanText(std::string_view text);

[[nodiscard]] bool HasFile(const std::string& folder, std::string_view name);
/// Sorted; empty when the folder cannot be read.
[[nodiscard]] std::vector<std::string> NamesIn(const std::string& folder);
[[nodiscard]] std::string LastComponent(std::string_view path);
/// Whether the name stands for exactly one folder entry: no "/", not "." or "..".
[[nodiscard]] bool IsPlainName(std::string_view name);

/// The disk of a partition's folder, else the folder itself.
[[nodiscard]] std::string WholeDisk(const std::string& folder);

}  // namespace platform
