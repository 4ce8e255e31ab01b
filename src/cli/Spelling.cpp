#include "cli/Spelling.h"

#include <algorithm>
#include <numeric>
#include <vector>

namespace orv::cli {

namespace {

/// The Levenshtein distance.
std::size_t editDistance(std::string_view from, std::string_view to) {
    std::vector<std::size_t> row(to.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (const char c : from) {
        std::size_t diagonal = row[0]++;
        for (std::size_t i = 0; i < to.size(); ++i) {
            const std::size_t exchanged = diagonal + (c != to[i]);
            diagonal = row[i + 1];
            row[i + 1] = std::min({row[i] + 1, row[i + 1] + 1, exchanged});
        }
    }
    return row.back();
}

}  // namespace

std::string_view NearestWord(std::string_view word, std::span<const std::string_view> words) {
    const auto distance = [start = word.substr(0, 64)](std::string_view other) {
        return editDistance(start, other.substr(0, 64));
    };
    const auto nearest = std::ranges::min_element(words, {}, distance);
    return nearest != words.end() ? *nearest : std::string_view();
}

}  // namespace orv::cli
