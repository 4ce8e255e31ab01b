#include <cstdint>
#include <cstdlib>
#include <string>

#include "foundation/texts/HexEncoding.h"

// Any text decodes to half its length, and what was encoded comes back.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    if (quelm::CHexEncoding::Decode(text).size() != (size + 1) / 2) std::abort();
    if (quelm::CHexEncoding::Decode(quelm::CHexEncoding::Encode(text)) != text) std::abort();
    return 0;
}
