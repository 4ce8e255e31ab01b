#include "foundation/files/SafeRemoval.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <fmt/format.h>
#include <optional>
#include <pwd.h>
#include <string_view>
#include <system_error>
#include <unistd.h>

#include "foundation/files/FolderHandle.h"
#include "foundation/paths/PathPrefix.h"
#include "foundation/paths/Paths.h"
#include "foundation/system/Log.h"

namespace quelm::os {

namespace {

constexpr std::size_t maximumRefusals = 100;

void refuse(RemovalReport& report, std::string path, EStatusCode status, std::string reason) {
    if (report.status == EStatusCode::SUCCESS) report.status = status;
    if (report.refused.size() == maximumRefusals) return;
    LogWarning(fmt::format("not removed: {}: {}", path, reason));
    report.refused.push_back({std::move(path), std::move(reason)});
}

void refuseForErrno(RemovalReport& report, std::string path) {
    const int error = errno;
    refuse(report, std::move(path), StatusCodeForErrno(error),
           std::generic_category().message(error));
}

/// Where the folder to remove really is.
struct Target {
    std::string parent;
    std::string name;
    [[nodiscard]] std::string path() const { return (parent == "/" ? "" : parent) + "/" + name; }
};

/// None, with the refusal in the report, for a path that names no folder to remove.
std::optional<Target> resolve(const std::string& path, RemovalReport& report) {
    const std::string trimmed(RemoveLastSlashFromPath(path));
    const std::string name(GetLastPathComponent(trimmed));
    if (!trimmed.starts_with('/') || trimmed.find('\0') != std::string::npos || name == "." ||
        name == "..") {
        refuse(report, path, EStatusCode::INVALID_PATH, "is not the absolute path of a folder");
        return std::nullopt;
    }
    if (trimmed == "/") {
        refuse(report, path, EStatusCode::PERMISSION_NOT_ALLOWED, "is the root of the system");
        return std::nullopt;
    }
    const std::string parent = std::string(RemoveLastPathComponent(trimmed)) + "/";
    char* resolved = realpath(parent.c_str(), nullptr);
    if (resolved == nullptr) {
        refuseForErrno(report, path);
        return std::nullopt;
    }
    Target target{resolved, name};
    std::free(resolved);
    return target;
}

std::vector<std::string> homeFolders() {
    std::vector<std::string> homes;
    if (const char* home = std::getenv("HOME"); home != nullptr && *home != '\0') {
        homes.push_back(GetAbsolutePath(home));
    }
    passwd entry = {};
    passwd* found = nullptr;
    std::vector<char> buffer(16384);
    if (getpwuid_r(getuid(), &entry, buffer.data(), buffer.size(), &found) == 0 &&
        found != nullptr) {
        homes.push_back(GetAbsolutePath(found->pw_dir));
    }
    return homes;
}

/// Why the canonical path must stay; empty when it may go.
std::string_view refusalReason(const std::string& path, const RemovalRules& rules,
                               RemovalIntent intent) {
    if (!rules.onlyWithin.empty() &&
        (path == rules.onlyWithin || !StartsWithPath(path, rules.onlyWithin))) {
        return "leads out of the folder that it belongs to";
    }
    for (const std::string& home : homeFolders()) {
        if (path == home) return "is the home folder";
        if (StartsWithPath(home, path)) return "contains the home folder";
    }
    bool isProtected = false;
    bool insideProtected = false;
    for (const std::string& folder : rules.protectedFolders) {
        const std::string canonical = GetAbsolutePath(std::string(RemoveLastSlashFromPath(folder)));
        if (path == canonical) {
            isProtected = true;
        } else if (StartsWithPath(canonical, path)) {
            return "contains the configuration of an account";
        } else if (StartsWithPath(path, canonical)) {
            insideProtected = true;
        }
    }
    if (intent == RemovalIntent::ProtectedFolder) {
        return isProtected ? "" : "is not the configuration of an account";
    }
    return isProtected || insideProtected ? "belongs to the configuration of an account" : "";
}

/// Empties a folder without recursion: one descriptor is open, whatever the depth, and going back
/// up is checked against the identity noted on the way down.
class Walk {
 public:
    Walk(std::string root, FolderHandle folder, RemovalReport& report)
        : root_(std::move(root)), current_(std::move(folder)), report_(report) {
        levels_.push_back({{}, current_.identity(), {}});
    }

