#include "pane/status/StatusLine.h"

#include <array>
#include <utility>

namespace orv {

namespace {

bool continuesCharacter(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80;
}

/// Where the text goes on after so many characters.
std::size_t behindFirst(std::string_view text, std::size_t characters) {
    std::size_t at = 0;
    for (; characters > 0 && at < text.size(); --characters) {
        do {
            ++at;
        } while (at < text.size() && continuesCharacter(text[at]));
    }
    return at;
}

/// Where the last so many characters begin.
std::size_t beforeLast(std::string_view text, std::size_t characters) {
    std::size_t at = text.size();
    for (; characters > 0 && at > 0; --characters) {
        do {
            --at;
        } while (at > 0 && continuesCharacter(text[at]));
    }
    return at;
}

}  // namespace

std::string_view NameOf(StatusImage image) {
    static constexpr std::array<std::string_view, 4> names = {"", "syncing", "in-sync",
                                                              "permissionViolation"};
    return names.at(static_cast<std::size_t>(image));
}

LinkedText WithLinkedSuffix(std::string_view text, std::string_view suffix, std::size_t before,
                            std::size_t behind, std::string address, std::string color) {
    LinkedText whole{std::string(text).append(suffix)};
    const std::size_t start = behindFirst(suffix, before);
    const std::size_t end = beforeLast(suffix, behind);
    if (start < end) {
        whole.links.push_back(
            {text.size() + start, end - start, std::move(address), std::move(color)});
    }
    return whole;
}

}  // namespace orv
