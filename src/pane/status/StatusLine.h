#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "widgets/LinkedText.h"

namespace orv {

enum class StatusImage { None, Syncing, InSync, PermissionViolation };

/// The image's name; empty for none.
[[nodiscard]] std::string_view NameOf(StatusImage image);

struct StatusLine {
    LinkedText text;
    StatusImage image = StatusImage::None;
    bool operator==(const StatusLine&) const = default;
};

/// The colour of links to what needs the person's attention.
inline constexpr const char* attentionColor = "#e51937";

/// `text` and behind it `suffix`, a link but for so many characters (not bytes) at its ends.
[[nodiscard]] LinkedText WithLinkedSuffix(std::string_view text, std::string_view suffix,
                                          std::size_t before, std::size_t behind,
                                          std::string address, std::string color = {});

}  // namespace orv
