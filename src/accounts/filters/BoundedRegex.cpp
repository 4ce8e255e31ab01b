#define PCRE2_CODE_UNIT_WIDTH 8

#include "accounts/filters/BoundedRegex.h"

#include <cstdint>
#include <ctime>
#include <pcre2.h>

namespace orv {

namespace {

using namespace std::chrono_literals;
using Answer = BoundedRegex::Answer;

// In steps at one place; a match that reaches the limit there has taken a fraction of a
// millisecond.
constexpr std::uint32_t matchLimit = 20'000;
/// Expressions in use need no more, so that hardly one has to be watched.
constexpr std::uint32_t usualSteps = 1'000;
constexpr std::uint32_t depthLimit = 10'000;
constexpr std::uint32_t heapLimitKiB = 4'096;
constexpr std::size_t jitStackStart = std::size_t{32} << 10U;
constexpr std::size_t jitStackMost = std::size_t{512} << 10U;
/// How many places are tried between two looks at the clock.
constexpr std::size_t slice = 32;
/// From here on a time is worth a second measurement. Expressions in use take microseconds.
constexpr auto standsOut = 200us;

constexpr std::uint32_t options =
    PCRE2_CASELESS | PCRE2_UTF | PCRE2_UCP | PCRE2_MATCH_INVALID_UTF | PCRE2_NEVER_BACKSLASH_C;

template <auto release>
struct ReleaseBy {
    template <class T>
    void operator()(T* object) const {
        release(object);
    }
};
template <class T, auto release>
using Owned = std::unique_ptr<T, ReleaseBy<release>>;

/// What a thread needs to match; made once, because it costs more than most matches.
struct Workspace {
    Owned<pcre2_match_data, pcre2_match_data_free> data{pcre2_match_data_create(1, nullptr)};
    Owned<pcre2_match_context, pcre2_match_context_free> context{
        pcre2_match_context_create(nullptr)};
    Owned<pcre2_jit_stack, pcre2_jit_stack_free> stack{
        pcre2_jit_stack_create(jitStackStart, jitStackMost, nullptr)};

    Workspace() {
        pcre2_set_depth_limit(context.get(), depthLimit);
        pcre2_set_heap_limit(context.get(), heapLimitKiB);
        pcre2_jit_stack_assign(context.get(), nullptr, stack.get());
    }
};

/// The places of a path where a match may begin; `last` may be no place.
struct Places {
    std::size_t first = 0;
    std::size_t last = PCRE2_UNSET;
};

Answer search(const pcre2_code* code, std::string_view path, std::uint32_t steps,
              const Places& places = {}) {
    const auto [from, last] = places;
    thread_local const Workspace workspace;
    pcre2_set_match_limit(workspace.context.get(), steps);
    pcre2_set_offset_limit(workspace.context.get(), last);
    const int result = pcre2_match(code, reinterpret_cast<PCRE2_SPTR>(path.data()), path.size(),
                                   from, 0, workspace.data.get(), workspace.context.get());
    if (result >= 0) return Answer::Yes;
    return result == PCRE2_ERROR_NOMATCH ? Answer::No : Answer::GaveUp;
}

/// Where the slice ends that begins at `from`: not within a character.
std::size_t endOfSlice(std::string_view path, std::size_t from) {
    std::size_t end = from + slice;
    while (end < path.size() && (static_cast<unsigned char>(path[end]) & 0xC0U) == 0x80)
        ++end;
    return end;
}

// The cheapest goes forward in steps of some milliseconds, which is enough to find what is slow
// sooner or later. That of the processor counts this thread's work alone and is dear.
constexpr clockid_t cheapClock = CLOCK_MONOTONIC_COARSE;
constexpr clockid_t fineClock = CLOCK_MONOTONIC;
constexpr clockid_t processorClock = CLOCK_THREAD_CPUTIME_ID;

std::chrono::nanoseconds now(clockid_t clock) {
    timespec time = {};
    clock_gettime(clock, &time);
    return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
}

}  // namespace

void BoundedRegex::Release::operator()(pcre2_real_code_8* code) const {
    pcre2_code_free(code);
}

std::optional<BoundedRegex> BoundedRegex::compile(const std::string& text, bool isTimed) {
    // "\G" is where the search begins, and "(*COMMIT)" ends it: both would mean a slice
    const bool inSlices = isTimed && text.find("\\G") == text.npos && text.find("(*") == text.npos;
    int error = 0;
    std::size_t offset = 0;
    auto* const code =
        pcre2_compile(reinterpret_cast<PCRE2_SPTR>(text.data()), text.size(),
                      options | (inSlices ? PCRE2_USE_OFFSET_LIMIT : 0U), &error, &offset, nullptr);
    if (code == nullptr) return std::nullopt;
    // where it fails, the interpreter matches, within the same limits
    pcre2_jit_compile(code, PCRE2_JIT_COMPLETE);
    return BoundedRegex(code, inSlices);
}

std::size_t BoundedRegex::size() const {
    std::size_t size = 0;
    pcre2_pattern_info(code_.get(), PCRE2_INFO_SIZE, &size);
    return size;
}

BoundedRegex::Trial BoundedRegex::tryAtOnce(std::string_view path) const {
    const clockid_t clock = inSlices_ ? fineClock : cheapClock;
    const auto start = now(clock);
    const Answer answer = search(code_.get(), path, inSlices_ ? usualSteps : matchLimit);
    return {answer, now(clock) - start};
}

BoundedRegex::Trial BoundedRegex::tryWatched(std::string_view path) const {
    const auto start = now(processorClock);
    for (std::size_t from = 0;;) {
        const std::size_t end = inSlices_ ? endOfSlice(path, from) : PCRE2_UNSET;
        const Places places{from, inSlices_ ? end - 1 : PCRE2_UNSET};
        const Answer answer = search(code_.get(), path, matchLimit, places);
        const auto took = now(processorClock) - start;
        if (answer != Answer::No || end > path.size()) return {answer, took};
        if (took > patience) return {Answer::GaveUp, took};
        from = end;
    }
}

BoundedRegex::Trial BoundedRegex::match(std::string_view path) const {
    const Trial trial = tryAtOnce(path);
    // a slow thread may only have had to wait
    const bool isClear = trial.answer != Answer::GaveUp && trial.took < standsOut;
    return isClear ? trial : tryWatched(path);
}

}  // namespace orv
