#include "Tree.h"

#include <algorithm>
#include <array>
#include <fcntl.h>
#include <fmt/format.h>
#include <random>
#include <stdexcept>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

#include "platform/FileDescriptor.h"

namespace {

/// By how often they occur; some 85 in 100 belong to a category of filters.
constexpr std::array<std::string_view, 40> endings = {
    ".jpg",  ".jpg", ".JPG",  ".jpg",  ".png", ".png",  ".pdf", ".pdf",  ".docx", ".docx",
    ".xlsx", ".txt", ".txt",  ".html", ".htm", ".css",  ".xml", ".mp3",  ".mp3",  ".m4a",
    ".mp4",  ".mov", ".zip",  ".gz",   ".csv", ".pptx", ".rtf", ".gif",  ".svg",  ".psd",
    ".odt",  ".eml", ".tiff", ".flac", ".o",   ".js",   ".map", ".so.1", "",      ".json"};
constexpr std::array<std::string_view, 8> stems = {
    "IMG_20240611_", "report for the board ",
    "notes-",        "index",
    "scan page ",    "Invoice ",
    "track ",        "a longer name with what it is about "};
constexpr std::array<std::string_view, 6> folderStems = {"Project ",  "src",    "Holiday pictures ",
                                                         "customer-", "album ", "lib"};

platform::FileDescriptor openFolder(const std::string& path) {
    platform::FileDescriptor folder(::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!folder) throw std::runtime_error("cannot open " + path);
    return folder;
}

/// Each below one of those made shortly before, as a rule.
std::vector<std::string> makeFolders(const std::string& top, std::size_t count,
                                     std::mt19937& random) {
    constexpr std::size_t recent = 60;
    constexpr std::size_t longest = 400;
    std::vector<std::string> folders = {top};
    while (folders.size() < count) {
        const std::size_t back = random() % std::min(folders.size(), recent);
        const bool isRecent = random() % 4 != 0;
        const auto& parent =
            folders[isRecent ? folders.size() - 1 - back : random() % folders.size()];
        if (parent.size() > longest) continue;
        auto path = fmt::format("{}/{}{}", parent, folderStems[random() % folderStems.size()],
                                folders.size());
        if (::mkdir(path.c_str(), 0700) != 0) throw std::runtime_error("cannot make " + path);
        folders.push_back(std::move(path));
    }
    return folders;
}

void makeFile(int folder, std::size_t number, std::mt19937& random) {
    const auto name = fmt::format("{}{}{}", stems[random() % stems.size()], number,
                                  endings[random() % endings.size()]);
    const platform::FileDescriptor file(
        openat(folder, name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600));
    // a hole, which takes no room on the disk
    const auto size = static_cast<off_t>(random() % 4'000'000);
    if (!file || ::ftruncate(file.get(), size) != 0)
        throw std::runtime_error("cannot make " + name);
}

/// Few files in most folders, many in some.
void makeFiles(const std::vector<std::string>& folders, std::size_t count, std::mt19937& random) {
    std::geometric_distribution<std::size_t> share(
        std::min(0.9, static_cast<double>(folders.size()) / static_cast<double>(count + 1)));
    for (std::size_t number = 0; number < count;) {
        const auto folder = openFolder(folders[random() % folders.size()]);
        const std::size_t end = std::min(count, number + 1 + share(random));
        for (; number < end; ++number)
            makeFile(folder.get(), number, random);
    }
}

}  // namespace

ScanTree::ScanTree(const std::filesystem::path& place, std::size_t folders, std::size_t files)
    : path_((place / "bench-scan-XXXXXX").string()) {
    if (!::mkdtemp(path_.data())) throw std::runtime_error("cannot make " + path_);
    std::mt19937 random(7);
    makeFiles(makeFolders(path_, folders, random), files, random);
}

ScanTree::~ScanTree() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}
