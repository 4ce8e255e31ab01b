#include "accounts/filters/ShellPattern.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <vector>

#include "foundation/texts/CaseFolding.h"

namespace orv {

namespace {

using Byte = unsigned char;

constexpr bool between(Byte low, Byte byte, Byte high) {
    return low <= byte && byte <= high;
}
constexpr bool isDigit(Byte byte) {
    return between('0', byte, '9');
}
constexpr bool isLower(Byte byte) {
    return between('a', byte, 'z');
}
constexpr bool isUpper(Byte byte) {
    return between('A', byte, 'Z');
}
constexpr bool isAlpha(Byte byte) {
    return isLower(byte) || isUpper(byte);
}
constexpr bool isAlnum(Byte byte) {
    return isAlpha(byte) || isDigit(byte);
}
constexpr bool isGraph(Byte byte) {
    return between('!', byte, '~');
}

struct CharacterClass {
    std::string_view name;
    bool (*holds)(Byte byte);
};

/// As in the C locale.
constexpr auto characterClasses = std::to_array<CharacterClass>({
    {"alnum", isAlnum},
    {"alpha", isAlpha},
    {"blank", [](Byte byte) { return byte == ' ' || byte == '\t'; }},
    {"cntrl", [](Byte byte) { return byte < ' ' || byte == 0x7F; }},
    {"digit", isDigit},
    {"graph", isGraph},
    {"lower", isLower},
    {"print", [](Byte byte) { return byte == ' ' || isGraph(byte); }},
    {"punct", [](Byte byte) { return isGraph(byte) && !isAlnum(byte); }},
    {"space", [](Byte byte) { return byte == ' ' || between('\t', byte, '\r'); }},
    {"upper", isUpper},
    {"xdigit", [](Byte byte) { return isDigit(byte) || between('a', byte | 0x20U, 'f'); }},
});

struct Step {
    bool matches;
    /// Where the pattern goes on after what matched.
    std::size_t next;
};

/// A bracket expression, asked about one byte.
class Bracket {
 public:
    /// `start` is behind the "[".
    Bracket(std::string_view pattern, std::size_t start, char byte)
        : pattern_(pattern), start_(start), at_(start), byte_(byte) {}

    Step evaluate() {
        const bool negated = at('!') || at('^');
        if (negated) ++at_;
        do {
            if (ended()) return asLiteral();
            if (!takeItem()) return {false, at_};
        } while (!at(']'));
        return {matched_ != negated, at_ + 1};
    }

 private:
    [[nodiscard]] bool ended() const { return at_ >= pattern_.size(); }
    [[nodiscard]] bool at(char wanted, std::size_t ahead = 0) const {
        return at_ + ahead < pattern_.size() && pattern_[at_ + ahead] == wanted;
    }
    /// Without its "]" the "[" stands for itself.
    [[nodiscard]] Step asLiteral() const { return {byte_ == '[', start_}; }

    /// False for what makes the whole expression match nothing.
    bool takeItem() {
        if (const auto name = className()) return takeClass(*name);
        if (isSingle('=') || (isSingle('.') && !(at('-', 5) && !at(']', 6))))
            return takeExactByte();
        const auto low = takeEndpoint();
        if (!low) return false;
        const bool range = at('-') && !at(']', 1);
        if (range) ++at_;
        const auto high = range ? takeEndpoint() : low;
        if (!high) return false;
        matched_ |= between(*low, quelm::FoldCase(byte_), *high);
        return true;
    }

    /// The name in "[:name:]", when that stands here.
    [[nodiscard]] std::optional<std::string_view> className() const {
        if (!at('[') || !at(':', 1)) return std::nullopt;
        const auto rest = pattern_.substr(at_ + 2);
        const auto length = static_cast<std::size_t>(
            std::find_if_not(rest.begin(), rest.end(),
                             [](char c) { return between('a', static_cast<Byte>(c), 'y'); }) -
            rest.begin());
        if (!rest.substr(length).starts_with(":]")) return std::nullopt;
        return rest.substr(0, length);
    }

