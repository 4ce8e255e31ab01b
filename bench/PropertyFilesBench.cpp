#include <benchmark/benchmark.h>
#include <cstdlib>
#include <plist/plist.h>
#include <string>
#include <string_view>
#include <unistd.h>

#include "config/PropertyFiles.h"
#include "foundation/files/FileIo.h"
#include "support/TemporaryFolder.h"

namespace {

using quelm::Array;
using quelm::Dictionary;
using quelm::FileDescriptor;

/// A settings record of 60 keys as accounts have them.
Dictionary settings() {
    Dictionary record;
    for (int i = 0; i < 60; ++i) {
        const std::string key = "setting_number_" + std::to_string(i);
        switch (i % 4) {
            case 0:
                record.set(key, "value of setting " + std::to_string(i));
                break;
            case 1:
                record.set(key, i * 1000);
                break;
            case 2:
                record.set(key, i % 8 == 2);
                break;
            default:
                record.set(key, i * 0.25);
                break;
        }
    }
    return record;
}

/// A selection of [path, flag] pairs.
Array selection(std::int64_t rows) {
    Array pairs;
    for (std::int64_t i = 0; i < rows; ++i) {
        pairs.push_back(Array{"/home/user/Documents/projects/folder " + std::to_string(i),
                              static_cast<std::int64_t>(i % 2)});
    }
    return pairs;
}

struct StoredFile {
    explicit StoredFile(const quelm::Value& content) { orv::StorePropertiesToFile(path, content); }
    test_support::TemporaryFolder folder;
    const std::string path = folder / "file.plist";
};

/// The bare calls: open, lock, size, read, close.
std::string readUnderLock(const std::string& path) {
    struct stat status = {};
    const FileDescriptor fd(quelm::OpenExclusive(path, status));
    std::string content(static_cast<std::size_t>(status.st_size), '\0');
    content.resize(quelm::ReadExact(fd.get(), content.data(), content.size()));
    return content;
}

bool store(const std::string& path, std::string_view content) {
    return orv::StoreDataToFile(path, content.data(), static_cast<std::uint32_t>(content.size()));
}

void DictionaryReadUnderLock(benchmark::State& state) {
    const StoredFile file(settings());
    for (auto _ : state)
        benchmark::DoNotOptimize(readUnderLock(file.path));
}
BENCHMARK(DictionaryReadUnderLock);

void DictionaryLoad(benchmark::State& state) {
    const StoredFile file(settings());
    for (auto _ : state)
        benchmark::DoNotOptimize(orv::LoadPropertiesFromFile(file.path));
}
BENCHMARK(DictionaryLoad);

void DictionaryReadAndWriteUnderLock(benchmark::State& state) {
    const StoredFile file(settings());
    for (auto _ : state) {
        const std::string content = readUnderLock(file.path);
        benchmark::DoNotOptimize(store(file.path, content));
    }
}
BENCHMARK(DictionaryReadAndWriteUnderLock);

void DictionaryMerge(benchmark::State& state) {
    const StoredFile file(settings());
    const Dictionary changes = settings();
    for (auto _ : state)
        benchmark::DoNotOptimize(orv::ChangePropertiesInFile(file.path, changes));
}
BENCHMARK(DictionaryMerge);

void ArrayReadUnderLock(benchmark::State& state) {
    const StoredFile file(selection(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(readUnderLock(file.path));
}
BENCHMARK(ArrayReadUnderLock)->RangeMultiplier(10)->Range(1'000, 100'000);

void ArrayLoad(benchmark::State& state) {
    const StoredFile file(selection(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(orv::LoadArrayFromFile(file.path));
}
BENCHMARK(ArrayLoad)->RangeMultiplier(10)->Range(1'000, 100'000);

void ArrayLoadWithLibplist(benchmark::State& state) {
    const StoredFile file(selection(state.range(0)));
    for (auto _ : state) {
        const std::string content = readUnderLock(file.path);
        plist_t list = nullptr;
        plist_from_xml(content.data(), static_cast<std::uint32_t>(content.size()), &list);
        benchmark::DoNotOptimize(list);
        plist_free(list);
    }
}
BENCHMARK(ArrayLoadWithLibplist)->RangeMultiplier(10)->Range(1'000, 100'000);

void ArrayWriteUnderLock(benchmark::State& state) {
    const StoredFile file(selection(state.range(0)));
    const std::string content = readUnderLock(file.path);
    for (auto _ : state) {
        benchmark::DoNotOptimize(store(file.path, content));
    }
}
BENCHMARK(ArrayWriteUnderLock)->RangeMultiplier(10)->Range(1'000, 100'000);

void ArrayStore(benchmark::State& state) {
    const quelm::Value pairs = selection(state.range(0));
    const StoredFile file(pairs);
    for (auto _ : state)
        orv::StoreArrayToFile(file.path, pairs);
}
BENCHMARK(ArrayStore)->RangeMultiplier(10)->Range(1'000, 100'000);

plist_t libplistSelection(std::int64_t rows) {
    plist_t list = plist_new_array();
    for (std::int64_t i = 0; i < rows; ++i) {
        const std::string path = "/home/user/Documents/projects/folder " + std::to_string(i);
        plist_t pair = plist_new_array();
        plist_array_append_item(pair, plist_new_string(path.c_str()));
        plist_array_append_item(pair, plist_new_uint(static_cast<std::uint64_t>(i % 2)));
        plist_array_append_item(list, pair);
    }
    return list;
}

void ArrayStoreWithLibplist(benchmark::State& state) {
    const StoredFile file(Array{});
    plist_t list = libplistSelection(state.range(0));
    for (auto _ : state) {
        char* text = nullptr;
        std::uint32_t length = 0;
        plist_to_xml(list, &text, &length);
        benchmark::DoNotOptimize(store(file.path, {text, length}));
        std::free(text);
    }
    plist_free(list);
}
BENCHMARK(ArrayStoreWithLibplist)->RangeMultiplier(10)->Range(1'000, 100'000);

}  // namespace
