#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace orv {

/// A part of a text that opens an address.
struct TextLink {
    // In bytes.
    std::size_t start = 0;
    std::size_t length = 0;
    std::string address;
    /// As "#e51937"; empty for the usual colour of links.
    std::string color = {};
    bool operator==(const TextLink&) const = default;
};

struct StatusText {
    std::string text;
    std::vector<TextLink> links = {};
    bool operator==(const StatusText&) const = default;
};

enum class StatusImage { None, Syncing, InSync, PermissionViolation };

/// The image's name; empty for none.
[[nodiscard]] std::string_view NameOf(StatusImage image);

struct StatusLine {
    StatusText text;
    StatusImage image = StatusImage::None;
    bool operator==(const StatusLine&) const = default;
};

/// The colour of links to what needs the person's attention.
inline constexpr const char* attentionColor = "#e51937";

/// `text` and behind it `suffix`, a link but for so many characters (not bytes) at its ends.
[[nodiscard]] StatusText WithLinkedSuffix(std::string_view text, std::string_view suffix,
                                          std::size_t before, std::size_t behind,
                                          std::string address, std::string color = {});

}  // namespace orv
