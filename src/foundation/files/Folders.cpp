#include "foundation/files/Folders.h"

#include <cerrno>
#include <sys/stat.h>
#include <vector>

#include "foundation/files/AccessListCopy.h"
#include "foundation/files/Existence.h"
#include "foundation/paths/Paths.h"

namespace quelm::os {

namespace {}  // namespace

EStatusCode CreateRootFolder(const std::string& path) {
    return StatusOfCall(mkdir(path.c_str(), 0700));
}

EStatusCode CreateFolder(const std::string& path) {
    const EStatusCode status = StatusOfCall(mkdir(path.c_str(), 0755));
    if (status == EStatusCode::SUCCESS) static_cast<void>(CopyFolderAcl(path));
    return status;
}

EStatusCode RecursiveCreateFolder(const std::string& path) {
    std::vector<std::string> missing;
    for (std::string folder = path; !IsFolder(folder);) {
        const std::string parent(RemoveLastPathComponent(folder));
        if (parent.empty() || parent == "/") return EStatusCode::INVALID_PATH;
        missing.push_back(std::move(folder));
        folder = parent;
    }
    for (; !missing.empty(); missing.pop_back()) {
        // "a/" after "a" names a folder that the step before has made
        if (IsFolder(missing.back())) continue;
        const EStatusCode status = CreateFolder(missing.back());
        if (status != EStatusCode::SUCCESS) return status;
    }
    return EStatusCode::SUCCESS;
}

}  // namespace quelm::os
