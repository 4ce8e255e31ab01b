#include "platform/linux/MountInfoVolumes.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <system_error>
#include <utility>

#include "platform/linux/BoundedFile.h"
#include "platform/linux/DiskLocation.h"
#include "platform/linux/FileSystemKinds.h"
#include "platform/linux/MountTable.h"

namespace platform {

namespace {

constexpr std::size_t largestTable = std::size_t{32} * 1024 * 1024;
constexpr std::string_view deviceFolder = "/dev/";
constexpr std::string_view mapperFolder = "/dev/mapper/";

std::string errorText(int error) {
    return std::generic_category().message(error);
}

/// The entry for what statx tells of a path. A mount's number is exact where the kernel gives one;
/// of mounts on one device the last hides the others.
const MountEntry* findMount(const std::vector<MountEntry>& table, const struct statx& info) {
    const auto sameMount = [&](const MountEntry& entry) { return entry.id == info.stx_mnt_id; };
    const auto sameDevice = [&](const MountEntry& entry) {
        return entry.major == info.stx_dev_major && entry.minor == info.stx_dev_minor;
    };
    if ((info.stx_mask & STATX_MNT_ID) != 0) {
        const auto found = std::ranges::find_if(table, sameMount);
        if (found != table.end()) return &*found;
    }
    const auto last = std::find_if(table.rbegin(), table.rend(), sameDevice);
    return last != table.rend() ? &*last : nullptr;
}

/// What mounts tell of their device: what is true of one mount is true of the device.
std::optional<DiskDescription> describeMounts(const std::vector<Volume>& volumes,
                                              const std::string& device) {
    std::optional<DiskDescription> description;
    for (const auto& volume : volumes) {
        if (volume.device != device) continue;
        if (!description) description = DiskDescription{std::nullopt, false, false};
        if (!volume.readOnly) description->mediaWritable = true;
        if (!volume.local) description->network = true;
    }
    return description;
}

}  // namespace

MountInfoVolumes::MountInfoVolumes(std::string mountTable, const std::string& sysfsRoot,
                                   Reporter reporter)
    : mountTable_(std::move(mountTable)), sysfs_(sysfsRoot), unreadable_(std::move(reporter)) {}

std::vector<MountEntry> MountInfoVolumes::readTable() {
    const auto text = ReadFileStart(mountTable_, largestTable);
    if (text) return ParseMountTable(*text);
    unreadable_.report("The mount table " + mountTable_ + " cannot be read (" + errorText(errno) +
                       "): no volumes are known. Mount the proc file system.");
    return {};
}

std::vector<Volume> MountInfoVolumes::mounted() {
    std::vector<Volume> volumes;
    for (const auto& entry : readTable())
        volumes.push_back(describe(entry));
    return volumes;
}

Volumes::Lookup MountInfoVolumes::volumeOf(const std::string& path) {
    struct statx info = {};
    constexpr int flags = AT_STATX_DONT_SYNC | AT_NO_AUTOMOUNT;
    if (::statx(AT_FDCWD, path.c_str(), flags, STATX_MNT_ID, &info) != 0) {
        return {std::nullopt, errorText(errno)};
    }
    const auto table = readTable();
    if (const auto* entry = findMount(table, info)) return {describe(*entry), {}};
    return {std::nullopt, errorText(ENODEV)};
}

Volume MountInfoVolumes::describe(const MountEntry& entry) const {
    const bool local = !IsNetworkFileSystem(entry.fileSystem);
    return {.mountPoint = entry.mountPoint,
            .device = local ? localDevice(entry) : entry.source,
            .fileSystem = entry.fileSystem,
            .local = local,
            .readOnly = entry.readOnly,
            .pseudo = IsPseudoFileSystem(entry.fileSystem)};
}

std::string MountInfoVolumes::localDevice(const MountEntry& entry) const {
    if (entry.source == "/dev/root") {  // the kernel's word for what it mounted itself
        const auto folder = sysfs_.blockFolder(entry.major, entry.minor);
        if (folder) return std::string(deviceFolder) + LastComponent(*folder);
    }
    if (entry.source.starts_with(deviceFolder)) return entry.source;
    return std::string(deviceFolder) + entry.fileSystem;
}

std::optional<std::string> MountInfoVolumes::diskFolder(const std::string& device) const {
    if (!device.starts_with(deviceFolder)) return std::nullopt;
    const std::string name = device.substr(deviceFolder.size());
    if (auto folder = sysfs_.blockFolder(name)) return folder;
    if (device.starts_with(mapperFolder)) {
        auto folder = sysfs_.mappedBlockFolder(device.substr(mapperFolder.size()));
        if (folder) return folder;
    }
    struct stat info = {};
    if (::stat(device.c_str(), &info) != 0 || !S_ISBLK(info.st_mode)) return std::nullopt;
    return sysfs_.blockFolder(major(info.st_rdev), minor(info.st_rdev));
}

std::optional<DiskDescription> MountInfoVolumes::diskDescription(const std::string& device) {
    auto description = describeMounts(mounted(), device);
    const auto folder = diskFolder(device);
    if (!folder) return description;
    if (!description) description.emplace();
    const auto readOnly = ReadNumber(WholeDisk(*folder), "ro");
    description->mediaWritable = readOnly ? std::optional(*readOnly == 0) : std::nullopt;
    description->internal = IsInternalDisk(sysfs_, *folder);
    return description;
}

}  // namespace platform
