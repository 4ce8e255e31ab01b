#include "foundation/files/AccessListCopy.h"

#include <algorithm>
#include <cerrno>

#include "foundation/paths/Paths.h"
#include "platform/Services.h"

namespace quelm::os {

namespace {

using platform::AccessEntry;
using platform::AccessList;

void keepForFolder(AccessList& list) {
    std::erase_if(list, [](const AccessEntry& entry) {
        return entry.kind == AccessEntry::Kind::Deny &&
               entry.qualifier == AccessEntry::Qualifier::Group && entry.name == "everyone";
    });
}

void keepForFile(AccessList& list) {
    constexpr std::uint32_t folderRights =
        platform::ReadDataOrListDirectory | platform::WriteDataOrAddFile |
        platform::ExecuteOrSearch | platform::AppendDataOrAddSubdirectory | platform::DeleteChild;
    for (AccessEntry& entry : list)
        entry.rights &= ~folderRights;
}

std::string parentOf(const std::string& path) {
    const std::string_view trimmed = RemoveLastSlashFromPath(path);
    if (trimmed.find('/') == std::string_view::npos) return ".";
    const std::string_view parent = RemoveLastPathComponent(trimmed);
    return parent.empty() ? "/" : std::string(parent);
}

EStatusCode copyFromParent(const std::string& path, void (*keep)(AccessList&)) {
    const auto& port = platform::ProcessServices().accessLists;
    if (!port) return EStatusCode::SUCCESS;

    const auto own = port->read(path);
    if (!own) return StatusCodeForErrno(errno);
    if (!own->empty()) return EStatusCode::SUCCESS;

    auto inherited = port->read(parentOf(path));
    if (!inherited) return StatusCodeForErrno(errno);
    keep(*inherited);
    if (inherited->empty()) return EStatusCode::SUCCESS;
    return StatusCodeForErrno(port->write(path, *inherited));
}

}  // namespace

EStatusCode CopyFolderAcl(const std::string& path) {
    return copyFromParent(path, keepForFolder);
}
EStatusCode CopyFileAcl(const std::string& path) {
    return copyFromParent(path, keepForFile);
}

}  // namespace quelm::os
