#include <fmt/format.h>
#include <fmt/ostream.h>
#include <ostream>

#include "cli/Commands.h"
#include "cli/Complaint.h"
#include "cli/SettingsAsStored.h"
#include "cli/ValueText.h"
#include "foundation/files/Existence.h"
#include "foundation/paths/Paths.h"
#include "foundation/system/LocalizedString.h"
#include "sync/folders/ProjectCacheFolder.h"
#include "sync/folders/ProjectFolderOwner.h"
#include "sync/folders/ProjectListFile.h"

namespace orv::cli {

namespace {

using namespace quelm::sync;

quelm::Value valueOf(const CProjectListFile::Entries& entries) {
    quelm::Array rows;
    for (const SProjectListEntry& entry : entries) {
        rows.emplace_back(quelm::Dictionary{{"fsType", EnumString(entry.fsType)},
                                            {"rootType", EnumString(entry.rootType)},
                                            {"projectId", entry.projectId},
                                            {"path", entry.path},
                                            {"isDefault", entry.isDefault}});
    }
    return rows;
}

void print(const quelm::Value& value, Console& console) {
    if (console.json) {
        fmt::print(console.out, "{}\n", ValueAsJson(value));
    } else {
        PrintValue(console.out, value);
    }
}

}  // namespace

ExitCode ShowProjectFolder(const Arguments& arguments, Console& console) {
    const std::string folder = quelm::GetAbsolutePath(arguments[0]);
    if (!quelm::IsFolder(folder)) {
        return Fail(
            console, ExitCode::Failed,
            quelm::FormatLocalizedString("Projects.NoFolder", "%@ is no folder", {arguments[0]}));
    }
    const orvAgentSettings settings = SettingsAsStored();
    const std::string master = settings.masterProjectFolder();
    const SProjectFolderInfo info = LoadProjectFolderInfo(folder, master);
    CProjectListFile list(info.ownerId, ProjectCacheFolder::pathIn(folder), master);
    if (info.status == PROJECT_FOLDER_LOADED) list.Load();
    print(quelm::Dictionary{{"owner", FindProjectFolderOwner(settings.rcid(), folder)},
                            {"status", static_cast<int>(info.status)},
                            {"projectIds",
                             quelm::Array(info.projectIds.begin(), info.projectIds.end())},
                            {"entries", valueOf(list.entries())}},
          console);
    return ExitCode::Done;
}

ExitCode ShowProjectListFile(const Arguments& arguments, Console& console) {
    CProjectListFile list(arguments[0], SettingsAsStored().masterProjectFolder());
    if (!list.Load()) {
        return Fail(
            console, ExitCode::Failed,
            quelm::FormatLocalizedString(
                "Projects.NoListFile", "%@ cannot be read as a project list file", {arguments[0]}));
    }
    print(valueOf(list.entries()), console);
    return ExitCode::Done;
}

}  // namespace orv::cli
