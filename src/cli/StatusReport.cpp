#include "cli/StatusReport.h"

#include <array>
#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include "foundation/system/LocalizedString.h"
#include "foundation/texts/VisibleText.h"

namespace orv::cli {

namespace {

using nlohmann::ordered_json;
using quelm::GetLocalizedString;

ordered_json block(const TextField& summary, const TextField& state, const ImageView& image) {
    return {
        {"summary", summary.stringValue()},
        {"state", state.stringValue()},
        {"image", image.imageName().empty() ? ordered_json() : ordered_json(image.imageName())}};
}

void appendLinks(ordered_json& links, const TextField& field) {
    for (const TextLink& link : field.text().links) {
        links.push_back({{"text", field.stringValue().substr(link.start, link.length)},
                         {"address", link.address}});
    }
}

void appendLine(std::string& text, const std::string& label, const std::string& line) {
    if (!line.empty()) text += fmt::format("{:<12}{}\n", label, quelm::VisibleText(line));
}

}  // namespace

std::string StatusAsJson(const StatusOutlets& shown) {
    ordered_json links = ordered_json::array();
    for (const TextField* field : {&shown._backupStatus2, &shown._projectsStatus2})
        appendLinks(links, *field);
    const ordered_json report = {
        {"connection",
         {{"text", shown._connectionStatus.stringValue()},
          {"info", shown._connectionInfo.stringValue()},
          {"button", shown._connectButton.title()}}},
        {"backup", block(shown._backupStatus1, shown._backupStatus2, shown._backupStatusImage)},
        {"projects",
         block(shown._projectsStatus1, shown._projectsStatus2, shown._projectsStatusImage)},
        {"links", links}};
    return report.dump(-1, ' ', false, ordered_json::error_handler_t::replace);
}

std::string StatusAsText(const StatusOutlets& shown) {
    std::string text = quelm::VisibleText(shown._headline.stringValue()) + "\n";
    appendLine(text, "", shown._lastBackup.stringValue());
    appendLine(text, GetLocalizedString("Status.Connection", "Connection"),
               shown._connectionStatus.stringValue());
    appendLine(text, "", shown._connectionInfo.stringValue());
    appendLine(text, GetLocalizedString("Status.Backup", "Backup"),
               shown._backupStatus1.stringValue());
    appendLine(text, "", shown._backupStatus2.stringValue());
    appendLine(text, GetLocalizedString("Status.Projects", "Projects"),
               shown._projectsStatus1.stringValue());
    appendLine(text, "", shown._projectsStatus2.stringValue());
    return text;
}

}  // namespace orv::cli
