#include <cstdint>
#include <cstdlib>
#include <string>

#include "foundation/propertylist/PropertyList.h"

// What can be read can be written and read again to the same, unless XML cannot hold it.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto first =
        quelm::ReadPropertyList(std::string(reinterpret_cast<const char*>(data), size)).value;
    const auto text = first ? quelm::WritePropertyList(*first) : std::nullopt;
    if (!text) return 0;
    const auto second = quelm::ReadPropertyList(*text).value;
    if (!second || quelm::WritePropertyList(*second) != text) std::abort();
    return 0;
}
