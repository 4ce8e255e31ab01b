#include "platform/linux/DesktopWorkspace.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <fcntl.h>
#include <filesystem>
#include <string_view>
#include <strings.h>
#include <sys/stat.h>
#include <utility>

#include "platform/FileDescriptor.h"
#include "platform/linux/DetachedProgram.h"
#include "platform/linux/FolderKinds.h"
#include "platform/linux/TrashInfo.h"
#include "platform/linux/UniformTypes.h"

namespace platform {

namespace {

/// None when the variable is unset or no absolute path, which is how it has to be taken.
std::optional<std::string> pathInEnvironment(const char* name) {
    const char* const value = std::getenv(name);
    if (value == nullptr || *value != '/') return std::nullopt;
    return value;
}

std::optional<std::string> trashRoot() {
    if (const auto data = pathInEnvironment("XDG_DATA_HOME")) return *data + "/Trash";
    if (const auto home = pathInEnvironment("HOME")) return *home + "/.local/share/Trash";
    return std::nullopt;
}

bool isFolder(const std::string& path) {
    struct stat info = {};
    return ::stat(path.c_str(), &info) == 0 && S_ISDIR(info.st_mode);
}

/// Makes the folder and those above that are missing, for the user alone.
bool makeFolders(const std::string& path) {
    for (std::size_t end = path.find('/', 1);; end = path.find('/', end + 1)) {
        const std::string folder = path.substr(0, end);
        if (::mkdir(folder.c_str(), S_IRWXU) != 0 && !isFolder(folder)) return false;
        if (end == std::string::npos) return true;
    }
}

std::tm localNow() {
    const std::time_t now = std::time(nullptr);
    std::tm local = {};
    ::localtime_r(&now, &local);
    return local;
}

void writeNewFile(const std::string& path, std::string_view text) {
    const FileDescriptor file(
        ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, S_IRUSR | S_IWUSR));
    if (!file) return;
    const ssize_t written = ::write(file.get(), text.data(), text.size());
    if (written != static_cast<ssize_t>(text.size())) ::unlink(path.c_str());
}

bool isControl(char c) {
    return static_cast<unsigned char>(c) < 0x20 || c == 0x7F;
}

bool mayOpen(const std::string& address) {
    constexpr auto schemes = std::to_array<std::string_view>({"http", "https", "mailto", "orv"});
    const std::size_t colon = address.find(':');
    return colon != std::string::npos && std::ranges::none_of(address, isControl) &&
           std::ranges::any_of(schemes, [&](std::string_view scheme) {
               return scheme.size() == colon &&
                      ::strncasecmp(scheme.data(), address.data(), colon) == 0;
           });
}

}  // namespace

DesktopWorkspace::DesktopWorkspace(Reporter reporter)
    : reporter_(reporter), fileTypes_(std::move(reporter)) {}

std::optional<std::string> DesktopWorkspace::trashFolder() {
    const auto root = trashRoot();
    if (!root || !makeFolders(*root + "/info") || !makeFolders(*root + "/files")) {
        return std::nullopt;
    }
    return *root + "/files";
}

void DesktopWorkspace::recordTrashed(const std::string& originalPath,
                                     const std::string& trashedPath) {
    const std::filesystem::path trashed(trashedPath);
    const auto folder = trashFolder();
    std::error_code error;
    const auto original = std::filesystem::absolute(originalPath, error);
    if (error || !folder || trashed.parent_path() != *folder || !trashed.has_filename()) return;
    const auto info = trashed.parent_path().parent_path() / "info" / trashed.filename();
    writeNewFile(info.string() + ".trashinfo", TrashInfoText(original.string(), localNow()));
}

std::optional<std::string> DesktopWorkspace::contentType(const std::string& path) {
    std::error_code ignored;
    if (!std::filesystem::is_regular_file(path, ignored)) return std::nullopt;
    const FileDescriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    struct stat info = {};
    if (!file || ::fstat(file.get(), &info) != 0 || !S_ISREG(info.st_mode)) return std::nullopt;
    const auto mimeType = fileTypes_.mimeType(file.get());
    if (!mimeType) return std::nullopt;
    return UniformType(*mimeType);
}

std::uint32_t DesktopWorkspace::folderFlags(std::string_view name) {
    return FlagsOfFolderName(name);
}

std::vector<std::string> DesktopWorkspace::hiddenNames(const std::string& folder) {
    return ReadHiddenNames(folder);
}

bool DesktopWorkspace::openAddress(const std::string& address) {
    if (mayOpen(address)) return open(address);
    report("An address is not opened: it is none of http, https, mailto and orv.");
    return false;
}

bool DesktopWorkspace::openPath(const std::string& path) {
    // an absolute one is no option and has no scheme, whatever it begins with
    std::error_code error;
    const auto absolute = std::filesystem::absolute(path, error);
    return !error && !path.empty() && open(absolute.string());
}

bool DesktopWorkspace::open(const std::string& what) {
    const int error = StartDetached({"xdg-open", what});
    if (error == ENOENT)
        report("xdg-open is missing. Install the package xdg-utils.");
    else if (error != 0)
        report(std::string("xdg-open does not start: ") + std::strerror(error));
    return error == 0;
}

bool DesktopWorkspace::startProgram(const std::vector<std::string>& words) {
    const int error = StartDetached(words);
    if (error == 0) return true;
    report((words.empty() ? "A program" : words.front()) +
           " does not start: " + std::strerror(error));
    return false;
}

void DesktopWorkspace::report(const std::string& line) const {
    if (reporter_) reporter_(line);
}

}  // namespace platform
