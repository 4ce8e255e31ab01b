#pragma once

#include <chrono>
#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

struct pcre2_real_code_8;

namespace orv {

/// A regular expression (PCRE, UTF-8, without regard to case) that cannot hold its user up. Any
/// thread.
class BoundedRegex {
 public:
    enum class Answer { Yes, No, GaveUp };
    struct Trial {
        Answer answer;
        std::chrono::nanoseconds took;
    };
    /// A match that took longer is too slow.
    static constexpr std::chrono::milliseconds patience{2};

    /// None for what cannot be compiled. `isTimed`: a match ends soon after `patience` without an
    /// answer. Otherwise, and where verbs such as "(*COMMIT)" and "\G" forbid it, only the limits
    /// on steps, depth and memory end it, and steps count anew at each place where a match may
    /// begin.
    [[nodiscard]] static std::optional<BoundedRegex> compile(const std::string& text, bool isTimed);

    /// Of the compiled form, in bytes.
    [[nodiscard]] std::size_t size() const;
    /// Whether it matches anywhere in the path. A time that stands out is that of the processor,
    /// so that a busy computer makes no expression slow.
    [[nodiscard]] Trial match(std::string_view path) const;

 private:
    struct Release {
        void operator()(pcre2_real_code_8* code) const;
    };

    BoundedRegex(pcre2_real_code_8* code, bool inSlices) : code_(code), inSlices_(inSlices) {}
    [[nodiscard]] Trial tryAtOnce(std::string_view path) const;
    [[nodiscard]] Trial tryWatched(std::string_view path) const;

    std::unique_ptr<pcre2_real_code_8, Release> code_;
    /// Whether a match can stop between its places to look at the clock.
    bool inSlices_;
};

}  // namespace orv
