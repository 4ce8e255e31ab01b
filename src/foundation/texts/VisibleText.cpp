#include "foundation/texts/VisibleText.h"

#include <fmt/format.h>
#include <iterator>

namespace quelm {

namespace {

/// The length of the control character that the text begins with, 0 for none. Those from U+0080 to
/// U+009F have two bytes.
std::size_t controlAt(std::string_view text) {
    const auto byte = [text](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    if (byte(0) < 0x20 || byte(0) == 0x7F) return 1;
    return byte(0) == 0xC2 && text.size() > 1 && byte(1) >= 0x80 && byte(1) < 0xA0 ? 2 : 0;
}

}  // namespace

std::string VisibleText(std::string_view text) {
    std::string visible;
    visible.reserve(text.size());
    while (!text.empty()) {
        const std::size_t control = controlAt(text);
        for (const char c : text.substr(0, control))
            fmt::format_to(std::back_inserter(visible), "\\x{:02x}", static_cast<unsigned char>(c));
        if (control == 0) visible += text.front();
        text.remove_prefix(control == 0 ? 1 : control);
    }
    return visible;
}

}  // namespace quelm
