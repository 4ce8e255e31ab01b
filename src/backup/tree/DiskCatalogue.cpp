#include "backup/tree/DiskCatalogue.h"

#include <algorithm>
#include <cerrno>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <string_view>
#include <sys/stat.h>

#include "backup/tree/ChildNames.h"
#include "backup/tree/MountPoints.h"
#include "backup/tree/TreeRules.h"
#include "foundation/paths/Paths.h"
#include "foundation/system/Log.h"
#include "foundation/texts/VisibleText.h"
#include "platform/FileDescriptor.h"

namespace orv {

namespace {

using FolderStream = std::unique_ptr<DIR, int (*)(DIR*)>;

/// Empty when it cannot be opened.
FolderStream openFolderStream(const std::string& path) {
    platform::FileDescriptor fd(::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    FolderStream stream(fd ? ::fdopendir(fd.get()) : nullptr, &::closedir);
    if (stream) static_cast<void>(fd.release());
    return stream;
}

bool isFolderEntry(DIR* stream, const dirent& entry) {
    if (entry.d_type != DT_UNKNOWN) return entry.d_type == DT_DIR;
    struct stat info = {};
    return ::fstatat(::dirfd(stream), entry.d_name, &info, AT_SYMLINK_NOFOLLOW) == 0 &&
           S_ISDIR(info.st_mode);
}

/// Null at the end, which has errno 0, and when reading fails.
const dirent* nextEntry(DIR* stream) {
    errno = 0;
    return ::readdir(stream);
}

}  // namespace

DiskCatalogue::DiskCatalogue(platform::Workspace& workspace, platform::Volumes& volumes)
    : workspace_(workspace) {
    for (const platform::Volume& volume : VolumesInSight(volumes)) {
        if (volume.pseudo) pseudo_.push_back(volume.mountPoint);
    }
    std::ranges::sort(pseudo_);
}

bool DiskCatalogue::isPseudo(const std::string& path) const {
    return std::ranges::binary_search(pseudo_, path);
}

FolderListing DiskCatalogue::list(const std::string& path) {
    FolderListing listing;
    const FolderStream stream = openFolderStream(path);
    if (!stream) return listing;
    listing.isReadable = true;
    auto hidden = workspace_.hiddenNames(path);
    std::ranges::sort(hidden);
    while (listing.folders.size() < mostFolders) {
        const dirent* const entry = nextEntry(stream.get());
        if (!entry) {
            listing.isReadable = errno == 0;
            break;
        }
        const std::string_view name = entry->d_name;
        if (name.starts_with('.') || !isFolderEntry(stream.get(), *entry)) continue;
        if (isPseudo(PathInFolder(path, name))) continue;
        const bool isHidden = std::ranges::binary_search(hidden, name);
        listing.folders.push_back(
            {std::string(name),
             workspace_.folderFlags(name) | (isHidden ? platform::InvisibleItem : 0U)});
    }
    if (listing.folders.size() == mostFolders)
        quelm::LogWarning(quelm::VisibleText(path) +
                          " has too many folders: some may be left out.");
    std::ranges::sort(listing.folders, [](const FolderEntry& a, const FolderEntry& b) {
        const int order = CompareWithoutCase(a.name, b.name);
        return order != 0 ? order < 0 : a.name < b.name;
    });
    return listing;
}

std::uint32_t DiskCatalogue::flags(const std::string& path) {
    return workspace_.folderFlags(quelm::GetLastPathComponent(path));
}

bool DiskCatalogue::isSymlink(const std::string& path) {
    struct stat info = {};
    return ::lstat(path.c_str(), &info) == 0 && S_ISLNK(info.st_mode);
}

}  // namespace orv
