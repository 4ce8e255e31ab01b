#include "foundation/paths/PathPrefix.h"
#include "foundation/paths/Paths.h"
#include "sync/projects/ProjectsList.h"

// What the list answers about its projects.

namespace orv {

namespace {

void append(Projects& all, const Projects& more) {
    all.insert(all.end(), more.begin(), more.end());
}

ProjectPtr firstOf(const auto& groups, const ProjectKey& key, std::string_view text) {
    for (const Projects* group : groups) {
        for (const ProjectPtr& project : *group) {
            if (project->text(key) == text) return project;
        }
    }
    return nullptr;
}

std::string folderOf(const ProjectPtr& project) {
    return std::string(quelm::RemoveLastSlashFromPath(project->text(projectkeys::path)));
}

}  // namespace

Projects ProjectsList::subscribedProjects() const {
    Projects all = subscribedSyncProjects_;
    append(all, subscribedExternalProjects_);
    return all;
}

Projects ProjectsList::projects() const {
    Projects all = notSubscribedProjects_;
    append(all, subscribedSyncProjects_);
    append(all, subscribedExternalProjects_);
    return all;
}

ProjectPtr ProjectsList::firstProject(const ProjectKey& key, std::string_view text) const {
    return firstOf(groups(), key, text);
}

ProjectPtr ProjectsList::projectWithId(std::string_view id) const {
    return firstProject(projectkeys::id, id);
}

ProjectPtr ProjectsList::projectWithPath(std::string_view path) const {
    return firstProject(projectkeys::path, path);
}

ProjectPtr ProjectsList::projectWithName(std::string_view name) const {
    return firstProject(projectkeys::name, name);
}

ProjectPtr ProjectsList::mineProjectWithName(std::string_view name) const {
    for (const ProjectPtr& project : projects()) {
        if (project->ownedByMe() && project->name() == name) return project;
    }
    return nullptr;
}

bool ProjectsList::existsPendingSyncOperationProject() const {
    const bool byId = !pendingSyncOperationProjectId.empty();
    const std::string& text =
        byId ? pendingSyncOperationProjectId : pendingSyncOperationProjectPath;
    if (text.empty()) return false;
    // it may be among the others as well, which says nothing
    return firstOf(std::array{&subscribedSyncProjects_, &subscribedExternalProjects_},
                   byId ? projectkeys::id : projectkeys::path, text) != nullptr;
}

ProjectPtr ProjectsList::projectForPath(std::string_view path) const {
    ProjectPtr innermost;
    std::size_t longest = 0;
    for (const Projects* group : {&subscribedSyncProjects_, &subscribedExternalProjects_}) {
        for (const ProjectPtr& project : *group) {
            const std::string folder = folderOf(project);
            if (folder.size() <= longest || !quelm::StartsWithPath(path, folder)) continue;
            innermost = project;
            longest = folder.size();
        }
    }
    return innermost;
}

void ProjectsList::splitPath(std::string_view path, std::string& project,
                             std::string& relativePath) const {
    project.clear();
    relativePath.clear();
    const ProjectPtr found = projectForPath(path);
    if (!found) return;
    project = found->name();
    const auto rest = path.substr(folderOf(found).size());
    relativePath = rest.substr(rest.starts_with('/') ? 1 : 0);
}

std::string ProjectsList::projectNameForPath(std::string_view path) const {
    const ProjectPtr project = projectForPath(path);
    return project ? project->name() : "";
}

std::string ProjectsList::relativePathForPath(std::string_view path) const {
    std::string project;
    std::string relativePath;
    splitPath(path, project, relativePath);
    return relativePath;
}

}  // namespace orv
