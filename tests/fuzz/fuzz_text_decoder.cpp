#include <cstdint>
#include <sstream>
#include <string>
#include <vector>

#include "foundation/texts/TextDecoder.h"

namespace {

enum class Kind : std::uint32_t {};

}  // namespace

// The first byte picks what is expected; whatever follows is read or refused.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    std::istringstream stream(std::string(reinterpret_cast<const char*>(data + 1), size - 1));
    quelm::CTextDecoder decoder(stream);
    try {
        while (true) {
            std::string text;
            unsigned long number = 0;
            long long difference = 0;
            std::vector<Kind> kinds;
            switch (data[0] % 4) {
                case 0:
                    decoder >> text;
                    break;
                case 1:
                    decoder >> number >> text;
                    break;
                case 2:
                    decoder >> difference;
                    break;
                default:
                    decoder >> kinds;
                    break;
            }
        }
    } catch (const quelm::CTextDecodingException&) {
    }
    return 0;
}
