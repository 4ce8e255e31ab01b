#pragma once

#include <concepts>
#include <iosfwd>
#include <string_view>
#include <type_traits>
#include <vector>

namespace quelm {

/// An enumeration of which every number of its underlying type is a value.
template <class E>
concept FixedEnumeration = std::is_enum_v<E> && requires {
    E{0};
};

/// The integer that stands for an enumeration in encoded text.
template <FixedEnumeration E>
using EncodedInteger =
    std::conditional_t<std::is_signed_v<std::underlying_type_t<E>>, long long, unsigned long>;

/// Writes self-delimiting text that CTextDecoder reads back: numbers as "12:", strings as their
/// length in bytes, ":" and the bytes as they are, sequences as their count, ":" and the elements.
/// Locale and format flags of the stream play no part; its errors stay in its state.
class CTextEncoder {
 public:
    /// The stream outlives the encoder.
    explicit CTextEncoder(std::ostream& out) : out_(out) {}

    template <std::integral Integer>
    requires(!std::same_as<Integer, bool>) CTextEncoder& operator<<(Integer value) {
        using Written = std::conditional_t<std::is_signed_v<Integer>, long long, unsigned long>;
        writeNumber(static_cast<Written>(value));
        return *this;
    }

    template <FixedEnumeration E>
    CTextEncoder& operator<<(E value) {
        return *this << static_cast<EncodedInteger<E>>(value);
    }

    CTextEncoder& operator<<(std::string_view text);

    template <FixedEnumeration E>
    CTextEncoder& operator<<(const std::vector<E>& values) {
        *this << values.size();
        for (const E value : values)
            *this << value;
        return *this;
    }

 private:
    void writeNumber(unsigned long value);
    void writeNumber(long long value);

    std::ostream& out_;
};

}  // namespace quelm
