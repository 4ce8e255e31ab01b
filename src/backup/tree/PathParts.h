#pragma once

#include <optional>
#include <string_view>

namespace orv {

/// The parts of a path one after the other, without empty ones and ".".
class PathParts {
 public:
    explicit PathParts(std::string_view path) : rest_(path) {}

    /// None at the end.
    [[nodiscard]] std::optional<std::string_view> next() {
        while (!rest_.empty()) {
            const std::string_view part = rest_.substr(0, rest_.find('/'));
            rest_.remove_prefix(part.size() < rest_.size() ? part.size() + 1 : part.size());
            if (!part.empty() && part != ".") return part;
        }
        return std::nullopt;
    }

    /// What was not taken yet.
    [[nodiscard]] std::string_view rest() const { return rest_; }

 private:
    std::string_view rest_;
};

}  // namespace orv
