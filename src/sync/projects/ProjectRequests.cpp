#include <functional>

#include "agentlink/AgentEventQueue.h"
#include "agentlink/AgentVocabulary.h"
#include "foundation/system/Log.h"
#include "sync/SyncRequest.h"
#include "sync/projects/ProjectsList.h"

// What the list asks of the agent.

namespace orv {

namespace {

std::string textOf(const ProjectsList::Text& text) {
    return text.value_or("");
}

/// The texts with a comma between them; nothing in them is escaped.
std::string joined(const Projects& projects, auto textOfProject) {
    std::string all;
    for (const ProjectPtr& project : projects) {
        if (project != projects.front()) all += ',';
        all += std::invoke(textOfProject, *project);
    }
    return all;
}

}  // namespace

void ProjectsList::requestSubscribedProjects() {
    requestSubscribedProjectsCalculateSynced(
        environment_.accounts.defaultConfig().calculateSynced());
}

void ProjectsList::requestSubscribedProjectsCalculateSynced(bool calculateSynced) {
    RequestSubscribedProjects(calculateSynced);
}

void ProjectsList::requestNotSubscribedProjects() {
    RequestNotSubscribedProjects();
}

void ProjectsList::requestAll() {
    requestSubscribedProjects();
    requestNotSubscribedProjects();
}

void ProjectsList::subscribeProject(const Project& project, const Text& path, const Text& folderId,
                                    const Text& mergeOption) {
    const bool keepsPath = path && !mergeOption;
    if (project.shouldUseProjectLoader()) {
        if (keepsPath) setPath(*path, project);
        startImportProjects({std::make_shared<Project>(project)},
                            textOf(project.projectLoaderSourcePath()), path);
    } else if (project.isPartialSubscribe()) {
        if (keepsPath) setPath(*path, project);
        partialySubscribeProject(project);
    } else if (mergeOption) {
        SendSyncRequest(commands::connectProject, {{keys::projectId, project.id()},
                                                   {keys::fullPath, textOf(path)},
                                                   {keys::mergeOption, *mergeOption}});
    } else {
        SendSyncRequest(commands::subscribe, {{keys::projectId, project.id()},
                                              {keys::fullPath, textOf(path)},
                                              {keys::folderId, textOf(folderId)}});
    }
}

void ProjectsList::subscribeProject(const Project& project, const Text& path,
                                    const Text& mergeOption) {
    subscribeProject(project, path, {}, mergeOption);
}

void ProjectsList::subscribeProjectAtPath(const Project& project, const Text& path) {
    subscribeProject(project, path, {}, {});
}

void ProjectsList::subscribeProjectFolderId(const Project& project, const Text& folderId) {
    subscribeProject(project, {}, folderId, {});
}

void ProjectsList::subscribeProject(const Project& project) {
    subscribeProject(project, {}, {}, {});
}

void ProjectsList::partialySubscribeProject(const Project& project) {
    SendSyncRequest(commands::setPartialSubscribe,
                    {{keys::payload, project.partialSubscribePayload()}});
}

void ProjectsList::getPartialInfo(const Project& project) {
    SendSyncRequest(commands::getPartialSubscribe, {{keys::projectId, project.id()}});
}

void ProjectsList::setPath(const std::string& path, const Project& project) {
    SendSyncRequest(commands::setProjectPath,
                    {{keys::projectId, project.id()}, {keys::path, path}});
}

void ProjectsList::unsubscribeProject(const Project& project, const Text& folderId) {
    SendSyncRequest(commands::unsubscribe,
                    {{keys::projectId, project.id()}, {keys::folderId, textOf(folderId)}});
}

void ProjectsList::unsubscribeProjectPath(const std::string& path) {
    SendSyncRequest(commands::unsubscribe, {{keys::projectPath, path}});
}

void ProjectsList::createEPPath(const std::string& path, const std::string& name) {
    SendSyncRequest(commands::createExternal, {{keys::path, path}, {keys::name, name}});
}

void ProjectsList::createEPPath(const std::string& path, const std::string& name,
                                const std::string& owner, const std::string& password) {
    SendSyncRequest(
        commands::createExternal,
        {{keys::path, path}, {keys::name, name}, {keys::owner, owner}, {keys::password, password}});
}

void ProjectsList::updateProjectOldPath(const std::string& oldPath, const std::string& newPath) {
    projectSubscribed = true;
    const ProjectPtr project = projectWithPath(oldPath);
    if (!project) return quelm::LogError("Project not found!");
    if (!project->external()) {
        return quelm::LogError("Update path of not external project [ID=" + project->id() +
                               ", old=" + oldPath + ", new=" + newPath + "]");
    }
    SendSyncRequest(commands::updateProjectPath,
                    {{keys::rootId, project->rootId()}, {keys::path, newPath}});
}

void ProjectsList::commitProjects() {
    SendSyncRequest(commands::commitProjects);
}

void ProjectsList::startImportProjects(const Projects& projects, const std::string& sourcePath,
                                       const Text& projectRoot) {
    const auto subscribeXml = [](const Project& project) {
        return project.isPartialSubscribe() ? project.partialSubscribePayload() : "0";
    };
    const std::string root =
        projectRoot.value_or(environment_.accounts.defaultConfig().masterProjectFolder());
    QueueAgentEvent(projectsAgent, events::projectImportStart,
                    {{keys::projectIds, joined(projects, &Project::id)},
                     {keys::subscribeXmls, joined(projects, subscribeXml)},
                     {keys::path, sourcePath},
                     {keys::projectRoot, root}});
}

}  // namespace orv
