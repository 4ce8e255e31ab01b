#include <cstdint>
#include <cstdlib>
#include <string>

#include "foundation/texts/Escaping.h"
#include "foundation/texts/Utf8.h"

// Valid text comes back from its escaped form, which XML can hold.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    static_cast<void>(quelm::UnescapeString(text));
    static_cast<void>(quelm::EscapeString(text, false));
    const std::string escaped = quelm::EscapeString(text);
    if (!quelm::IsValidUtf8(text)) return 0;
    if (quelm::UnescapeString(escaped) != text) std::abort();
    if (escaped.find_first_of("<>\"'") != std::string::npos) std::abort();
    return 0;
}
