#include "pane/links/SingleInstance.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <optional>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <system_error>
#include <utility>

#include "foundation/system/Log.h"
#include "foundation/texts/VisibleText.h"
#include "pane/links/LinkAddresses.h"

namespace orv {

namespace {

using platform::FileDescriptor;

constexpr mode_t ownOnly = 0600;

/// None for a path that no socket can have.
std::optional<sockaddr_un> socketAddress(const std::string& path) {
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    if (path.empty() || path.size() >= sizeof address.sun_path) return std::nullopt;
    std::memcpy(address.sun_path, path.c_str(), path.size());
    return address;
}

FileDescriptor makeSocket() {
    return FileDescriptor(::socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
}

/// Held while a panel runs, whatever is left of its socket.
FileDescriptor takeLock(const std::string& path) {
    FileDescriptor lock(
        ::open((path + ".lock").c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, ownOnly));
    if (lock && ::flock(lock.get(), LOCK_EX | LOCK_NB) != 0) lock.reset();
    return lock;
}

const sockaddr* generic(const sockaddr_un& address) {
    return static_cast<const sockaddr*>(static_cast<const void*>(&address));
}

bool isLink(const std::string& address) {
    return address.empty() || address.starts_with(links::scheme);
}

}  // namespace

std::string SingleInstance::defaultPath() {
    const char* const folder = std::getenv("XDG_RUNTIME_DIR");
    return folder && *folder == '/' ? std::string(folder) + "/tidewell-panel" : std::string();
}

bool SingleInstance::handOver(const std::string& path, const std::string& address) {
    const auto to = socketAddress(path);
    if (!to || takeLock(path)) return false;
    const FileDescriptor socket = makeSocket();
    const ssize_t sent =
        socket ? ::sendto(socket.get(), address.data(),
                          std::min(address.size(), longestAddress + 1), 0, generic(*to), sizeof *to)
               : -1;
    return sent >= 0 || errno == EAGAIN;  // one that is busy still runs
}

SingleInstance::SingleInstance(const std::string& path, platform::RunLoop& runLoop, Opened opened)
    : path_(path), opened_(std::move(opened)) {
    const auto own = socketAddress(path_);
    if (own) lock_ = takeLock(path_);
    if (!lock_) {
        quelm::LogWarning(
            "Links are not taken over from later starts: there is no folder for the "
            "session (XDG_RUNTIME_DIR), or another panel just started.");
        return;
    }
    ::unlink(path_.c_str());  // a killed panel's
    listener_ = makeSocket();
    const mode_t before = ::umask(0077);
    const bool isBound = listener_ && ::bind(listener_.get(), generic(*own), sizeof *own) == 0;
    ::umask(before);
    if (!isBound) {
        quelm::LogWarning(path_ + " cannot be made: " + std::generic_category().message(errno));
        return;
    }
    watch_ = runLoop.watch(listener_.get(), [this] { accept(); });
}

SingleInstance::~SingleInstance() {
    watch_.reset();
    if (listener_) ::unlink(path_.c_str());
}

void SingleInstance::accept() {
    std::array<char, longestAddress + 1> buffer{};
    const ssize_t count = ::recv(listener_.get(), buffer.data(), buffer.size(), 0);
    if (count < 0) return;
    const std::string address(buffer.data(), static_cast<std::size_t>(count));
    if (address.size() <= longestAddress && isLink(address)) return opened_(address);
    quelm::LogWarning("What a later start asked to open is refused: " +
                      quelm::VisibleText(address.substr(0, 200)));
}

}  // namespace orv
