#include "foundation/texts/TextEncoder.h"

#include <fmt/format.h>
#include <ostream>

namespace quelm {

namespace {

void write(std::ostream& out, std::string_view text) {
    out.write(text.data(), static_cast<std::streamsize>(text.size()));
}

}  // namespace

void CTextEncoder::writeNumber(unsigned long value) {
    write(out_, fmt::format("{}:", value));
}
void CTextEncoder::writeNumber(long long value) {
    write(out_, fmt::format("{}:", value));
}

CTextEncoder& CTextEncoder::operator<<(std::string_view text) {
    *this << text.size();
    write(out_, text);
    return *this;
}

}  // namespace quelm
