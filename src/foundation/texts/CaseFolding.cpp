#include "foundation/texts/CaseFolding.h"

#include <utf8proc.h>

#include "foundation/texts/Utf8.h"

namespace quelm {

namespace {

void appendLower(std::string& folded, std::string_view character) {
    utf8proc_int32_t code = 0;
    utf8proc_iterate(reinterpret_cast<const utf8proc_uint8_t*>(character.data()),
                     static_cast<utf8proc_ssize_t>(character.size()), &code);
    utf8proc_uint8_t bytes[4];
    const auto length = utf8proc_encode_char(utf8proc_tolower(code), bytes);
    folded.append(reinterpret_cast<const char*>(bytes), static_cast<std::size_t>(length));
}

}  // namespace

std::string FoldedCase(std::string_view text) {
    std::string folded;
    folded.reserve(text.size());
    while (!text.empty()) {
        if (static_cast<signed char>(text.front()) >= 0) {
            folded.push_back(static_cast<char>(FoldCase(text.front())));
            text.remove_prefix(1);
            continue;
        }
        const std::size_t length = DecodeCharFromUtf8String(text);
        if (length > 1) {
            appendLower(folded, text.substr(0, length));
        } else {
            folded.push_back(text.front());
        }
        text.remove_prefix(length > 0 ? length : 1);
    }
    return folded;
}

}  // namespace quelm
