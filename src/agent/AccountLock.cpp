#include "agent/AccountLock.h"

#include <cerrno>
#include <charconv>
#include <cstring>
#include <fcntl.h>
#include <fmt/format.h>
#include <sys/file.h>
#include <unistd.h>

#include "config/AccountId.h"
#include "config/Locations.h"
#include "foundation/files/Folders.h"
#include "foundation/paths/Paths.h"

namespace orv {

namespace {

/// The number that the holder wrote; 0 without one.
long holderOf(int file) {
    char text[24];
    const auto size = ::pread(file, text, sizeof text, 0);
    long process = 0;
    if (size > 0) std::from_chars(text, text + size, process);
    return process;
}

std::string inUse(std::string_view accountId, int file) {
    const long process = holderOf(file);
    const std::string holder = process > 0 ? fmt::format(" (process {})", process) : "";
    return fmt::format("an agent of account {} is running already{}; stop that one first",
                       accountId, holder);
}

}  // namespace

std::optional<AccountLock> AccountLock::take(std::string_view accountId, std::string& error) {
    const std::string folder = quelm::ExpandTildeInPath(locations::cache);
    [[maybe_unused]] const auto made = quelm::os::RecursiveCreateFolder(folder);  // open() tells
    const std::string_view id = IsDefaultAccountId(accountId) ? "1" : accountId;
    const std::string path = fmt::format("{}/agent_{}.lock", folder, id);

    platform::FileDescriptor file(::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600));
    if (!file || ::flock(file.get(), LOCK_EX | LOCK_NB) != 0) {
        error = errno == EWOULDBLOCK ? inUse(accountId, file.get())
                                     : fmt::format("{}: {}", path, std::strerror(errno));
        return std::nullopt;
    }
    const std::string own = fmt::format("{}\n", ::getpid());
    // only for the message above, so it may fail
    if (::ftruncate(file.get(), 0) == 0) {
        [[maybe_unused]] const auto written = ::pwrite(file.get(), own.data(), own.size(), 0);
    }
    return AccountLock(std::move(file));
}

}  // namespace orv
