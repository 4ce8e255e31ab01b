#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <pugixml.hpp>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/Value.h"
#include "sync/projects/AttributeRow.h"
#include "sync/projects/ProjectKeys.h"

namespace orv {

/// Of which kind the projects of an answer are.
enum class ProjectListKind { Subscribed, NotSubscribed };

/// One project on the service: a dictionary, read by the keys of ProjectKeys.h. A key that is
/// missing or of another type reads as "", 0 and false. Other keys are kept.
///
/// What the agent sends stays in its compact form until the project is changed; the dictionary is
/// made when it is asked for.
class Project {
 public:
    Project() = default;
    /// As an answer has it, with the owner for display.
    Project(AttributeRow attributes, ProjectListKind kind, bool ownedByMe)
        : answer_(Answer{std::move(attributes), kind, ownedByMe}) {}
    explicit Project(quelm::Dictionary dictionary) : dictionary_(std::move(dictionary)) {}

    [[nodiscard]] std::string id() const { return text(projectkeys::id); }
    void setId(const std::string& id) { setObject(id, projectkeys::id.name); }
    [[nodiscard]] std::string rootId() const { return text(projectkeys::rootId); }
    [[nodiscard]] std::string name() const { return text(projectkeys::name); }
    void setName(const std::string& name) { setObject(name, projectkeys::name.name); }
    [[nodiscard]] std::string owner() const { return text(projectkeys::owner); }
    void setOwner(const std::string& owner) { setObject(owner, projectkeys::owner.name); }
    [[nodiscard]] std::string ownerId() const { return text(projectkeys::ownerId); }
    [[nodiscard]] std::string path() const { return text(projectkeys::path); }
    void setPath(const std::string& path) { setObject(path, projectkeys::path.name); }
    [[nodiscard]] std::optional<std::string> projectLoaderSourcePath() const;
    /// None removes the key.
    void setProjectLoaderSourcePath(const std::optional<std::string>& path);

    [[nodiscard]] std::int64_t totalSize() const { return number(projectkeys::totalSize); }
    [[nodiscard]] std::int64_t totalFiles() const { return number(projectkeys::totalFiles); }
    [[nodiscard]] std::int64_t totalFolders() const { return number(projectkeys::totalFolders); }
    [[nodiscard]] std::int64_t syncedSize() const { return number(projectkeys::syncedSize); }
    [[nodiscard]] std::int64_t syncedFiles() const { return number(projectkeys::syncedFiles); }
    [[nodiscard]] bool readOnly() const { return flag(projectkeys::readOnly); }
    [[nodiscard]] bool subscribed() const { return flag(projectkeys::subscribed); }
    [[nodiscard]] bool known() const { return flag(projectkeys::known); }
    [[nodiscard]] bool outOfQuota() const { return flag(projectkeys::outOfQuota); }
    [[nodiscard]] bool external() const { return flag(projectkeys::external); }
    [[nodiscard]] bool partial() const { return flag(projectkeys::partial); }
    [[nodiscard]] bool ownedByMe() const { return flag(projectkeys::ownedByMe); }
    [[nodiscard]] bool archived() const { return flag(projectkeys::archived); }

    // What of it is synchronised, or all of it where it is not subscribed.
    [[nodiscard]] std::int64_t countedFiles(ProjectListKind kind) const;
    [[nodiscard]] std::int64_t countedBytes(ProjectListKind kind) const;

    /// Which part is synchronised; null without a document and for one that does not parse.
    [[nodiscard]] std::unique_ptr<pugi::xml_document> partialsubscribeXML() const;
    /// Its text as it is stored; "" without one.
    [[nodiscard]] std::string partialSubscribePayload() const;
    /// Stores the document indented; null removes the key.
    void setPartialSubscribeXML(const pugi::xml_document* document);
    [[nodiscard]] bool isPartialSubscribe() const { return partialsubscribeXML() != nullptr; }
    [[nodiscard]] bool shouldUseProjectLoader() const;

    [[nodiscard]] std::optional<quelm::Value> objectForKey(std::string_view key) const;
    void setObject(quelm::Value object, std::string_view key);
    [[nodiscard]] quelm::Dictionary dictionary() const;
    void setDictionary(quelm::Dictionary dictionary);

    [[nodiscard]] std::string text(const ProjectKey& key) const;
    [[nodiscard]] std::int64_t number(const ProjectKey& key) const;
    [[nodiscard]] bool flag(const ProjectKey& key) const;

    /// Whether the dictionaries are equal.
    bool operator==(const Project& other) const;

 private:
    struct Answer {
        AttributeRow attributes;
        ProjectListKind kind;
        bool ownedByMe;
        bool operator==(const Answer&) const = default;
    };

    /// What counts, by its kind, and is shown.
    [[nodiscard]] std::string statusText() const;
    /// For a change.
    quelm::Dictionary& ownDictionary();

    std::optional<Answer> answer_;
    /// The content where there is no answer.
    quelm::Dictionary dictionary_;
};

/// Shared between the list and those who show or change a project.
using ProjectPtr = std::shared_ptr<Project>;
using Projects = std::vector<ProjectPtr>;

}  // namespace orv
