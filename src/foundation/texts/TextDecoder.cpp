#include "foundation/texts/TextDecoder.h"

#include <algorithm>
#include <locale>

namespace quelm {

CTextDecoder::CTextDecoder(std::istream& in) : source_(in) {
    // the locale goes first: with a buffer in place it would be handed on to the source's
    in_.imbue(std::locale::classic());
    in_.rdbuf(source_.rdbuf());
    in_.setstate(source_.rdstate());
}

void CTextDecoder::fail(const char* operation) {
    try {
        source_.setstate(in_.rdstate());
    } catch (const std::ios_base::failure&) {
        // the source is told to throw; ours says more
    }
    throw CTextDecodingException(operation);
}

template <class Integer>
void CTextDecoder::readNumber(Integer& value, const char* operation) {
    Integer number = 0;
    char separator = 0;
    in_ >> number;
    if (!in_.get(separator)) fail(operation);
    value = number;
}

CTextDecoder& CTextDecoder::operator>>(unsigned long& value) {
    readNumber(value,
               "quelm::CTextDecoder &quelm::CTextDecoder::operator>>(T &) [T = unsigned long]");
    return *this;
}

CTextDecoder& CTextDecoder::operator>>(long long& value) {
    readNumber(value, "quelm::CTextDecoder &quelm::CTextDecoder::operator>>(T &) [T = long long]");
    return *this;
}

CTextDecoder& CTextDecoder::operator>>(std::string& text) {
    constexpr unsigned long chunk = std::size_t{64} * 1024;
    unsigned long missing = 0;
    *this >> missing;
    buffer_.clear();
    while (missing > 0) {
        const std::size_t have = buffer_.size();
        const std::size_t part = std::min(missing, chunk);
        buffer_.resize(have + part);
        if (!in_.read(&buffer_[have], static_cast<std::streamsize>(part))) {
            fail("quelm::CTextDecoder &quelm::CTextDecoder::operator>>(std::string &)");
        }
        missing -= part;
    }
    text = buffer_;
    return *this;
}

}  // namespace quelm
