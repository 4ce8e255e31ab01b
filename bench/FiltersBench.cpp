#include <benchmark/benchmark.h>
#include <clocale>
#include <cstring>
#include <random>
#include <string>
#include <vector>

#include "accounts/filters/FilterCategories.h"
#include "accounts/filters/FilterList.h"
#include "accounts/filters/FolderPatterns.h"
#include "support/PlainFilterList.h"

namespace {

using orv::orv_FilterList;

/// All categories and 20 patterns of the user.
orv_FilterList includes() {
    orv_FilterList list(true);
    for (const auto& category : orv::FilterCategories())
        list.addFilters(category.type, category.patterns);
    for (const char* pattern :
         {"*.cpp",     "*.h",      "*.py",     "*.md",        "*.json",  "*.yaml",   "Makefile",
          "*.tar.xz",  "draft*",   "*.sqlite", "report*",     "*.ipynb", "*.tex",    "*.bib",
          "*.geojson", "Invoice*", "*.kdbx",   "?[0-9]*.log", "*.org",   "*_final.*"})
        list.addFilter(pattern, orv::FILTER_INCLUDED);
    return list;
}

orv_FilterList excludes() {
    orv_FilterList list(false);
    for (const char* pattern : {"*.tmp", "*.bak", "*~", "*.swp", "*.o", ".DS_Store", "Thumbs.db",
                                "*.vmdk", "*.vdi", "~$*", "*.part", "*.crdownload"})
        list.addFilter(pattern, orv::FILTER_EXCLUDED);
    return list;
}

/// Names as a home folder has them: three in four with an extension that some pattern names.
const std::vector<std::string>& names() {
    static const std::vector<std::string> list = [] {
        const std::vector<std::string> stems = {"IMG_20240611_", "report ",  "notes-",  "index",
                                                "scan.page.",    "Invoice ", ".config", "lib"};
        const std::vector<std::string> ends = {".jpg", ".JPG",  ".png", ".pdf",  ".docx",
                                               ".txt", ".mp3",  ".mp4", ".html", ".cpp",
                                               ".xml", ".zip",  ".o",   ".tmp",  ".imovielibrary",
                                               ".js",  ".so.1", "",     ".map",  ".tar.xz"};
        std::mt19937 random(7);
        std::vector<std::string> made(10'000);
        for (std::string& name : made) {
            name = stems[random() % stems.size()] + std::to_string(random() % 10'000) +
                   ends[random() % ends.size()];
        }
        return made;
    }();
    return list;
}

/// Takes every name through `decide`; the figure is for one name.
template <class Decide>
void run(benchmark::State& state, const char* locale, Decide decide) {
    if (!std::setlocale(LC_ALL, locale)) state.SkipWithError("no such locale");
    const auto& list = names();
    std::size_t next = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(decide(list[next]));
        if (++next == list.size()) next = 0;
    }
    std::setlocale(LC_ALL, "C");
}

void decideByIndex(benchmark::State& state, const char* locale) {
    const auto include = includes();
    const auto exclude = excludes();
    run(state, locale, [&](const std::string& name) {
        std::uint32_t type = 0;
        return include.isIncluded(name, type) && !exclude.isIncluded(name, type);
    });
}

void decideInOrder(benchmark::State& state, const char* locale) {
    const auto include = includes();
    const auto exclude = excludes();
    run(state, locale, [&](const std::string& name) {
        return test_support::DecideInOrder(include, name) &&
               !test_support::DecideInOrder(exclude, name);
    });
}

void FiltersLastDot(benchmark::State& state) {
    run(state, "C", [](const std::string& name) { return std::strrchr(name.c_str(), '.'); });
}
BENCHMARK(FiltersLastDot);

BENCHMARK_CAPTURE(decideByIndex, , "C")->Name("FiltersIndex");
BENCHMARK_CAPTURE(decideInOrder, , "C")->Name("FiltersInOrder");
BENCHMARK_CAPTURE(decideByIndex, , "C.UTF-8")->Name("FiltersIndexUtf8");
BENCHMARK_CAPTURE(decideInOrder, , "C.UTF-8")->Name("FiltersInOrderUtf8");

void FiltersBuild(benchmark::State& state) {
    for (auto _ : state)
        benchmark::DoNotOptimize(includes());
}
BENCHMARK(FiltersBuild);

const std::string folderPath =
    "/home/user/Documents/projects/2024/customer with a long name/deliverables/final version/"
    "source material/photographs/raw/summer/second week/selection/edited/export/large/web/jpeg/a";

std::vector<std::string> folderExpressions() {
    std::vector<std::string> list;
    for (const char* name : {"Caches", "node_modules", "\\.Trash", "\\.git/objects", "tmp",
                             "VirtualBox VMs", "\\.cache", "Temporary Items", "\\.venv", "Steam"}) {
        list.push_back("/" + std::string(name) + "(/|$)");
        list.push_back("^/Users/[^/]+/Library/.*" + std::string(name));
    }
    return list;
}

/// A byte at a time, as a matcher reads them; the compiler would take sixteen.
void FolderPatternsOnePass(benchmark::State& state) {
    for (auto _ : state) {
        std::size_t slashes = 0;
        for (const char c : folderPath) {
            slashes += c == '/';
            benchmark::DoNotOptimize(slashes);
        }
    }
}
BENCHMARK(FolderPatternsOnePass);

void FolderPatternsMatch(benchmark::State& state) {
    const orv::FolderPatterns patterns(folderExpressions());
    for (auto _ : state)
        benchmark::DoNotOptimize(patterns.matches(folderPath));
}
BENCHMARK(FolderPatternsMatch);

void FolderPatternsOneByOne(benchmark::State& state) {
    std::vector<orv::FolderPatterns> each;
    for (const std::string& expression : folderExpressions())
        each.emplace_back(std::vector{expression});
    for (auto _ : state) {
        for (const auto& patterns : each)
            benchmark::DoNotOptimize(patterns.matches(folderPath));
    }
}
BENCHMARK(FolderPatternsOneByOne);

}  // namespace
