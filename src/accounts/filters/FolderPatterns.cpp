#define PCRE2_CODE_UNIT_WIDTH 8

#include "accounts/filters/FolderPatterns.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cstdint>
#include <fmt/format.h>
#include <pcre2.h>
#include <utility>

#include "foundation/system/Log.h"

namespace orv {

namespace {

// What an expression may be and cost at most. Those in use have some 30 bytes and match a path
// within a few hundred steps; a match that reaches its limit has taken about a millisecond.
constexpr std::size_t longestExpression = 4'096;
constexpr std::size_t largestCode = std::size_t{64} << 10U;
constexpr std::size_t largestCodes = std::size_t{4} << 20U;
constexpr std::uint32_t matchLimit = 20'000;
constexpr std::uint32_t depthLimit = 10'000;
constexpr std::uint32_t heapLimitKiB = 4'096;
constexpr std::size_t jitStackStart = std::size_t{32} << 10U;
constexpr std::size_t jitStackMost = std::size_t{512} << 10U;
constexpr int patience = 16;
/// How many expressions are joined into one at most.
constexpr std::size_t largestGroup = 64;

constexpr std::uint32_t options =
    PCRE2_CASELESS | PCRE2_UTF | PCRE2_UCP | PCRE2_MATCH_INVALID_UTF | PCRE2_NEVER_BACKSLASH_C;

template <auto release>
struct Release {
    template <class T>
    void operator()(T* object) const {
        release(object);
    }
};
template <class T, auto release>
using Owned = std::unique_ptr<T, Release<release>>;

using Code = Owned<pcre2_code, pcre2_code_free>;

Code compile(const std::string& text) {
    int error = 0;
    std::size_t offset = 0;
    const auto* const bytes = reinterpret_cast<PCRE2_SPTR>(text.data());
    Code code(pcre2_compile(bytes, text.size(), options, &error, &offset, nullptr));
    // where it fails, the interpreter matches, within the same limits
    if (code) pcre2_jit_compile(code.get(), PCRE2_JIT_COMPLETE);
    return code;
}

std::size_t sizeOf(const Code& code) {
    std::size_t size = 0;
    pcre2_pattern_info(code.get(), PCRE2_INFO_SIZE, &size);
    return size;
}

/// What a thread needs to match; made once, because it costs more than most matches.
struct Workspace {
    Owned<pcre2_match_data, pcre2_match_data_free> data{pcre2_match_data_create(1, nullptr)};
    Owned<pcre2_match_context, pcre2_match_context_free> context{
        pcre2_match_context_create(nullptr)};
    Owned<pcre2_jit_stack, pcre2_jit_stack_free> stack{
        pcre2_jit_stack_create(jitStackStart, jitStackMost, nullptr)};

    Workspace() {
        pcre2_set_match_limit(context.get(), matchLimit);
        pcre2_set_depth_limit(context.get(), depthLimit);
        pcre2_set_heap_limit(context.get(), heapLimitKiB);
        pcre2_jit_stack_assign(context.get(), nullptr, stack.get());
    }
};

enum class Answer { Yes, No, GaveUp };

Answer match(const Code& code, std::string_view path) {
    thread_local const Workspace workspace;
    const auto* const bytes = reinterpret_cast<PCRE2_SPTR>(path.data());
    const int result = pcre2_match(code.get(), bytes, path.size(), 0, 0, workspace.data.get(),
                                   workspace.context.get());
    if (result >= 0) return Answer::Yes;
    return result == PCRE2_ERROR_NOMATCH ? Answer::No : Answer::GaveUp;
}

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
    Expression(std::string given, Code compiled)
        : text(std::move(given)), code(std::move(compiled)) {}

    std::string text;
    Code code;
    std::atomic<int> timesGivenUp = 0;
};

/// Expressions that are tried as one, until that gives up: then one of them is to be found that is
/// too slow, and they are tried one by one.
struct Group {
    std::vector<std::unique_ptr<Expression>> members;
    Code joined;
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
    }

    [[nodiscard]] std::size_t size() const { return size_; }

    [[nodiscard]] bool matches(std::string_view path) const {
        return std::ranges::any_of(groups_,
                                   [&](const auto& group) { return matches(*group, path); });
    }

 private:
    void add(const std::string& text) {
        Code code = text.size() <= longestExpression ? compile(text) : nullptr;
        const std::size_t codeSize = code ? sizeOf(code) : 0;
        if (!code || codeSize > largestCode || codeSizes_ + codeSize > largestCodes) {
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
        group.members.push_back(std::make_unique<Expression>(text, std::move(code)));
    }

    static void join(Group& group) {
        std::string all;
        for (const auto& member : group.members)
            all += (all.empty() ? "(?:" : "|(?:") + member->text + ")";
        if (group.members.size() > 1) group.joined = compile(all);
        group.split = !group.joined;
    }

    static bool matches(Group& group, std::string_view path) {
        if (!group.split) {
            const Answer answer = match(group.joined, path);
            if (answer != Answer::GaveUp) return answer == Answer::Yes;
            group.split = true;
        }
        return std::ranges::any_of(group.members,
                                   [&](const auto& member) { return matches(*member, path); });
    }

    static bool matches(Expression& expression, std::string_view path) {
        if (expression.timesGivenUp >= patience) return false;
        const Answer answer = match(expression.code, path);
        if (answer == Answer::GaveUp && expression.timesGivenUp++ == 0) {
            quelm::LogWarning(
                "A pattern of storage_exceptions.xml is too slow and counts as not matching: " +
                cut(expression.text));
        }
        return answer == Answer::Yes;
    }

    std::vector<std::unique_ptr<Group>> groups_;
    /// The last group, while it takes more members.
    Group* open_ = nullptr;
    std::size_t size_ = 0;
    std::size_t codeSizes_ = 0;
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
