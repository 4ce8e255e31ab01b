#include "foundation/xml/XmlDocument.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <fmt/format.h>
#include <sys/stat.h>

#include "platform/FileDescriptor.h"

namespace quelm {

namespace {

constexpr std::size_t mostBytes = std::size_t{64} << 20U;

std::string systemError(const std::string& path) {
    return fmt::format("{}: {}", path, std::strerror(errno));
}

/// Empty with an error in the result when the file cannot be read whole.
std::string contentOf(const std::string& path, XmlResult& result) {
    const platform::FileDescriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    struct stat status = {};
    if (!file || ::fstat(file.get(), &status) != 0) {
        result = {nullptr, systemError(path), true};
        return {};
    }
    const bool isFile = S_ISREG(status.st_mode);
    if (!isFile || static_cast<std::size_t>(status.st_size) > mostBytes) {
        result = {nullptr, fmt::format("{}: no file of at most {} bytes", path, mostBytes),
                  !isFile};
        return {};
    }
    std::string content(static_cast<std::size_t>(status.st_size), '\0');
    std::size_t used = 0;
    while (used < content.size()) {
        const auto count = ::read(file.get(), content.data() + used, content.size() - used);
        if (count < 0) result = {nullptr, systemError(path), true};
        if (count <= 0) break;
        used += static_cast<std::size_t>(count);
    }
    content.resize(used);
    return content;
}

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
    XmlResult failure;
    const std::string content = contentOf(path, failure);
    if (!failure.error.empty()) return failure;
    return ParseXml(content, options);
}

}  // namespace quelm
