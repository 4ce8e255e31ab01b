#include <algorithm>
#include <fmt/format.h>
#include <fmt/ostream.h>
#include <ostream>

#include "agentlink/AgentPayload.h"
#include "agentlink/AgentVocabulary.h"
#include "cli/AgentConversation.h"
#include "cli/Commands.h"
#include "cli/Complaint.h"
#include "cli/ProjectText.h"
#include "cli/SettingsAsStored.h"
#include "cli/ValueText.h"
#include "config/ConfigurationPath.h"
#include "config/Locations.h"
#include "foundation/system/LocalizedString.h"
#include "sync/SyncRequest.h"
#include "sync/projects/ProjectListParser.h"
#include "sync/projects/ProjectListStore.h"
#include "sync/projects/UserNames.h"

namespace orv::cli {

namespace {

using quelm::FormatLocalizedString;
using quelm::GetLocalizedString;

constexpr std::chrono::seconds patienceWithAgent(10);

Projects together(ParsedProjects parsed) {
    Projects all = std::move(parsed.sync);
    std::ranges::move(parsed.external, std::back_inserter(all));
    return all;
}

/// What the agent answers to the request for the kind.
class ProjectsAnswer {
 public:
    explicit ProjectsAnswer(ProjectListKind kind) : kind_(kind) {}

    [[nodiscard]] bool isAgentThere() const { return conversation_.isAgentThere(); }
    /// None when no answer comes, or one that cannot be read.
    std::optional<Projects> ask(Console& console) {
        conversation_.ask([this] { request(); }, patienceWithAgent, console);
        return projects_;
    }

 private:
    void request() const {
        if (kind_ == ProjectListKind::NotSubscribed) return RequestNotSubscribedProjects();
        RequestSubscribedProjects(settings_.calculateSynced());
    }
    AgentConversation::Heard take(const std::string& event, const quelm::Dictionary& payload) {
        const char* const command = kind_ == ProjectListKind::Subscribed
                                        ? commands::subscribedProjects
                                        : commands::notSubscribedProjects;
        if (event != events::syncResponse || PayloadText(payload, keys::command) != command) {
            return AgentConversation::Heard::Nothing;
        }
        const std::string xml = PayloadText(payload, keys::projectList);
        auto parsed = ParseProjectList(xml, kind_, UserNames(settings_));
        if (parsed) projects_ = together(std::move(*parsed));
        return AgentConversation::Heard::Last;
    }

    ProjectListKind kind_;
    orvAgentSettings settings_ = SettingsAsStored();
    std::optional<Projects> projects_;
    AgentConversation conversation_{
        [this](const std::string& event, const quelm::Dictionary& payload) {
            return take(event, payload);
        }};
};

std::optional<Projects> storedProjects() {
    const auto rows = ProjectListStore::load(GetConfigurationPath(files::subscribedProjects));
    if (!rows) return std::nullopt;
    return together(ProjectsOfStoredList(*rows));
}

/// The projects that the agent tells, or those that were stored, which are the subscribed ones.
/// None after a message, with the code.
std::optional<Projects> find(ProjectListKind kind, Console& console, ExitCode& code) {
    ProjectsAnswer answer(kind);
    const bool isThere = answer.isAgentThere();
    if (isThere) {
        if (auto projects = answer.ask(console)) return projects;
    }
    auto stored = kind == ProjectListKind::Subscribed ? storedProjects() : std::nullopt;
    if (stored) {
        Say(console, GetLocalizedString("Projects.Stored",
                                        "The agent did not tell; this is the list as it was last "
                                        "stored."));
        return stored;
    }
    code = isThere ? Fail(console, ExitCode::Failed,
                          GetLocalizedString("Projects.NoAnswer",
                                             "The agent did not answer. Is it connected? See "
                                             "orvctl events."))
                   : FailWithoutAgent(console);
    return std::nullopt;
}

}  // namespace

ExitCode ListProjects(const Arguments& arguments, Console& console) {
    const auto kind =
        arguments.has("--available") ? ProjectListKind::NotSubscribed : ProjectListKind::Subscribed;
    ExitCode code = ExitCode::Done;
    const auto projects = find(kind, console, code);
    if (!projects) return code;
    quelm::Array rows;
    for (const ProjectPtr& project : *projects) {
        if (console.json) {
            rows.emplace_back(TypedProject(project->dictionary()));
        } else {
            fmt::print(console.out, "{}\n", ProjectLine(*project));
        }
    }
    if (console.json) fmt::print(console.out, "{}\n", ValueAsJson(rows));
    return ExitCode::Done;
}

ExitCode ShowProject(const Arguments& arguments, Console& console) {
    ExitCode code = ExitCode::Done;
    const auto projects = find(ProjectListKind::Subscribed, console, code);
    if (!projects) return code;
    const auto found = std::ranges::find_if(*projects, [&](const ProjectPtr& project) {
        return project->text(projectkeys::id) == arguments[0];
    });
    if (found == projects->end()) {
        return Fail(console, ExitCode::Failed,
                    FormatLocalizedString("Projects.Unknown",
                                          "No project on this computer has the id %@. See orvctl "
                                          "projects list.",
                                          {arguments[0]}));
    }
    const quelm::Value typed = TypedProject((*found)->dictionary());
    if (console.json) {
        fmt::print(console.out, "{}\n", ValueAsJson(typed));
    } else {
        PrintValue(console.out, typed);
    }
    return ExitCode::Done;
}

ExitCode RequestProjects(const Arguments&, Console& console) {
    const AgentConversation conversation(
        [](const auto&, const auto&) { return AgentConversation::Heard::Nothing; });
    RequestSubscribedProjects(SettingsAsStored().calculateSynced());
    RequestNotSubscribedProjects();
    return conversation.isAgentThere() ? ExitCode::Done : FailWithoutAgent(console);
}

}  // namespace orv::cli
