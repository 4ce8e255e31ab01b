// bench_scan FILE REPETITIONS [FOLDERS FILES [PLACE]]: scans of a tree that it makes in PLACE (the
// folder for temporary files) and removes. Writes {"name": number} as JSON: nanoseconds by the
// clock, medians of so many repetitions in turns. Beside the scan stand a loop of the system's
// calls alone and the command `du`.
#include <algorithm>
#include <cstdlib>
#include <fcntl.h>
#include <fmt/format.h>
#include <fmt/ostream.h>
#include <fstream>
#include <functional>
#include <malloc.h>
#include <map>
#include <spawn.h>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

#include "Loop.h"
#include "Tree.h"
#include "WaitingRunLoop.h"
#include "accounts/filters/FilterCategories.h"
#include "backup/scanner/FolderScannerTask.h"

namespace {

orv::ScannerFilters filters() {
    orv::ScannerFilters all;
    for (const auto& category : orv::FilterCategories())
        all.include.addFilters(category.type, category.patterns);
    for (const char* pattern :
         {"*.tmp",        "*.bak",   "*~",      "*.swp",       ".DS_Store",
          "Thumbs.db",    "*.vmdk",  "*.vdi",   "~$*",         "*.part",
          "*.dmg",        "*.iso",   "*.old",   "core.[0-9]*", "*.lock",
          "*.crdownload", "cache-*", "*.cache", "*.log",       "*copy of copy*"})
        all.exclude.addFilter(pattern, orv::FILTER_EXCLUDED);
    std::vector<std::string> expressions;
    for (const char* name : {"Caches", "node_modules", "\\.Trash", "\\.git/objects", "\\.tmp",
                             "VirtualBox VMs", "\\.cache", "Temporary Items", "\\.venv", "Steam"}) {
        expressions.push_back("/" + std::string(name) + "(/|$)");
        expressions.push_back("^/Users/[^/]+/Library/.*" + std::string(name));
    }
    all.excludedFolders = orv::FolderPatterns(expressions);
    return all;
}

/// Adds up and keeps the files, as a window does.
struct Sum final : orv::FolderScannerDelegate {
    void folderScanResult(const orv::orv_FolderScannerRequest& request) override {
        bytes += request.size();
        files += request.files();
        ++folders;
        if (request.scannedFiles()) kept.push_back(request.scannedFiles());
    }
    void folderSubtreeScanFinished(const orv::orv_FolderScannerRequest&) override {}
    void folderScanningFinished() override { isFinished = true; }

    std::uint64_t bytes = 0;
    std::uint64_t files = 0;
    std::uint64_t folders = 0;
    std::vector<std::shared_ptr<const orv::ScannedFiles>> kept;
    bool isFinished = false;
};

Sum scan(const std::string& path, const orv::ScannerFilters& with, bool readAhead) {
    WaitingRunLoop loop;
    Sum sum;
    orv::orv_FolderScannerTask task(loop, sum, {readAhead, orv::MakeFolderReader});
    task.setFilters(with);
    task.start();
    task.requestComputePath(path, nullptr);
    loop.runUntil(sum.isFinished);
    return sum;
}

void du(const std::string& path) {
    std::string folder = path;
    char name[] = "du";
    char only[] = "-s";
    char apparent[] = "--apparent-size";
    char* arguments[] = {name, only, apparent, folder.data(), nullptr};
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    pid_t child = 0;
    int status = -1;
    if (posix_spawnp(&child, name, &actions, nullptr, arguments, environ) == 0)
        ::waitpid(child, &status, 0);
    posix_spawn_file_actions_destroy(&actions);
    if (status != 0) fmt::print(stderr, "du failed\n");
}

double nanosecondsOf(const std::function<void()>& work) {
    const auto start = std::chrono::steady_clock::now();
    work();
    return static_cast<double>((std::chrono::steady_clock::now() - start).count());
}

double median(std::vector<double>& values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

}  // namespace

int main(int argc, char** argv) {
    // the allocator keeps what is freed, as in the other benchmarks
    mallopt(M_MMAP_THRESHOLD, 32 << 20);
    mallopt(M_TRIM_THRESHOLD, 1 << 30);
    if (argc < 3) return 2;
    const auto number = [&](int at, std::size_t otherwise) {
        return argc > at ? std::strtoul(argv[at], nullptr, 10) : otherwise;
    };
    const std::size_t folders = number(3, 20'000);
    const ScanTree tree(
        argc > 5 ? std::filesystem::path(argv[5]) : std::filesystem::temp_directory_path(), folders,
        number(4, 400'000));
    const auto with = filters();
    const auto sum = scan(tree.path(), with, true);
    fmt::print("{} of {} folders scanned, {} files, {} of {} bytes\n", sum.folders, folders,
               sum.files, sum.bytes, BytesByLoop(tree.path()));

    const std::map<std::string, std::function<void()>> contestants = {
        {"ScanLoop", [&] { static_cast<void>(BytesByLoop(tree.path())); }},
        {"ScanOneThread", [&] { scan(tree.path(), with, false); }},
        {"ScanReadAhead", [&] { scan(tree.path(), with, true); }},
        {"ScanDu", [&] { du(tree.path()); }},
    };
    std::map<std::string, std::vector<double>> results;
    for (std::size_t round = 0; round < number(2, 1); ++round) {
        for (const auto& [name, work] : contestants)
            results[name].push_back(nanosecondsOf(work));
    }
    std::ofstream stream(argv[1]);
    const char* separator = "{";
    for (auto& [name, values] : results) {
        fmt::print(stream, "{}\"{}\": {}", separator, name, median(values));
        separator = ", ";
    }
    fmt::print(stream, "}}\n");
    return stream ? 0 : 1;
}
