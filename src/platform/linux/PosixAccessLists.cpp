#include "platform/linux/PosixAccessLists.h"

#include <acl/libacl.h>
#include <algorithm>
#include <array>
#include <cerrno>
#include <memory>
#include <sys/acl.h>
#include <sys/stat.h>
#include <utility>

#include "platform/linux/AccountNames.h"

namespace platform {

namespace {

struct FreeAcl {
    void operator()(void* memory) const { acl_free(memory); }
};
using Acl = std::unique_ptr<std::remove_pointer_t<acl_t>, FreeAcl>;
using Permissions = unsigned;  // bits of ACL_READ, ACL_WRITE and ACL_EXECUTE

constexpr auto allPermissions = std::to_array<acl_perm_t>({ACL_READ, ACL_WRITE, ACL_EXECUTE});

acl_tag_t tagOf(acl_entry_t entry) {
    acl_tag_t tag = ACL_UNDEFINED_TAG;
    acl_get_tag_type(entry, &tag);
    return tag;
}

std::uint32_t idOf(acl_entry_t entry) {
    const std::unique_ptr<void, FreeAcl> id(acl_get_qualifier(entry));
    return id ? *static_cast<const std::uint32_t*>(id.get()) : ~0U;
}

Permissions permissionsOf(acl_entry_t entry) {
    acl_permset_t set = nullptr;
    Permissions permissions = 0;
    acl_get_permset(entry, &set);
    for (const acl_perm_t permission : allPermissions) {
        if (acl_get_perm(set, permission) == 1) permissions |= permission;
    }
    return permissions;
}

int setPermissions(acl_entry_t entry, Permissions permissions) {
    acl_permset_t set = nullptr;
    if (acl_get_permset(entry, &set) != 0 || acl_clear_perms(set) != 0) return errno;
    for (const acl_perm_t permission : allPermissions) {
        if ((permissions & permission) != 0 && acl_add_perm(set, permission) != 0) return errno;
    }
    return 0;
}

std::vector<acl_entry_t> entriesOf(const Acl& acl) {
    std::vector<acl_entry_t> entries;
    acl_entry_t entry = nullptr;
    for (int which = ACL_FIRST_ENTRY; acl_get_entry(acl.get(), which, &entry) == 1;
         which = ACL_NEXT_ENTRY) {
        entries.push_back(entry);
    }
    return entries;
}

Permissions maskOf(const std::vector<acl_entry_t>& entries) {
    const auto mask = std::ranges::find(entries, ACL_MASK, &tagOf);
    return mask != entries.end() ? permissionsOf(*mask) : ACL_READ | ACL_WRITE | ACL_EXECUTE;
}

std::uint32_t rightsOf(Permissions permissions, bool folder) {
    std::uint32_t rights = 0;
    if ((permissions & ACL_READ) != 0) rights |= ReadDataOrListDirectory;
    if ((permissions & ACL_WRITE) != 0) rights |= WriteDataOrAddFile | AppendDataOrAddSubdirectory;
    if ((permissions & ACL_WRITE) != 0 && folder) rights |= DeleteChild;
    if ((permissions & ACL_EXECUTE) != 0) rights |= ExecuteOrSearch;
    return rights;
}

/// 0 for what cannot be expressed.
Permissions permissionsFor(const AccessEntry& entry) {
    Permissions permissions = 0;
    if (entry.kind == AccessEntry::Kind::Deny) return 0;
    if ((entry.rights & ReadDataOrListDirectory) != 0) permissions |= ACL_READ;
    if ((entry.rights & WriteDataOrAddFile) != 0) permissions |= ACL_WRITE;
    if ((entry.rights & ExecuteOrSearch) != 0) permissions |= ACL_EXECUTE;
    return permissions;
}

AccessEntry neutralEntry(acl_entry_t entry, Permissions mask, bool folder) {
    const bool user = tagOf(entry) == ACL_USER;
    const std::uint32_t id = idOf(entry);
    return {.kind = AccessEntry::Kind::Allow,
            .qualifier = user ? AccessEntry::Qualifier::User : AccessEntry::Qualifier::Group,
            .id = id,
            .name = user ? UserName(id) : GroupName(id),
            .rights = rightsOf(permissionsOf(entry) & mask, folder)};
}

/// So that a wider mask gives nobody more than before.
int applyMask(const Acl& acl) {
    const auto entries = entriesOf(acl);
    const Permissions mask = maskOf(entries);
    for (acl_entry_t entry : entries) {
        const acl_tag_t tag = tagOf(entry);
        if (tag != ACL_USER && tag != ACL_GROUP && tag != ACL_GROUP_OBJ) continue;
        if (const int error = setPermissions(entry, permissionsOf(entry) & mask)) return error;
    }
    return 0;
}

/// For changes by which the list may move.
template <typename Change>
int changeList(Acl& acl, Change change) {
    acl_t list = acl.release();
    const int error = change(&list) == 0 ? 0 : errno;
    acl.reset(list);
    return error;
}

int add(Acl& acl, acl_tag_t tag, const AccessEntry& wanted) {
    acl_entry_t entry = nullptr;
    const int error =
        changeList(acl, [&entry](acl_t* list) { return acl_create_entry(list, &entry); });
    if (error != 0) return error;
    if (acl_set_tag_type(entry, tag) != 0 || acl_set_qualifier(entry, &wanted.id) != 0) {
        return errno;
    }
    return setPermissions(entry, permissionsFor(wanted));
}

int addOrReplace(Acl& acl, const AccessEntry& wanted) {
    const bool user = wanted.qualifier == AccessEntry::Qualifier::User;
    const acl_tag_t tag = user ? ACL_USER : ACL_GROUP;
    for (acl_entry_t entry : entriesOf(acl)) {
        if (tagOf(entry) == tag && idOf(entry) == wanted.id) {
            return setPermissions(entry, permissionsFor(wanted));
        }
    }
    return add(acl, tag, wanted);
}

bool isFolder(const std::string& path) {
    struct stat info = {};
    return ::stat(path.c_str(), &info) == 0 && S_ISDIR(info.st_mode);
}

}  // namespace

std::optional<AccessList> PosixAccessLists::read(const std::string& path) {
    const Acl acl(acl_get_file(path.c_str(), ACL_TYPE_ACCESS));
    if (!acl && errno == ENOTSUP) return AccessList{};
    if (!acl) return std::nullopt;
    const auto entries = entriesOf(acl);
    const Permissions mask = maskOf(entries);
    const bool folder = isFolder(path);
    AccessList list;
    for (acl_entry_t entry : entries) {
        const acl_tag_t tag = tagOf(entry);
        if (tag == ACL_USER || tag == ACL_GROUP) list.push_back(neutralEntry(entry, mask, folder));
    }
    return list;
}

int PosixAccessLists::write(const std::string& path, const AccessList& list) {
    AccessList wanted = list;
    std::erase_if(wanted, [](const AccessEntry& entry) { return permissionsFor(entry) == 0; });
    if (wanted.empty()) return 0;

    Acl acl(acl_get_file(path.c_str(), ACL_TYPE_ACCESS));
    if (!acl) return errno;
    if (const int error = applyMask(acl)) return error;
    for (const auto& entry : wanted) {
        if (const int error = addOrReplace(acl, entry)) return error;
    }
    if (const int error = changeList(acl, &acl_calc_mask)) return error;
    return acl_set_file(path.c_str(), ACL_TYPE_ACCESS, acl.get()) == 0 ? 0 : errno;
}

}  // namespace platform
