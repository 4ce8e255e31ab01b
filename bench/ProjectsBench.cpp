#include <benchmark/benchmark.h>
#include <fmt/format.h>
#include <malloc.h>
#include <map>
#include <random>
#include <string>

#include "foundation/xml/XmlStream.h"
#include "sync/projects/ProjectListParser.h"

namespace {

/// An agent's answer of so many projects, in no order.
const std::string& projectList(std::int64_t count) {
    static std::map<std::int64_t, std::string> texts;
    std::string& text = texts[count];
    if (!text.empty()) return text;
    std::mt19937 random(7);
    text = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<project-list>\n";
    for (std::int64_t i = 0; i < count; ++i) {
        text += fmt::format(
            "<project><id>{0}</id><root-id>{0}7</root-id><name>Project {1}</name>"
            "<owner>anna{2}@acme.example</owner><owner-id>{2}</owner-id>"
            "<local-path>/home/anna/Quelm Projects/Project {1}</local-path>"
            "<total-size>{1}</total-size><total-files>{2}</total-files>"
            "<total-folders>12</total-folders><synced-size>{1}</synced-size>"
            "<synced-files>{2}</synced-files><read-only>0</read-only>"
            "<subscribed>1</subscribed><known>1</known><outOfQuota>0</outOfQuota>"
            "<external>0</external><partial>0</partial><archived>0</archived></project>\n",
            1'000'000 + i, random(), random() % 1000);
    }
    return text += "</project-list>\n";
}

/// Takes everything and keeps nothing.
struct Nobody final : quelm::XmlReceiver {
    void startElement(std::string_view name) override { benchmark::DoNotOptimize(name.data()); }
    void addText(std::string_view text) override { benchmark::DoNotOptimize(text.data()); }
    void endElement() override {}
};

void ProjectListStreamed(benchmark::State& state) {
    const std::string& text = projectList(state.range(0));
    for (auto _ : state) {
        Nobody nobody;
        benchmark::DoNotOptimize(quelm::StreamXml(text, nobody));
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}
BENCHMARK(ProjectListStreamed)
    ->Arg(1'000)
    ->Arg(10'000)
    ->Arg(100'000)
    ->Unit(benchmark::kMillisecond);

void ProjectListParsed(benchmark::State& state) {
    const std::string& text = projectList(state.range(0));
    for (auto _ : state) {
        auto parsed = orv::ParseProjectList(text, orv::ProjectListKind::Subscribed, {"anna"});
        benchmark::DoNotOptimize(parsed);
        state.PauseTiming();
        parsed.reset();
        state.ResumeTiming();
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}
/// What the projects take in memory, in bytes; `Time` is meaningless.
void ProjectListMemory(benchmark::State& state) {
    const std::string& text = projectList(state.range(0));
    const auto inUse = [] {
        const auto heap = mallinfo2();
        return static_cast<double>(heap.uordblks + heap.hblkhd);
    };
    for (auto _ : state) {
        const double before = inUse();
        const auto parsed = orv::ParseProjectList(text, orv::ProjectListKind::Subscribed, {});
        state.counters["ofText"] = (inUse() - before) / static_cast<double>(text.size());
    }
}
BENCHMARK(ProjectListMemory)->Arg(1'000)->Arg(100'000)->Iterations(1);
BENCHMARK(ProjectListParsed)->Arg(1'000)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond);

}  // namespace
