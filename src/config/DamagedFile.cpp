#include "config/DamagedFile.h"

#include <cerrno>
#include <ctime>
#include <fcntl.h>
#include <fmt/chrono.h>
#include <fmt/format.h>
#include <map>
#include <mutex>
#include <sys/sendfile.h>
#include <sys/stat.h>
#include <tuple>
#include <unistd.h>

#include "foundation/files/FileIo.h"
#include "foundation/system/Log.h"

namespace orv {

namespace {

using Identity = std::pair<dev_t, ino_t>;
/// Size, time of change of the content and of the entry, in seconds and nanoseconds.
using State = std::tuple<off_t, time_t, long, time_t, long>;

struct SoundFiles {
    std::mutex mutex;
    std::map<Identity, std::pair<State, quelm::Value::Type>> states;
};

SoundFiles& soundFiles() {
    static SoundFiles files;
    return files;
}

// far more than an account has files; forgetting costs one more parse
constexpr std::size_t remembered = 256;

State stateOf(const struct stat& info) {
    return {info.st_size, info.st_mtim.tv_sec, info.st_mtim.tv_nsec, info.st_ctim.tv_sec,
            info.st_ctim.tv_nsec};
}

/// Makes a file that nobody has used, from a name with the time; a number is added when taken.
quelm::FileDescriptor createCopyFile(const std::string& path, std::string& copyPath) {
    constexpr int attempts = 100;
    const std::string base =
        fmt::format("{}.damaged-{:%Y%m%dT%H%M%SZ}", path, fmt::gmtime(std::time(nullptr)));
    for (int n = 1; n <= attempts; ++n) {
        copyPath = n == 1 ? base : fmt::format("{}-{}", base, n);
        quelm::FileDescriptor copy(
            open(copyPath.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600));
        if (copy || errno != EEXIST) return copy;
    }
    return {};
}

bool copyContent(int from, int to) {
    off_t offset = 0;
    while (true) {
        constexpr std::size_t chunk = std::size_t{1} << 20U;
        const ssize_t sent = sendfile(to, from, &offset, chunk);
        if (sent == 0) return true;
        if (sent < 0 && errno != EINTR) return false;
    }
}

}  // namespace

void RememberSound(const LockedFile& file, quelm::Value::Type type) {
    const struct stat& info = file.status();
    const std::lock_guard guard(soundFiles().mutex);
    auto& states = soundFiles().states;
    if (states.size() >= remembered) states.clear();
    states[{info.st_dev, info.st_ino}] = {stateOf(info), type};
}

bool IsKnownSound(const LockedFile& file, quelm::Value::Type type) {
    const struct stat& info = file.status();
    const std::lock_guard guard(soundFiles().mutex);
    const auto found = soundFiles().states.find({info.st_dev, info.st_ino});
    return found != soundFiles().states.end() && found->second == std::pair(stateOf(info), type);
}

bool KeepDamagedFile(const LockedFile& file, const std::string& path) {
    std::string copyPath;
    const quelm::FileDescriptor copy = createCopyFile(path, copyPath);
    if (copy && copyContent(file.descriptor(), copy.get())) {
        quelm::LogWarning(
            fmt::format("{} could not be read and is replaced; its old content is "
                        "kept in {}",
                        path, copyPath));
        return true;
    }
    const std::string error = LastError();
    if (copy) unlink(copyPath.c_str());
    quelm::LogError(fmt::format(
        "{} could not be read and stays as it is, because no copy of it can be made: {}", path,
        error));
    return false;
}

}  // namespace orv
