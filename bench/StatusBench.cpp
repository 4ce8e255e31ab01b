#include <benchmark/benchmark.h>
#include <fmt/format.h>
#include <string>

#include "pane/status/BackupLines.h"
#include "pane/status/ConnectionLine.h"
#include "pane/status/Headline.h"
#include "pane/status/ProjectLines.h"

namespace {

using namespace orv;

constexpr std::int64_t now = 1'700'000'000;

AgentProgress backingUp() {
    AgentProgress progress;
    progress.status = 4;
    progress.statusTimestamp = now - 2'700;
    progress.isStoreStatusKnown = true;
    progress.totalFiles = 120'000;
    progress.totalFolders = 9'000;
    progress.totalBytesForStoring = std::int64_t{80} << 30;
    progress.storedBytes = std::int64_t{30} << 30;
    progress.totalFilesForStoring = 70'000;
    progress.uploadSpeed = 1'500'000;
    progress.uploadSpeedMax = 4'000'000;
    progress.storeActivity = 10;
    progress.timeLeft = "12 minutes";
    return progress;
}

StatusInputs inputsOf() {
    return {.fullName = "Anna Berg",
            .backup = {.backupEnabled = true, .hasBackupPaths = true},
            .syncEnabled = true,
            .locks = 3,
            .lastComplete = now - 90'000};
}

/// What one event of the agent costs: every line and the headline.
void StatusLinesComposed(benchmark::State& state) {
    const AgentProgress progress = backingUp();
    const StatusInputs inputs = inputsOf();
    for (auto _ : state) {
        benchmark::DoNotOptimize(ComposeConnectionLine(progress, inputs.fullName, false, now));
        benchmark::DoNotOptimize(ComposeBackupLines(progress, inputs.backup));
        benchmark::DoNotOptimize(
            ComposeProjectLines(progress, {.locks = inputs.locks, .agentId = "1"}, "shown"));
        benchmark::DoNotOptimize(ComposeHeadline(progress, inputs, "", now));
        benchmark::DoNotOptimize(LastBackupText(inputs, now));
    }
}
BENCHMARK(StatusLinesComposed);

/// The same texts with nothing looked up and nothing decided.
void StatusTextsFormatted(benchmark::State& state) {
    const AgentProgress progress = backingUp();
    for (auto _ : state) {
        benchmark::DoNotOptimize(fmt::format("{} connected", "Anna Berg"));
        benchmark::DoNotOptimize(fmt::format("Connected for {} {}", 45, "minutes"));
        benchmark::DoNotOptimize(fmt::format("{} files and {} folders in backup ({:.1f} GB)",
                                             progress.totalFiles, progress.totalFolders, 80.0));
        benchmark::DoNotOptimize(
            fmt::format("{:.1f} GB ({} hours {} minutes) remaining", 50.0, 7, 40));
        benchmark::DoNotOptimize(fmt::format("{} projects with {} files ({:.1f} GB)", 0, 0, 0.0));
        benchmark::DoNotOptimize(fmt::format("{} ({} files locked)", progress.timeLeft, 3));
        benchmark::DoNotOptimize(fmt::format("Backing up: {:.1f} GB remain.", 50.0));
        benchmark::DoNotOptimize(fmt::format("Last complete backup: {}", "yesterday at 14:05"));
    }
}
BENCHMARK(StatusTextsFormatted);

}  // namespace
