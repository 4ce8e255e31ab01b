#include <benchmark/benchmark.h>
#include <cstring>
#include <random>
#include <string>
#include <vector>

#include "foundation/paths/ParsedPath.h"
#include "foundation/paths/PathClassification.h"

namespace {

/// Paths as a home folder has them, 5 to 8 components deep.
const std::vector<std::string>& paths(std::int64_t count) {
    static std::vector<std::string> list;
    std::mt19937 random(7);
    while (list.size() < static_cast<std::size_t>(count)) {
        std::string path = "/home/user";
        const auto depth = 3 + random() % 4;
        for (unsigned i = 0; i < depth; ++i) {
            path += (random() % 50 == 0 ? "/.folder" : "/folder") + std::to_string(random() % 1000);
        }
        list.push_back(path);
    }
    return list;
}

void PathsOnePass(benchmark::State& state) {
    const auto& list = paths(state.range(0));
    for (auto _ : state) {
        unsigned slashes = 0;
        for (std::int64_t i = 0; i < state.range(0); ++i) {
            for (const char c : list[static_cast<std::size_t>(i)])
                slashes += c == '/';
        }
        benchmark::DoNotOptimize(slashes);
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(PathsOnePass)->RangeMultiplier(10)->Range(10'000, 1'000'000);

void PathsParseAndClassify(benchmark::State& state) {
    const auto& list = paths(state.range(0));
    for (auto _ : state) {
        unsigned picked = 0;
        for (std::int64_t i = 0; i < state.range(0); ++i) {
            const std::string& text = list[static_cast<std::size_t>(i)];
            const quelm::CParsedPath path(text, 1);
            picked += path.IsHidden();
            picked += path.IsSubpathOf("/home/user/folder1");
            picked += path.ContainsComponent("folder7");
            picked += orv::IsSystemPath(text);
            picked += orv::isInsideUserHome(text);
        }
        benchmark::DoNotOptimize(picked);
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(PathsParseAndClassify)->RangeMultiplier(10)->Range(10'000, 1'000'000);

}  // namespace
