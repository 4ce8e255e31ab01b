#include "foundation/xml/XmlDocument.h"

#include <cerrno>
#include <charconv>
#include <cstdint>
#include <fmt/format.h>
#include <optional>
#include <system_error>

#include "foundation/files/WholeFile.h"

namespace quelm {

namespace {

/// Reads one character after the other; the zero bytes of UTF-16 and UTF-32 do not count.
class Characters {
 public:
    explicit Characters(std::string_view text) : text_(text) {}

    /// 0 at the end.
    [[nodiscard]] char next() {
        const std::size_t at = text_.find_first_not_of('\0');
        if (at == text_.npos) return 0;
        const char character = text_[at];
        text_.remove_prefix(at + 1);
        return character;
    }

 private:
    std::string_view text_;
};

/// The digit's value; none for what is no digit of the base.
std::optional<std::uint32_t> digit(char c, unsigned base) {
    std::uint32_t value = 0;
    const auto [end, error] = std::from_chars(&c, &c + 1, value, static_cast<int>(base));
    return error == std::errc() ? std::optional(value) : std::nullopt;
}

/// Whether "#0;" or "#x0;" stands here, in any length. Numbers wrap around at 32 bits, as the
/// parser's do.
bool isReferenceToNul(std::string_view text) {
    Characters characters(text);
    if (characters.next() != '#') return false;
    char c = characters.next();
    const unsigned base = c == 'x' ? 16 : 10;
    if (base == 16) c = characters.next();
    std::uint32_t number = 0;
    bool hasDigits = false;
    for (auto value = digit(c, base); value; value = digit(c, base)) {
        number = number * base + *value;
        hasDigits = true;
        c = characters.next();
    }
    return hasDigits && number == 0 && c == ';';
}

bool refersToNul(std::string_view text) {
    for (auto at = text.find('&'); at != text.npos; at = text.find('&', at + 1)) {
        if (isReferenceToNul(text.substr(at + 1))) return true;
    }
    return false;
}

}  // namespace

XmlResult ParseXml(std::string_view text, unsigned options) {
    if (text.size() > largestXmlDocument) return {nullptr, "the document is too large"};
    if (refersToNul(text)) return {nullptr, "the document holds a NUL"};
    auto document = std::make_unique<pugi::xml_document>();
    const auto result = document->load_buffer(text.data(), text.size(), options);
    if (!result) {
        return {nullptr, fmt::format("{} at byte {}", result.description(), result.offset)};
    }
    return {std::move(document), ""};
}

XmlResult ParseXmlFile(const std::string& path, unsigned options) {
    const auto content = ReadWholeFile(path, largestXmlDocument);
    if (content) return ParseXml(*content, options);
    const bool tooLarge = errno == EFBIG;
    return {nullptr, fmt::format("{}: {}", path, std::generic_category().message(errno)),
            !tooLarge};
}

}  // namespace quelm
