#include <benchmark/benchmark.h>
#include <fmt/format.h>
#include <pugixml.hpp>
#include <string>

#include "accounts/StorageFoldersInfo.h"

namespace {

constexpr int folders = 10'000;

/// What an agent with many folders writes.
const std::string& storageFolders() {
    static const std::string text = [] {
        std::string rows;
        for (int i = 0; i < folders; ++i) {
            rows += fmt::format(
                "<folder><total>{}</total><stored>{}</stored>"
                "<path>/home/user/Documents/projects/folder {}</path></folder>\n",
                1'000'000 + i, 500'000 + i, i);
        }
        return "<?xml version=\"1.0\"?>\n<response><stores>\n" + rows + "</stores></response>\n";
    }();
    return text;
}

void StorageFoldersParsedByPugixml(benchmark::State& state) {
    const std::string& text = storageFolders();
    for (auto _ : state) {
        pugi::xml_document document;
        benchmark::DoNotOptimize(document.load_buffer(text.data(), text.size()));
    }
}
BENCHMARK(StorageFoldersParsedByPugixml);

void StorageFoldersLoad(benchmark::State& state) {
    orv::orv_StorageFoldersInfo info("/nowhere");
    for (auto _ : state)
        benchmark::DoNotOptimize(info.loadData(storageFolders()));
}
BENCHMARK(StorageFoldersLoad);

/// A folder that the agent does not know, which is compared with all.
void StorageFoldersFindNone(benchmark::State& state) {
    orv::orv_StorageFoldersInfo info("/nowhere");
    info.loadData(storageFolders());
    for (auto _ : state)
        benchmark::DoNotOptimize(info.findInfoForPath("/home/user/Documents/projects/folder x"));
}
BENCHMARK(StorageFoldersFindNone);

}  // namespace
