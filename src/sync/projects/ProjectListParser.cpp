#include "sync/projects/ProjectListParser.h"

#include <algorithm>
#include <utility>

#include "foundation/system/LocalizedString.h"
#include "foundation/system/Log.h"
#include "foundation/system/Saturating.h"
#include "foundation/texts/CaseFolding.h"
#include "foundation/xml/XmlStream.h"
#include "sync/projects/AttributeRow.h"

namespace orv {

namespace {

/// Makes a project of each "project" in the first "project-list" that is the document or a child of
/// its root.
class ProjectReceiver final : public quelm::XmlReceiver {
 public:
    ProjectReceiver(ProjectListKind kind, const std::set<std::string>& me) : kind_(kind), me_(me) {}

    Projects takeProjects() { return std::move(projects_); }

    void startElement(std::string_view name) override {
        ++level_;
        if (listLevel_ == 0) {
            if (level_ <= 2 && !listEnded_ && name == "project-list") listLevel_ = level_;
        } else if (level_ == projectLevel() && name == "project") {
            isInProject_ = true;
        } else if (isInProject_ && level_ == projectLevel() + 1) {
            attributes_.add(name);
        }
    }
    void addText(std::string_view text) override {
        if (isInProject_ && level_ > projectLevel()) attributes_.appendText(text);
    }
    void endElement() override {
        if (isInProject_ && level_ == projectLevel()) {
            endProject();
        } else if (level_ == listLevel_) {
            listEnded_ = true;
            listLevel_ = 0;
        }
        --level_;
    }

 private:
    [[nodiscard]] int projectLevel() const { return listLevel_ + 1; }

    void endProject() {
        isInProject_ = false;
        const auto owner = attributes_.find(projectkeys::owner.name);
        const bool isMine = owner && me_.contains(std::string(*owner));
        if (isMine) attributes_.replace(projectkeys::owner.name, meText_);
        projects_.push_back(std::make_shared<Project>(attributes_.take(), kind_, isMine));
    }

    ProjectListKind kind_;
    const std::set<std::string>& me_;
    const std::string meText_ = quelm::GetLocalizedString("ProjectsList.Me", "Me");
    Projects projects_;
    AttributeRowBuilder attributes_;
    int level_ = 0;
    /// 0 outside the list.
    int listLevel_ = 0;
    bool listEnded_ = false;
    bool isInProject_ = false;
};

void sortByName(Projects& projects) {
    // the names to compare stand in one text, close to each other
    struct Place {
        std::size_t start;
        std::size_t length;
        std::size_t index;
    };
    std::string names;
    std::vector<Place> places;
    places.reserve(projects.size());
    for (const ProjectPtr& project : projects) {
        const std::string name = quelm::FoldedCase(project->text(projectkeys::name));
        places.push_back({names.size(), name.size(), places.size()});
        names += name;
    }
    std::ranges::stable_sort(places, {}, [&names](const Place& place) {
        return std::string_view(names).substr(place.start, place.length);
    });
    Projects sorted;
    sorted.reserve(projects.size());
    for (const Place& place : places)
        sorted.push_back(std::move(projects[place.index]));
    projects = std::move(sorted);
}

ParsedProjects groupsOf(Projects projects, ProjectListKind kind) {
    ParsedProjects groups;
    for (ProjectPtr& project : projects) {
        groups.files = quelm::SaturatingSum(groups.files, project->countedFiles(kind));
        groups.bytes = quelm::SaturatingSum(groups.bytes, project->countedBytes(kind));
        const bool apart = kind == ProjectListKind::Subscribed && project->external();
        (apart ? groups.external : groups.sync).push_back(std::move(project));
    }
    sortByName(groups.sync);
    sortByName(groups.external);
    return groups;
}

}  // namespace

std::optional<ParsedProjects> ParseProjectList(std::string_view xml, ProjectListKind kind,
                                               const std::set<std::string>& me) {
    ProjectReceiver receiver(kind, me);
    const std::string fault = quelm::StreamXml(xml, receiver);
    if (!fault.empty()) {
        quelm::LogError("The agent's list of projects cannot be read and is not used: " + fault);
        return std::nullopt;
    }
    return groupsOf(receiver.takeProjects(), kind);
}

ParsedProjects ProjectsOfStoredList(const quelm::Array& rows) {
    Projects projects;
    for (const quelm::Value& row : rows) {
        if (const quelm::Dictionary* dictionary = row.asDictionary()) {
            projects.push_back(std::make_shared<Project>(*dictionary));
        }
    }
    return groupsOf(std::move(projects), ProjectListKind::Subscribed);
}

}  // namespace orv
