#pragma once

#include <istream>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "foundation/texts/TextEncoder.h"

namespace quelm {

/// The message is the signature of the decoding operation that failed.
class CTextDecodingException : public std::runtime_error {
 public:
    using std::runtime_error::runtime_error;
};

/// Reads what CTextEncoder wrote, in the same order. A number, string or element count that is not
/// there whole throws CTextDecodingException and marks the stream as failed; the target then keeps
/// what it had. Memory grows with what arrived, never by a length or count that the text claims.
class CTextDecoder {
 public:
    /// The stream outlives the decoder; its locale and format flags play no part.
    explicit CTextDecoder(std::istream& in);

    // The character after a number is skipped unseen.
    CTextDecoder& operator>>(unsigned long& value);
    CTextDecoder& operator>>(long long& value);
    CTextDecoder& operator>>(std::string& text);

    /// Any number is accepted, also one that names no enumerator.
    template <FixedEnumeration E>
    CTextDecoder& operator>>(E& value) {
        EncodedInteger<E> number = 0;
        *this >> number;
        value = static_cast<E>(number);
        return *this;
    }

    template <FixedEnumeration E>
    CTextDecoder& operator>>(std::vector<E>& values) {
        unsigned long count = 0;
        *this >> count;
        std::vector<E> arrived;
        for (; count > 0; --count)
            *this >> arrived.emplace_back();
        values = std::move(arrived);
        return *this;
    }

 private:
    template <class Integer>
    void readNumber(Integer& value, const char* operation);
    [[noreturn]] void fail(const char* operation);

    std::istream& source_;
    /// Reads the source's bytes under the decoder's own locale, flags and exception mask.
    std::istream in_{nullptr};
    std::string buffer_;
};

}  // namespace quelm
