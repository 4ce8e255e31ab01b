#include <benchmark/benchmark.h>
#include <cstring>
#include <string>

#include "foundation/texts/Escaping.h"

namespace {

constexpr std::size_t size = std::size_t{1} << 20U;

std::string plainText() {
    return std::string(size, 'x');
}

/// Prose with blanks and markup.
std::string mixedText() {
    constexpr std::string_view sentence = "The <quick> fox & \"friends\" are 100% here,\n";
    std::string text;
    while (text.size() < size)
        text += sentence;
    text.resize(size);
    return text;
}

void CopyOneMebibyte(benchmark::State& state) {
    const std::string text = plainText();
    std::string copy(size, ' ');
    for (auto _ : state) {
        std::memcpy(copy.data(), text.data(), size);
        benchmark::ClobberMemory();
    }
}
BENCHMARK(CopyOneMebibyte);

void EscapePlain(benchmark::State& state) {
    const std::string text = plainText();
    for (auto _ : state)
        benchmark::DoNotOptimize(quelm::EscapeString(text));
}
BENCHMARK(EscapePlain);

void UnescapePlain(benchmark::State& state) {
    const std::string text = plainText();
    for (auto _ : state)
        benchmark::DoNotOptimize(quelm::UnescapeString(text));
}
BENCHMARK(UnescapePlain);

void EscapeMixed(benchmark::State& state) {
    const std::string text = mixedText();
    for (auto _ : state)
        benchmark::DoNotOptimize(quelm::EscapeString(text));
}
BENCHMARK(EscapeMixed);

void UnescapeMixed(benchmark::State& state) {
    const std::string text = quelm::EscapeString(mixedText());
    for (auto _ : state)
        benchmark::DoNotOptimize(quelm::UnescapeString(text));
}
BENCHMARK(UnescapeMixed);

}  // namespace