    void run() {
        removeFilesAndCollectFolders();
        while (true) {
            Level& level = levels_.back();
            if (!level.folders.empty()) {
                const std::string name = std::move(level.folders.back());
                level.folders.pop_back();
                enter(name);
            } else if (levels_.size() == 1 || !leave()) {
                return;
            }
        }
    }

 private:
    struct Level {
        std::string name;
        FolderIdentity identity;
        std::vector<std::string> folders;
    };

    [[nodiscard]] std::string pathOf(const std::string& name) const {
        std::string path = root_;
        for (const Level& level : levels_) {
            if (!level.name.empty()) path += "/" + level.name;
        }
        return name.empty() ? path : path + "/" + name;
    }

    void removeFilesAndCollectFolders() {
        auto entries = current_.entries();
        if (!entries) return refuseForErrno(report_, pathOf({}));
        for (FolderHandle::Entry& entry : *entries) {
            if (entry.isFolder) {
                levels_.back().folders.push_back(std::move(entry.name));
            } else {
                countRemoval(current_.removeFile(entry.name), entry.name);
            }
        }
    }

    void enter(const std::string& name) {
        auto child = current_.openChild(name);
        if (!child) return refuseForErrno(report_, pathOf(name));
        if (child->isMountPoint() || child->identity().device != levels_.front().identity.device) {
            return refuse(report_, pathOf(name), EStatusCode::SHARING_VIOLATION,
                          "is another file system");
        }
        levels_.push_back({name, child->identity(), {}});
        current_ = std::move(*child);
        removeFilesAndCollectFolders();
    }

    /// Goes up and removes the folder that was left; false when the way up is not the way down.
    bool leave() {
        const std::string name = std::move(levels_.back().name);
        levels_.pop_back();
        auto parent = current_.openParent();
        if (!parent || parent->identity() != levels_.back().identity) {
            refuse(report_, pathOf(name), EStatusCode::SHARING_VIOLATION,
                   "was moved while it was being removed");
            return false;
        }
        current_ = std::move(*parent);
        countRemoval(current_.removeEmptyFolder(name), name);
        return true;
    }

    void countRemoval(bool removed, const std::string& name) {
        if (removed) {
            ++report_.removed;
        } else if (errno != ENOENT) {  // somebody else has removed it
            refuseForErrno(report_, pathOf(name));
        }
    }

    std::string root_;
    FolderHandle current_;
    RemovalReport& report_;
    std::vector<Level> levels_;
};

void removeTarget(const Target& target, RemovalReport& report) {
    const auto parent = FolderHandle::openCanonical(target.parent);
    auto folder = parent ? parent->openChild(target.name) : std::nullopt;
    if (!folder) return refuseForErrno(report, target.path());
    if (folder->isMountPoint() || folder->identity().device != parent->identity().device) {
        return refuse(report, target.path(), EStatusCode::SHARING_VIOLATION, "is a mount point");
    }
    Walk(target.path(), std::move(*folder), report).run();
    if (report.status != EStatusCode::SUCCESS) return;
    if (parent->removeEmptyFolder(target.name)) {
        ++report.removed;
    } else {
        refuseForErrno(report, target.path());
    }
}

RemovalRules& processRules() {
    static RemovalRules rules;
    return rules;
}

}  // namespace

RemovalReport RemoveFolderSafely(const std::string& path, const RemovalRules& rules,
                                 RemovalIntent intent) {
    RemovalReport report;
    const auto target = resolve(path, report);
    if (!target) return report;
    const std::string_view reason = refusalReason(target->path(), rules, intent);
    if (reason.empty()) {
        removeTarget(*target, report);
    } else {
        refuse(report, target->path(), EStatusCode::PERMISSION_NOT_ALLOWED, std::string(reason));
    }
    return report;
}

void SetRemovalRules(RemovalRules rules) {
    processRules() = std::move(rules);
}

const RemovalRules& ProcessRemovalRules() {
    return processRules();
}

EStatusCode RecursiveRemoveFolder(const std::string& path) {
    return RemoveFolderSafely(path, processRules()).status;
}

}  // namespace quelm::os
