#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace orv {

/// Regular expressions (PCRE, UTF-8, without regard to case) that exclude folders by their path.
/// Nothing in them matches a byte of the path that is not UTF-8. Copies share what was compiled.
/// Any thread.
///
/// The expressions come from a server, so no expression may hold up a scan: compiling and matching
/// are bounded. One that reaches a bound on a path counts as not matching it, and one whose slow
/// matches have used up its share of time is not tried any more; either is logged once.
class FolderPatterns {
 public:
    FolderPatterns() = default;
    /// What cannot be compiled is logged and left out.
    explicit FolderPatterns(const std::vector<std::string>& expressions);

    [[nodiscard]] bool empty() const { return size() == 0; }
    /// How many expressions were compiled.
    [[nodiscard]] std::size_t size() const;
    /// Whether any expression matches somewhere in the path.
    [[nodiscard]] bool matches(std::string_view path) const;

 private:
    class Set;
    std::shared_ptr<const Set> set_;
};

}  // namespace orv
