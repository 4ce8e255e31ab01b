#include "sync/folders/ProjectListFile.h"

#include <algorithm>
#include <cstdio>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

#include "foundation/files/Existence.h"
#include "foundation/files/StatusCode.h"
#include "foundation/files/WholeFile.h"
#include "foundation/paths/Paths.h"
#include "foundation/system/Log.h"
#include "platform/FileDescriptor.h"
#include "sync/folders/ProjectFolderNames.h"

namespace quelm::sync {

namespace {

/// Some 200,000 project folders.
constexpr std::size_t mostBytes = std::size_t{16} << 20U;

using Stream = std::unique_ptr<std::FILE, decltype(&std::fclose)>;

/// Empties the file or makes it; a link in its place fails.
Stream openToWrite(const std::string& path) {
    constexpr int flags = O_WRONLY | O_CREAT | O_TRUNC | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC;
    platform::FileDescriptor fd(open(path.c_str(), flags, 0666));
    Stream stream(fd ? fdopen(fd.get(), "w") : nullptr, std::fclose);
    if (stream) static_cast<void>(fd.release());
    return stream;
}

/// Calls `take` with every line, without its line feed; the last may lack it.
template <class Take>
void forEachLine(std::string_view text, Take take) {
    while (!text.empty()) {
        const auto line = text.substr(0, text.find('\n'));
        take(line);
        text.remove_prefix(std::min(line.size() + 1, text.size()));
    }
}

}  // namespace

CProjectListFile::CProjectListFile(std::string path, std::string masterFolder)
    : path_(std::move(path)), masterFolder_(std::move(masterFolder)) {}

CProjectListFile::CProjectListFile(const std::string& userId, const std::string& cacheFolder,
                                   std::string masterFolder)
    : CProjectListFile(cacheFolder + "/" + projectListPrefix + userId, std::move(masterFolder)) {}

bool CProjectListFile::Exists() const {
    struct stat info = {};
    return stat(path_.c_str(), &info) == 0 && S_ISREG(info.st_mode);
}

bool CProjectListFile::Discard() {
    static_cast<void>(os::StatusOfCall(unlink(path_.c_str())));
    loaded_ = false;
    entries_.clear();
    return !Exists();
}

bool CProjectListFile::Load() {
    if (loaded_) return true;
    entries_.clear();
    const auto text = ReadWholeFile(path_, mostBytes, FileLock::None);
    if (!text) return false;
    const std::string_view first = std::string_view(*text).substr(0, text->find('\n'));
    const bool isCurrent = IsCurrentProjectLine(first);
    forEachLine(*text, [&](std::string_view line) {
        if (!isCurrent) return addOldLine(line);
        if (auto entry = ParseProjectLine(line)) entries_.push_back(std::move(*entry));
    });
    return loaded_ = true;
}

/// A folder with a cache folder of its own is a root of its own; one directly in the master folder
/// brings that along.
void CProjectListFile::addOldLine(std::string_view line) {
    auto entry = ParseOldProjectLine(line);
    if (!entry) return;
    if (IsNameTaken(entry->path + "/" + FILE_CACHE_FOLDER_NAME)) {
        entry->rootType = EXTERNAL_PROJECT_FOLDER;
    } else if (const auto parent = RemoveLastPathComponent(entry->path);
               !masterFolder_.empty() && masterFolder_ == parent) {
        AddProjectFolder(FS_TYPE_REGULAR, MASTER_PROJECT_FOLDER, masterFolder_, true);
    }
    entries_.push_back(std::move(*entry));
}

void CProjectListFile::Store() const {
    const Stream stream = openToWrite(path_);
    if (!stream) return;
    for (const SProjectListEntry& entry : entries_) {
        const auto line = ProjectLineOf(entry);
        if (!line) {
            LogError("A project folder cannot stand in the list " + path_ + ": " + entry.path);
            continue;
        }
        const std::string text = *line + "\n";
        std::fwrite(text.data(), 1, text.size(), stream.get());
        std::fflush(stream.get());
    }
}

void CProjectListFile::AddProjectFolder(EFsType fsType, ESyncRootType rootType,
                                        const std::string& path, bool isDefault) {
    if (std::ranges::find(entries_, path, &SProjectListEntry::path) != entries_.end()) return;
    entries_.push_back({fsType, rootType, "", path, isDefault});
}

CProjectListFile::Entries::const_iterator CProjectListFile::FindByProjectId(
    const std::string& projectId) const {
    return std::ranges::find(entries_, projectId, &SProjectListEntry::projectId);
}

}  // namespace quelm::sync
