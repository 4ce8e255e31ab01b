#include "backup/sharing/LeftOutReasons.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <optional>
#include <unistd.h>

#include "backup/tree/TreeRules.h"
#include "foundation/files/EntryReader.h"
#include "foundation/system/LocalizedString.h"
#include "widgets/SizeText.h"

namespace orv {

namespace {

using quelm::FormatLocalizedString;
using quelm::GetLocalizedString;
using quelm::os::EntryKind;
using quelm::os::EntryReader;

std::string unreadable(int error) {
    return FormatLocalizedString("LeftOut.Unreadable", "It cannot be read: %@",
                                 {std::strerror(error)});
}

std::optional<std::string> reasonOfFolder(const std::string& path, const ScannerFilters& filters) {
    if (filters.unscannedFolders.contains(path)) {
        return GetLocalizedString("LeftOut.Volume",
                                  "It is on a volume of the system, or on one of a kind that this "
                                  "account does not back up");
    }
    if (filters.excludedFolders.matches(path))
        return GetLocalizedString("LeftOut.Policy", "The backup policy excludes its path");
    if (::access(path.c_str(), R_OK | X_OK) != 0) return unreadable(errno);
    return std::nullopt;
}

std::optional<std::string> reasonOfFile(const EntryReader& reader, std::string_view name,
                                        const ScannerFilters& filters) {
    std::uint32_t type = FILTER_ALL_FILES;
    if (!filters.include.isIncluded(name, type))
        return GetLocalizedString("LeftOut.Category", "It is of none of the chosen kinds of files");
    if (const auto* const pattern = filters.exclude.decidingFilter(name)) {
        return FormatLocalizedString("LeftOut.Pattern", "It is excluded by the pattern %@",
                                     {pattern->givenPattern()});
    }
    const auto status = reader.status(std::string(name).c_str());
    if (!status) return unreadable(errno);
    if (status->size > filters.maxFileSize) {
        return FormatLocalizedString("LeftOut.TooLarge", "It is larger than %@",
                                     {FileSizeText(filters.maxFileSize)});
    }
    return std::nullopt;
}

std::optional<std::string> reasonOf(const EntryReader& reader, const EntryReader::Entry& entry,
                                    const std::string& folder, const ScannerFilters& filters) {
    if (entry.name.starts_with('.'))
        return GetLocalizedString("LeftOut.Hidden", "It is hidden: its name begins with a dot");
    switch (entry.kind) {
        case EntryKind::Link:
            return GetLocalizedString("LeftOut.Link", "It is a link to something else");
        case EntryKind::Other:
            return GetLocalizedString("LeftOut.Other", "It is neither a file nor a folder");
        case EntryKind::Folder:
            return reasonOfFolder(PathInFolder(folder, entry.name), filters);
        case EntryKind::File:
            return reasonOfFile(reader, entry.name, filters);
    }
    return std::nullopt;
}

}  // namespace

LeftOutList FindLeftOut(const std::string& folder, const ScannerFilters& filters,
                        std::size_t mostEntries) {
    LeftOutList list;
    EntryReader reader;
    if (!reader.open(folder.c_str())) {
        list.problem = unreadable(errno);
        return list;
    }
    while (const auto entry = reader.next()) {
        auto reason = reasonOf(reader, *entry, folder, filters);
        if (!reason) continue;
        if (list.entries.size() == mostEntries) {
            list.isCut = true;
            break;
        }
        list.entries.push_back({std::string(entry->name), std::move(*reason)});
    }
    std::ranges::sort(list.entries, {}, &LeftOutEntry::name);
    return list;
}

}  // namespace orv
