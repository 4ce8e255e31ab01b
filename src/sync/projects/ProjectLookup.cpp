#include <algorithm>

#include "foundation/paths/PathPrefix.h"
#include "foundation/paths/Paths.h"
#include "sync/projects/ProjectsList.h"

// What the list answers about its projects.

namespace orv {

namespace {

void append(Projects& all, const Projects& more) {
    all.insert(all.end(), more.begin(), more.end());
}

ProjectPtr firstOf(const Projects& projects, auto matches) {
    const auto found = std::ranges::find_if(projects, matches);
    return found != projects.end() ? *found : nullptr;
}

auto has(const ProjectKey& key, std::string_view text) {
    return [&key, text](const ProjectPtr& project) { return project->text(key) == text; };
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

ProjectPtr ProjectsList::projectWithId(std::string_view id) const {
    return firstOf(projects(), has(projectkeys::id, id));
}

ProjectPtr ProjectsList::projectWithPath(std::string_view path) const {
    return firstOf(projects(), has(projectkeys::path, path));
}

ProjectPtr ProjectsList::projectWithName(std::string_view name) const {
    return firstOf(projects(), has(projectkeys::name, name));
}

ProjectPtr ProjectsList::mineProjectWithName(std::string_view name) const {
    return firstOf(projects(), [name](const ProjectPtr& project) {
        return project->ownedByMe() && project->text(projectkeys::name) == name;
    });
}

bool ProjectsList::existsPendingSyncOperationProject() const {
    const bool byId = !pendingSyncOperationProjectId.empty();
    const std::string& text =
        byId ? pendingSyncOperationProjectId : pendingSyncOperationProjectPath;
    if (text.empty()) return false;
    // it may be among the others as well, which says nothing
    return firstOf(subscribedProjects(), has(byId ? projectkeys::id : projectkeys::path, text)) !=
           nullptr;
}

ProjectPtr ProjectsList::projectForPath(std::string_view path) const {
    ProjectPtr innermost;
    for (const ProjectPtr& project : subscribedProjects()) {
        const std::string folder = folderOf(project);
        if (folder.empty() || !quelm::StartsWithPath(path, folder)) continue;
        if (!innermost || folder.size() > folderOf(innermost).size()) innermost = project;
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
