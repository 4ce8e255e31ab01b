#include <fmt/format.h>
#include <fmt/ostream.h>
#include <ostream>
#include <vector>

#include "accounts/FolderStatusText.h"
#include "accounts/PrintersSettings.h"
#include "accounts/StorageFoldersInfo.h"
#include "accounts/StorageQuotaInfo.h"
#include "cli/Commands.h"
#include "cli/Complaint.h"
#include "cli/ValueText.h"
#include "config/ConfigurationPath.h"
#include "config/Locations.h"
#include "foundation/files/Existence.h"
#include "foundation/system/LocalizedString.h"
#include "foundation/texts/VisibleText.h"
#include "platform/Services.h"
#include "support/VarBranding.h"
#include "widgets/OfflineVolume.h"
#include "widgets/SizeText.h"

namespace orv::cli {

namespace {

using quelm::Dictionary;
using quelm::FormatLocalizedString;
using quelm::GetLocalizedString;

std::string statusOf(const orv_StorageFolderStatus& folder) {
    return FolderStatusText({.exists = quelm::Exists(folder.path()),
                             .offline = IsPathOffline(folder.path()),
                             .record = &folder});
}

quelm::Value foldersValue(const orv_StorageFoldersInfo& info) {
    quelm::Array folders;
    for (const auto& folder : info.list()) {
        folders.emplace_back(Dictionary{{"path", folder.path()},
                                        {"total", folder.total()},
                                        {"stored", folder.stored()},
                                        {"status", statusOf(folder)}});
    }
    return folders;
}

/// Without information the quota is 0.
quelm::Value quotaValue(const orv_StorageQuotaInfo& info) {
    return Dictionary{{"quota", info.quota()},
                      {"unlimited", info.unlimitedQuota()},
                      {"totalThisComputer", info.totalThisComputer()},
                      {"storedThisComputer", info.storedThisComputer()},
                      {"totalOtherComputers", info.totalOtherComputers()},
                      {"storedOtherComputers", info.storedOtherComputers()}};
}

std::string quotaText(const orv_StorageQuotaInfo& info) {
    if (!info.haveQuota()) return GetLocalizedString("Storage.NoQuota", "Quota: not known");
    if (info.unlimitedQuota()) return GetLocalizedString("Storage.Unlimited", "Quota: unlimited");
    return FormatLocalizedString(
        "Storage.Quota", "Quota: %@, this computer %@, other computers %@",
        {orv::FileSizeString(info.quota()), orv::FileSizeString(info.totalThisComputer()),
         orv::FileSizeString(info.totalOtherComputers())});
}

void printStorage(std::ostream& out, const orv_StorageFoldersInfo& folders,
                  const orv_StorageQuotaInfo& quota) {
    for (const auto& folder : folders.list())
        fmt::print(out, "{}: {}\n", quelm::VisibleText(folder.path()), statusOf(folder));
    fmt::print(out, "{}\n{}\n",
               FormatLocalizedString(
                   "Storage.Sum", "Stored: %@ of %@",
                   {orv::FileSizeString(folders.stored()), orv::FileSizeString(folders.total())}),
               quotaText(quota));
}

/// False, with a message, for a file that is there and cannot be read.
template <class Info>
bool loadIfPresent(Info& info, const char* name, Console& console) {
    const std::string path = GetConfigurationPath(name);
    if (!quelm::Exists(path) || info.loadAtPath(path)) return true;
    Say(console,
        FormatLocalizedString("Storage.Unreadable",
                              "%@ cannot be read. The agent writes it anew when it reports "
                              "its state: see orvctl notify report.",
                              {path}));
    return false;
}

struct PrinterRow {
    std::string id;
    std::string name;
    bool checked;
    std::string status;
};

/// Each printer is asked for its state.
std::vector<PrinterRow> printerRows() {
    orv_PrintersSettings printers(platform::ProcessServices().printers.get(), nullptr);
    printers.createListOfPrinters(true);
    std::vector<PrinterRow> rows;
    for (std::size_t i = 0; i < printers.count(); ++i) {
        rows.push_back({printers.printersIdAtIndex(i), printers.printersNameAtIndex(i),
                        printers.userCheckAtIndex(i), printers.printersStatusAtIndex(i)});
    }
    return rows;
}

quelm::Value printersValue(const std::vector<PrinterRow>& rows) {
    quelm::Array printers;
    for (const auto& [id, name, checked, status] : rows) {
        printers.emplace_back(
            Dictionary{{"id", id}, {"name", name}, {"checked", checked}, {"status", status}});
    }
    return printers;
}

}  // namespace

ExitCode ShowStorage(const Arguments&, Console& console) {
    const std::string folder = GetConfigurationPath();
    orv_StorageFoldersInfo folders(folder);
    orv_StorageQuotaInfo quota(folder);
    if (!loadIfPresent(folders, files::storageFolders, console) ||
        !loadIfPresent(quota, files::storageQuota, console)) {
        return ExitCode::Failed;
    }
    if (console.json) {
        fmt::print(console.out, "{}\n",
                   ValueAsJson(Dictionary{{"folders", foldersValue(folders)},
                                          {"quota", quotaValue(quota)}}));
    } else {
        printStorage(console.out, folders, quota);
    }
    return ExitCode::Done;
}

ExitCode ShowPrinters(const Arguments&, Console& console) {
    const auto rows = printerRows();
    if (console.json) {
        fmt::print(console.out, "{}\n", ValueAsJson(printersValue(rows)));
        return ExitCode::Done;
    }
    for (const auto& [id, name, checked, status] : rows) {
        fmt::print(console.out, "[{}] {} ({}): {}\n", checked ? "x" : " ", quelm::VisibleText(name),
                   quelm::VisibleText(id), status);
    }
    return ExitCode::Done;
}

ExitCode PrintBrandText(const Arguments& arguments, Console& console) {
    const std::string text = BrandText(arguments[0]);
    fmt::print(console.out, "{}\n", console.json ? ValueAsJson(text) : quelm::VisibleText(text));
    return ExitCode::Done;
}

}  // namespace orv::cli
