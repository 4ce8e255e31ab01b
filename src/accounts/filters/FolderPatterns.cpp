#include "accounts/filters/FolderPatterns.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <chrono>
#include <cstdint>
#include <optional>
#include <utility>

#include "accounts/filters/BoundedRegex.h"
#include "foundation/system/Log.h"

namespace orv {

namespace {

using namespace std::chrono_literals;
using std::chrono::nanoseconds;

// What an expression may be and cost at most. Those in use have some 30 bytes and match a path
// within microseconds.
constexpr std::size_t longestExpression = 4'096;
constexpr std::size_t largestCode = std::size_t{64} << 10U;
constexpr std::size_t largestCodes = std::size_t{4} << 20U;
/// How many expressions are joined into one at most.
constexpr std::size_t largestGroup = 64;

// What slow matches may take in all: expressions share the time evenly, within two ends.
constexpr nanoseconds budget = 500ms;
constexpr nanoseconds smallestShare = 5ms;
constexpr nanoseconds largestShare = 50ms;
/// Quicker matches cost nothing.
constexpr nanoseconds slow = 200us;
/// A match that gives up costs at least this part of the share.
constexpr int mostFailures = 16;

/// Whether the expression means the same as one of several alternatives: it refers to no group by
/// number or name, and sets nothing that would reach beyond its end. What only looks so is tried
/// alone.
bool canBeJoined(std::string_view text) {
    constexpr std::array special = {"(*", "\\Q", "\\g", "\\k"};
    constexpr std::array harmlessGroups = {":", "=", "!", "<=", "<!"};
    const auto has = [text](auto part) { return text.find(part) != text.npos; };
    if (std::ranges::any_of(special, has)) return false;
    for (std::size_t i = 0; i + 1 < text.size(); ++i) {
        const std::string_view rest = text.substr(i + 2);
        const auto begins = [rest](auto start) { return rest.starts_with(start); };
        if (text[i] == '\\' && text[i + 1] >= '0' && text[i + 1] <= '9') return false;
        if (text[i] == '(' && text[i + 1] == '?' && std::ranges::none_of(harmlessGroups, begins)) {
            return false;
        }
    }
    return true;
}

struct Expression {
    Expression(std::string given, BoundedRegex compiled)
        : text(std::move(given)), regex(std::move(compiled)) {}

    std::string text;
    BoundedRegex regex;
    std::atomic<nanoseconds::rep> spent = 0;
    std::atomic<bool> isReported = false;
};

/// Expressions that are tried as one, until that is slow or gives up: then one of them is to be
/// found that is too slow, and they are tried one by one.
struct Group {
    std::vector<std::unique_ptr<Expression>> members;
    std::optional<BoundedRegex> joined;
    std::atomic<bool> split = false;
};

std::string cut(const std::string& text) {
    constexpr std::size_t shown = 200;
    return text.size() <= shown ? text : text.substr(0, shown) + "...";
}

}  // namespace

class FolderPatterns::Set {
 public:
    explicit Set(const std::vector<std::string>& expressions) {
        for (const std::string& text : expressions)
            add(text);
        for (auto& group : groups_)
            join(*group);
        if (size_ != 0)
            share_ = std::clamp(budget / static_cast<nanoseconds::rep>(size_), smallestShare,
                                largestShare);
    }

    [[nodiscard]] std::size_t size() const { return size_; }

    [[nodiscard]] bool matches(std::string_view path) const {
        return std::ranges::any_of(groups_,
                                   [&](const auto& group) { return matches(*group, path); });
    }

 private:
    void add(const std::string& text) {
        auto regex =
            text.size() <= longestExpression ? BoundedRegex::compile(text, true) : std::nullopt;
        const std::size_t codeSize = regex ? regex->size() : 0;
        if (!regex || codeSize > largestCode || codeSizes_ + codeSize > largestCodes) {
            quelm::LogError("Unable to create regular expression from string: " + cut(text));
            return;
        }
        codeSizes_ += codeSize;
        ++size_;
        const bool joinable = canBeJoined(text);
        if (!joinable || !open_ || open_->members.size() == largestGroup) {
            groups_.push_back(std::make_unique<Group>());
        }
        Group& group = *groups_.back();
        open_ = joinable ? &group : nullptr;
        group.members.push_back(std::make_unique<Expression>(text, std::move(*regex)));
    }

    static void join(Group& group) {
        std::string all;
        for (const auto& member : group.members)
            all += (all.empty() ? "(?:" : "|(?:") + member->text + ")";
        if (group.members.size() > 1) group.joined = BoundedRegex::compile(all, false);
        group.split = !group.joined;
    }

    [[nodiscard]] bool matches(Group& group, std::string_view path) const {
        if (!group.split) {
            const auto [answer, took] = group.joined->match(path);
            const bool gaveUp = answer == BoundedRegex::Answer::GaveUp;
            if (gaveUp || took > BoundedRegex::patience) group.split = true;
            if (!gaveUp) return answer == BoundedRegex::Answer::Yes;
        }
        return std::ranges::any_of(group.members,
                                   [&](const auto& member) { return matches(*member, path); });
    }

    [[nodiscard]] bool matches(Expression& expression, std::string_view path) const {
        if (expression.spent >= share_.count()) return false;
        const auto [answer, took] = expression.regex.match(path);
        const bool gaveUp = answer == BoundedRegex::Answer::GaveUp;
        if (gaveUp || took > slow) {
            const nanoseconds cost = gaveUp ? std::max(took, share_ / mostFailures + 1ns) : took;
            const bool isUsedUp = (expression.spent += cost.count()) >= share_.count();
            if (gaveUp || isUsedUp) report(expression);
        }
        return answer == BoundedRegex::Answer::Yes;
    }

    static void report(Expression& expression) {
        if (expression.isReported.exchange(true)) return;
        quelm::LogWarning(
            "A pattern of storage_exceptions.xml is too slow and counts as not matching: " +
            cut(expression.text));
    }

    std::vector<std::unique_ptr<Group>> groups_;
    /// The last group, while it takes more members.
    Group* open_ = nullptr;
    std::size_t size_ = 0;
    std::size_t codeSizes_ = 0;
    /// What each expression may spend on slow matches before it is not tried any more.
    nanoseconds share_ = largestShare;
};

FolderPatterns::FolderPatterns(const std::vector<std::string>& expressions)
    : set_(std::make_shared<const Set>(expressions)) {}

std::size_t FolderPatterns::size() const {
    return set_ ? set_->size() : 0;
}

bool FolderPatterns::matches(std::string_view path) const {
    return set_ && set_->matches(path);
}

}  // namespace orv
