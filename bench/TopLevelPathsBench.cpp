#include <benchmark/benchmark.h>
#include <random>
#include <string>

#include "config/TopLevelPaths.h"

namespace {

using quelm::Array;

/// Rows as a person and a policy leave them: one in ten lies below another, one in ten is left out.
Array selection(std::int64_t count) {
    std::mt19937 random(5);
    Array rows;
    for (std::int64_t i = 0; i < count; ++i) {
        std::string path = "/home/anna/Documents/" + std::to_string(random() % 1000) + "/folder " +
                           std::to_string(random() % static_cast<unsigned>(count));
        if (random() % 10 == 0) path += "/nested/folder";
        rows.emplace_back(Array{path, random() % 10 != 0});
    }
    return rows;
}

void RowsOnePass(benchmark::State& state) {
    const Array rows = selection(state.range(0));
    for (auto _ : state) {
        unsigned slashes = 0;
        for (const quelm::Value& row : rows) {
            for (const char c : *(*row.asArray())[0].asString())
                slashes += c == '/';
        }
        benchmark::DoNotOptimize(slashes);
    }
}
BENCHMARK(RowsOnePass)->RangeMultiplier(10)->Range(1'000, 100'000);

void RowsTopLevelPaths(benchmark::State& state) {
    const Array rows = selection(state.range(0));
    for (auto _ : state)
        benchmark::DoNotOptimize(orv::TopLevelPaths(rows));
}
BENCHMARK(RowsTopLevelPaths)->RangeMultiplier(10)->Range(1'000, 100'000);

void RowsRemoveTopLevelPath(benchmark::State& state) {
    const Array rows = selection(state.range(0));
    for (auto _ : state) {
        state.PauseTiming();
        Array left = rows;
        state.ResumeTiming();
        orv::RemoveTopLevelPath(left, "/home/anna/Documents/7");
        benchmark::DoNotOptimize(left.data());
        state.PauseTiming();
        Array().swap(left);
        state.ResumeTiming();
    }
}
BENCHMARK(RowsRemoveTopLevelPath)->RangeMultiplier(10)->Range(1'000, 100'000);

}  // namespace
