#include <benchmark/benchmark.h>
#include <cstdint>
#include <fmt/format.h>
#include <malloc.h>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "backup/tree/FileSystemTree.h"
#include "config/TopLevelPaths.h"
#include "platform/Workspace.h"

namespace {

using orv::FileSystemTree;
using orv::orv_FileSystemItem;

constexpr std::size_t inEach = 10;

/// Ten folders with names of 16 bytes in each folder, so many levels deep: 11,110 folders of four
/// levels, 1,111,110 of six.
class RegularCatalogue final : public orv::FolderCatalogue {
 public:
    explicit RegularCatalogue(std::int64_t levels) : levels_(levels) {
        full_.isReadable = empty_.isReadable = true;
        for (std::size_t i = 0; i < inEach; ++i)
            full_.folders.push_back({name(i), platform::ContainerItem});
    }
    static std::string name(std::size_t place) { return fmt::format("a folder no. {:04}", place); }

    orv::FolderListing list(const std::string& path) override {
        const auto depth = path == "/" ? 0 : std::ranges::count(path, '/');
        return depth < levels_ ? full_ : empty_;
    }
    std::uint32_t flags(const std::string& /*path*/) override { return platform::ContainerItem; }
    bool isSymlink(const std::string& /*path*/) override { return false; }

 private:
    std::int64_t levels_;
    orv::FolderListing full_;
    orv::FolderListing empty_;
};

const orv::TreeRoots computer{.volumes = {{"/", "Computer"}}};

void loadAll(orv_FileSystemItem& item) {
    for (orv_FileSystemItem* child : item.children())
        loadAll(*child);
}

/// A tree with everything loaded.
class LoadedTree {
 public:
    explicit LoadedTree(std::int64_t levels) : catalogue_(levels) { loadAll(root()); }
    FileSystemTree& tree() { return tree_; }
    orv_FileSystemItem& root() { return *tree_.rootFileSystemItem(); }

 private:
    RegularCatalogue catalogue_;
    FileSystemTree tree_{catalogue_, computer};
};

/// Rows of so many folders of the lowest level, as far from each other as can be.
quelm::Array spreadRows(std::int64_t levels, std::int64_t count) {
    std::int64_t leaves = 1;
    for (std::int64_t level = 0; level < levels; ++level)
        leaves *= inEach;
    quelm::Array rows;
    for (std::int64_t i = 0; i < count; ++i) {
        std::string path;
        auto rest = static_cast<std::size_t>(i * (leaves / count));
        for (std::int64_t level = 0; level < levels; ++level, rest /= inEach)
            path = "/" + RegularCatalogue::name(rest % inEach) + path;
        rows.emplace_back(quelm::Array{std::move(path), true});
    }
    return rows;
}

void insertRows(FileSystemTree& tree, const quelm::Array& rows) {
    for (const auto& value : rows) {
        const auto row = orv::SelectionRowOf(value);
        tree.insertUserPath(row->path, row->isSelected, false);
    }
}

void TreeLoaded(benchmark::State& state) {
    for (auto _ : state)
        benchmark::DoNotOptimize(LoadedTree(state.range(0)).tree().numberOfItems());
}
BENCHMARK(TreeLoaded)->DenseRange(4, 6)->Unit(benchmark::kMillisecond);

/// Of memory for each folder, its name included.
void TreeMemory(benchmark::State& state) {
    const auto inUse = [] {
        const auto heap = mallinfo2();
        return static_cast<double>(heap.uordblks + heap.hblkhd);
    };
    for (auto _ : state) {
        const double before = inUse();
        LoadedTree loaded(state.range(0));
        state.counters["bytes"] =
            (inUse() - before) / static_cast<double>(loaded.tree().numberOfItems());
    }
}
BENCHMARK(TreeMemory)->DenseRange(4, 6)->Iterations(1);

void TreeFlagsOnePass(benchmark::State& state) {
    std::vector<std::uint64_t> flags(LoadedTree(state.range(0)).tree().numberOfItems());
    for (auto _ : state) {
        for (const std::uint64_t flag : {1, 0}) {
            for (std::uint64_t& each : flags)
                each = flag;
            benchmark::ClobberMemory();
        }
    }
}
BENCHMARK(TreeFlagsOnePass)->DenseRange(4, 6)->Unit(benchmark::kMillisecond);

void TreeCheckAndUncheck(benchmark::State& state) {
    LoadedTree loaded(state.range(0));
    for (auto _ : state) {
        loaded.root().changeStoreFlag(true);
        loaded.root().changeStoreFlag(false);
    }
}
BENCHMARK(TreeCheckAndUncheck)->DenseRange(4, 6)->Unit(benchmark::kMillisecond);

/// With no size known any more, as after a click on the root.
void TreeSelectionSize(benchmark::State& state) {
    LoadedTree loaded(state.range(0));
    for (auto _ : state) {
        state.PauseTiming();
        loaded.root().changeStoreFlag(false);
        loaded.root().changeStoreFlag(true);
        state.ResumeTiming();
        benchmark::DoNotOptimize(loaded.tree().getSelectionSize());
    }
}
BENCHMARK(TreeSelectionSize)->DenseRange(4, 6)->Unit(benchmark::kMillisecond);

constexpr std::int64_t millionFolders = 6;

void TreeRowsCopied(benchmark::State& state) {
    const auto rows = spreadRows(millionFolders, state.range(0));
    for (auto _ : state) {
        quelm::Array copy = rows;
        benchmark::DoNotOptimize(copy.data());
    }
}
BENCHMARK(TreeRowsCopied)
    ->RangeMultiplier(10)
    ->Range(1'000, 100'000)
    ->Unit(benchmark::kMillisecond);

/// A new tree, which loads what the rows lead to.
void TreeRowsIn(benchmark::State& state) {
    const auto rows = spreadRows(millionFolders, state.range(0));
    RegularCatalogue catalogue(millionFolders);
    for (auto _ : state) {
        FileSystemTree tree(catalogue, computer);
        insertRows(tree, rows);
        state.counters["folders"] = static_cast<double>(tree.numberOfItems());
    }
}
BENCHMARK(TreeRowsIn)->RangeMultiplier(10)->Range(1'000, 100'000)->Unit(benchmark::kMillisecond);

/// Of a tree with a million folders loaded.
void TreeRowsOut(benchmark::State& state) {
    LoadedTree loaded(millionFolders);
    insertRows(loaded.tree(), spreadRows(millionFolders, state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(loaded.tree().getPathsAndFlags().size());
}
BENCHMARK(TreeRowsOut)->RangeMultiplier(10)->Range(1'000, 100'000)->Unit(benchmark::kMillisecond);

}  // namespace
