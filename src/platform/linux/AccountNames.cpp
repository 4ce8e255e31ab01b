#include "platform/linux/AccountNames.h"

#include <cerrno>
#include <grp.h>
#include <pwd.h>
#include <vector>

namespace platform {

namespace {

/// `look` is one of the C library's re-entrant look-ups, which ask for a larger buffer by ERANGE.
template <typename Record>
std::string nameOf(std::uint32_t id,
                   int (*look)(std::uint32_t, Record*, char*, std::size_t, Record**),
                   char* Record::*name) {
    constexpr std::size_t largest = std::size_t{1024} * 1024;  // a group's members are in it
    for (std::vector<char> buffer(1024); buffer.size() <= largest;
         buffer.resize(buffer.size() * 4)) {
        Record record = {};
        Record* found = nullptr;
        const int error = look(id, &record, buffer.data(), buffer.size(), &found);
        if (error == 0 && found != nullptr) return found->*name;
        if (error != ERANGE) break;
    }
    return {};
}

}  // namespace

std::string UserName(std::uint32_t id) {
    return nameOf(id, &::getpwuid_r, &passwd::pw_name);
}
std::string GroupName(std::uint32_t id) {
    return nameOf(id, &::getgrgid_r, &group::gr_name);
}

}  // namespace platform
