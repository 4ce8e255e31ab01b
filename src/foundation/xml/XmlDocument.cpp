#include "foundation/xml/XmlDocument.h"

#include <cerrno>
#include <fmt/format.h>
#include <system_error>

#include "foundation/files/WholeFile.h"

namespace quelm {

namespace {

constexpr std::size_t mostBytes = std::size_t{64} << 20U;

}  // namespace

XmlResult ParseXml(std::string_view text, unsigned options) {
    if (text.size() > mostBytes) return {nullptr, "the document is too large"};
    auto document = std::make_unique<pugi::xml_document>();
    const auto result = document->load_buffer(text.data(), text.size(), options);
    if (!result) {
        return {nullptr, fmt::format("{} at byte {}", result.description(), result.offset)};
    }
    return {std::move(document), ""};
}

XmlResult ParseXmlFile(const std::string& path, unsigned options) {
    const auto content = ReadWholeFile(path, mostBytes);
    if (content) return ParseXml(*content, options);
    const bool tooLarge = errno == EFBIG;
    return {nullptr, fmt::format("{}: {}", path, std::generic_category().message(errno)),
            !tooLarge};
}

}  // namespace quelm
