#include "support/TextVariables.h"

#include <algorithm>
#include <iterator>
#include <string_view>

#include "foundation/system/Log.h"

namespace orv {

namespace {

/// What variables within values may make of a text.
constexpr std::size_t mostBytes = std::size_t{1} << 20U;

/// One variable's occurrences in a text, and what they become.
class Replacement {
 public:
    Replacement(std::string_view text, std::string_view variable, std::string_view value)
        : length_(variable.size()), value_(value) {
        for (auto at = text.find(variable); at != text.npos;
             at = text.find(variable, at + length_)) {
            positions_.push_back(at);
        }
    }

    [[nodiscard]] bool isNeeded() const { return !positions_.empty(); }

    [[nodiscard]] std::size_t sizeAfter(std::size_t size) const {
        return size - positions_.size() * length_ + positions_.size() * value_.size();
    }

    [[nodiscard]] std::string appliedTo(std::string_view text) const {
        std::string result;
        result.reserve(sizeAfter(text.size()));
        std::size_t copied = 0;
        for (const std::size_t position : positions_) {
            result.append(text.substr(copied, position - copied)).append(value_);
            copied = position + length_;
        }
        return result.append(text.substr(copied));
    }

    /// Where a boundary between two characters comes to stand; one within an occurrence goes to
    /// the end of the value.
    [[nodiscard]] std::size_t moved(std::size_t boundary) const {
        const auto next = std::ranges::lower_bound(positions_, boundary);
        if (next == positions_.begin()) return boundary;
        const auto before = static_cast<std::size_t>(std::distance(positions_.begin(), next));
        const std::size_t end = std::max(boundary, *std::prev(next) + length_);
        return end - before * length_ + before * value_.size();
    }

 private:
    std::vector<std::size_t> positions_;
    std::size_t length_;
    std::string_view value_;
};

void moveRuns(std::vector<StyleRun>& runs, const Replacement& replacement, std::size_t textSize) {
    for (StyleRun& run : runs) {
        const std::size_t begin = std::min(run.begin, textSize);
        const std::size_t end = begin + std::min(run.length, textSize - begin);
        run.begin = replacement.moved(begin);
        run.length = replacement.moved(end) - run.begin;
    }
    std::erase_if(runs, [](const StyleRun& run) { return run.length == 0; });
}

/// Calls `apply` with the replacement of each variable that occurs in the text, which it changes.
template <class Apply>
void replaceEach(const std::string& text, const TextVariables& variables, Apply apply) {
    for (const auto& [variable, value] : variables) {
        if (variable.empty()) continue;
        const Replacement replacement(text, variable, value);
        if (!replacement.isNeeded()) continue;
        if (replacement.sizeAfter(text.size()) <= mostBytes) {
            apply(replacement);
        } else {
            quelm::LogWarning(variable +
                              " makes a text too long and was not replaced. Shorten its "
                              "value in the branding file.");
        }
    }
}

}  // namespace

std::string ReplaceVariables(std::string text, const TextVariables& variables) {
    replaceEach(text, variables,
                [&text](const Replacement& replacement) { text = replacement.appliedTo(text); });
    return text;
}

void ReplaceVariables(StyledText& text, const TextVariables& variables) {
    replaceEach(text.text, variables, [&text](const Replacement& replacement) {
        moveRuns(text.runs, replacement, text.text.size());
        text.text = replacement.appliedTo(text.text);
    });
}

}  // namespace orv