    bool takeClass(std::string_view name) {
        const auto found = std::ranges::find(characterClasses, name, &CharacterClass::name);
        at_ += name.size() + 4;
        if (found == characterClasses.end()) return matched_;
        // of the byte itself: capitals are not lower, though case is ignored elsewhere
        matched_ |= found->holds(static_cast<Byte>(byte_));
        return true;
    }

    /// Whether "[=x=]" or "[.x.]" stands here, by its mark.
    [[nodiscard]] bool isSingle(char mark) const {
        return at('[') && at(mark, 1) && at(mark, 3) && at(']', 4);
    }

    /// Case counts here and in classes, unlike elsewhere.
    bool takeExactByte() {
        matched_ |= byte_ == pattern_[at_ + 2];
        at_ += 5;
        return true;
    }

    /// One character, also as "\x" and "[.x.]"; none when that is not complete.
    std::optional<Byte> takeEndpoint() {
        if (at('[') && at('.', 1)) return takeCollatingSymbol();
        if (at('\\')) ++at_;
        if (ended()) return std::nullopt;
        return quelm::FoldCase(pattern_[at_++]);
    }

    std::optional<Byte> takeCollatingSymbol() {
        if (!isSingle('.')) return std::nullopt;
        const auto symbol = static_cast<Byte>(pattern_[at_ + 2]);
        at_ += 5;
        return symbol;
    }

    std::string_view pattern_;
    std::size_t start_;
    std::size_t at_;
    char byte_;
    bool matched_ = false;
};

/// The places of a pattern where a "[" turned out to stand for itself, for which all that follows
/// was read: once is enough.
class LoneBrackets {
 public:
    [[nodiscard]] bool contains(std::size_t at) const { return at < isLone_.size() && isLone_[at]; }
    void add(std::size_t at, std::size_t patternSize) {
        isLone_.resize(patternSize);
        isLone_[at] = true;
    }

 private:
    std::vector<bool> isLone_;
};

Step matchBracket(std::string_view pattern, std::size_t at, char byte, LoneBrackets& lone) {
    if (byte != '[') return Bracket(pattern, at + 1, byte).evaluate();
    if (lone.contains(at)) return {true, at + 1};
    const Step step = Bracket(pattern, at + 1, byte).evaluate();
    if (step.matches && step.next == at + 1) lone.add(at, pattern.size());
    return step;
}

/// Matches one byte by what stands at `at`, which is no "*".
Step matchByte(std::string_view pattern, std::size_t at, char byte, LoneBrackets& lone) {
    switch (pattern[at]) {
        case '?':
            return {true, at + 1};
        case '[':
            return matchBracket(pattern, at, byte, lone);
        case '\\':
            if (++at == pattern.size()) return {false, at};
            [[fallthrough]];
        default:
            return {quelm::FoldCase(pattern[at]) == quelm::FoldCase(byte), at + 1};
    }
}

/// The first place from `from` on where the pattern's part at `at`, behind a star, can begin.
std::size_t beginOfPart(std::string_view pattern, std::size_t at, std::string_view name,
                        std::size_t from) {
    constexpr std::string_view special = "*?[\\";
    if (at == pattern.size() || special.find(pattern[at]) != special.npos) return from;
    const Byte first = quelm::FoldCase(pattern[at]);
    while (from < name.size() && quelm::FoldCase(name[from]) != first)
        ++from;
    return from;
}

}  // namespace

bool MatchesShellPattern(std::string_view pattern, std::string_view name) {
    constexpr auto none = std::string_view::npos;
    std::size_t at = 0;
    std::size_t afterStar = none;
    // where the last star's share of the name ends; it grows until the rest fits
    std::size_t starEnd = 0;
    LoneBrackets lone;
    for (std::size_t i = 0; i < name.size();) {
        if (at < pattern.size() && pattern[at] == '*') {
            afterStar = ++at;
            i = starEnd = beginOfPart(pattern, at, name, i);
            continue;
        }
        const Step step =
            at < pattern.size() ? matchByte(pattern, at, name[i], lone) : Step{false, at};
        if (step.matches) {
            at = step.next;
            ++i;
        } else if (afterStar == none) {
            return false;
        } else {
            at = afterStar;
            i = starEnd = beginOfPart(pattern, at, name, starEnd + 1);
        }
    }
    return pattern.find_first_not_of('*', at) == none;
}

}  // namespace orv
