#include "foundation/files/FolderHandle.h"

#include <cerrno>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <string_view>
#include <sys/stat.h>
#include <sys/sysmacros.h>

namespace quelm::os {

std::optional<FolderHandle> FolderHandle::openAt(int folder, const std::string& name) {
    FolderHandle handle;
    handle.fd_ = FileDescriptor(
        openat(folder, name.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    struct statx info = {};
    if (!handle.fd_ ||
        statx(handle.fd_.get(), "", AT_EMPTY_PATH, STATX_INO | STATX_TYPE, &info) != 0) {
        return std::nullopt;
    }
    handle.identity_ = {makedev(info.stx_dev_major, info.stx_dev_minor), info.stx_ino};
    handle.mountPoint_ = (info.stx_attributes & STATX_ATTR_MOUNT_ROOT) != 0;
    return handle;
}

std::optional<FolderHandle> FolderHandle::openCanonical(const std::string& path) {
    auto handle = openAt(AT_FDCWD, "/");
    for (std::size_t start = 1; handle && start < path.size();) {
        const std::size_t end = std::min(path.find('/', start), path.size());
        handle = handle->openChild(path.substr(start, end - start));
        start = end + 1;
    }
    return handle;
}

std::optional<FolderHandle> FolderHandle::open(const std::string& path) {
    return openAt(AT_FDCWD, path);
}

std::optional<FolderHandle> FolderHandle::openChild(const std::string& name) const {
    return openAt(fd_.get(), name);
}

std::optional<FolderHandle> FolderHandle::openParent() const {
    return openAt(fd_.get(), "..");
}

std::optional<std::vector<FolderHandle::Entry>> FolderHandle::entries() const {
    // a second descriptor, because the stream closes its own
    FileDescriptor fd(openat(fd_.get(), ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    const std::unique_ptr<DIR, int (*)(DIR*)> stream(fd ? fdopendir(fd.get()) : nullptr, &closedir);
    if (!stream) return std::nullopt;
    static_cast<void>(fd.release());

    std::vector<Entry> found;
    while (const dirent* entry = readdir(stream.get())) {
        const std::string_view name = entry->d_name;
        if (name == "." || name == "..") continue;
        bool isFolder = entry->d_type == DT_DIR;
        if (entry->d_type == DT_UNKNOWN) {
            struct stat info = {};
            isFolder = fstatat(fd_.get(), entry->d_name, &info, AT_SYMLINK_NOFOLLOW) == 0 &&
                       S_ISDIR(info.st_mode);
        }
        found.push_back({std::string(name), isFolder});
    }
    return found;
}

bool FolderHandle::removeFile(const std::string& name) const {
    return unlinkat(fd_.get(), name.c_str(), 0) == 0;
}

bool FolderHandle::removeEmptyFolder(const std::string& name) const {
    return unlinkat(fd_.get(), name.c_str(), AT_REMOVEDIR) == 0;
}

}  // namespace quelm::os
