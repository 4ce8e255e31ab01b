#include <algorithm>
#include <array>
#include <cstdlib>

#include "config/AccountId.h"
#include "config/AgentSettings.h"
#include "config/AgentSettingsHooks.h"
#include "config/Deployment.h"
#include "config/Locations.h"
#include "foundation/paths/Paths.h"
#include "foundation/system/LocalizedString.h"
#include "foundation/system/UserAndComputer.h"
#include "foundation/texts/FormatText.h"

// What the record computes: texts that the file has not, and names made from its values.

namespace orv {

namespace {

constexpr const char* productLabel = "Tidewell Backup";

/// By cell id, from 1.
constexpr auto cellNames = std::to_array<quelm::LocalizedText>({
    {"AgentSettings.CellNameUS1", "US1"},
    {"AgentSettings.CellNameEU2", "EU2"},
    {"AgentSettings.CellNameCA3", "CA3"},
    {"AgentSettings.CellNameEU4", "EU4"},
    {"AgentSettings.CellNameAU5", "AU5"},
    {"AgentSettings.CellNameUS6", "US6"},
    {"AgentSettings.CellNameEU7", "EU7"},
    {"AgentSettings.CellNameUS8", "US8"},
    {"AgentSettings.CellNameUS9", "US9"},
    {"AgentSettings.CellNameEU10", "EU10"},
    {"AgentSettings.CellNameEU11", "EU11"},
});

/// The name of the project folder, of the folder's base (1), the account's label (2) and team (3).
struct ProjectFolderForm {
    bool hasProductLabel;
    bool isDefaultAccount;
    std::string_view form;
};
constexpr auto projectFolderForms = std::to_array<ProjectFolderForm>({
    {true, true, "%1$@"},
    {true, false, "%1$@ (%3$@)"},
    {false, true, "%1$@ (%2$@)"},
    {false, false, "%1$@ (%2$@-%3$@)"},
});

struct OfThisComputer {
    std::string computerName = quelm::GetComputerName();
    std::string loginName = quelm::GetLoginName();
};

const OfThisComputer& ofThisComputer() {
    static const OfThisComputer names;
    return names;
}

std::string branded(const std::string& text) {
    const auto& hook = ProcessAgentSettingsHooks().brand;
    return hook ? hook(text) : text;
}

/// The text as a part of one folder's name: the server chooses labels and teams.
std::string inFolderName(std::string text) {
    std::ranges::replace(text, '/', '_');
    return text;
}

}  // namespace

void LookUpComputerDefaults() {
    static_cast<void>(ofThisComputer());
}

std::string orvAgentSettings::computed(TextDefault fallback) const {
    switch (fallback) {
        case TextDefault::Empty:
            return {};
        case TextDefault::AgentServer:
            return CurrentDeployment().agentServer;
        case TextDefault::Label:
            return branded(productLabel);
        case TextDefault::ComputerName:
            return ofThisComputer().computerName;
        case TextDefault::LoginName:
            return ofThisComputer().loginName;
        case TextDefault::UserName:
            return userName();
        case TextDefault::ProjectFolder:
            return defaultProjectFolder();
    }
    return {};
}

std::string orvAgentSettings::defaultProjectFolder() const {
    const std::string base = quelm::ExpandTildeInPath(locations::projects);
    const std::string label = configLabel();
    const bool hasProductLabel = label == productLabel;
    const bool isDefault = extractAgentID(_settingsPath.value_or("")) == "1";
    const auto form = std::ranges::find_if(projectFolderForms, [=](const auto& row) {
        return row.hasProductLabel == hasProductLabel && row.isDefaultAccount == isDefault;
    });
    const std::string labelPart = inFolderName(label);
    const std::string teamPart = inFolderName(teamName().value_or(""));
    const std::array<quelm::FormatArgument, 3> parts = {base, labelPart, teamPart};
    return quelm::FormatText(form->form, parts).value_or(base);
}

std::optional<std::string> orvAgentSettings::cellName() const {
    auto id = cellId();
    const long number = id ? std::strtol(id->c_str(), nullptr, 10) : 0;
    if (number < 1 || number > static_cast<long>(cellNames.size())) return id;
    const auto& name = cellNames[static_cast<std::size_t>(number - 1)];
    return quelm::GetLocalizedString(name.key, name.defaultText);
}

std::string orvAgentSettings::webAccessLabel() const {
    return configLabel() + "-secureWebAccess";
}

}  // namespace orv
