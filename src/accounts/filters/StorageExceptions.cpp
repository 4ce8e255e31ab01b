#include "accounts/filters/StorageExceptions.h"

#include <fmt/format.h>
#include <string_view>

#include "foundation/system/Log.h"
#include "foundation/xml/XmlDocument.h"
#include "foundation/xml/XmlElements.h"

namespace orv {

namespace {

constexpr const char* topElement = "backup-exclusions";

void logUnusable(std::string_view reason) {
    quelm::LogError(fmt::format("Cannot load storage_exceptions.xml info: {}", reason));
}

/// The texts of the elements in one element of the file.
std::vector<std::string> readTexts(const std::string& path, const char* elementName,
                                   std::size_t most) {
    const auto file = quelm::ParseXmlFile(path, pugi::parse_default | pugi::parse_ws_pcdata);
    if (file.unreadable) return {};
    if (!file.document) {
        logUnusable(file.error);
        return {};
    }
    const auto element = file.document->child(topElement).child(elementName);
    if (!element) {
        logUnusable(fmt::format("there is no element \"{}\" in \"{}\"", elementName, topElement));
        return {};
    }
    std::vector<std::string> texts;
    for (const auto& child : element.children()) {
        if (child.type() != pugi::node_element) continue;
        if (texts.size() == most) {
            logUnusable(fmt::format("of \"{}\" only the first {} are used", elementName, most));
            break;
        }
        texts.push_back(quelm::TextOf(child));
    }
    return texts;
}

}  // namespace

std::vector<std::string> ReadExcludedFolders(const std::string& path) {
    return readTexts(path, "patterns", 1'000);
}

std::vector<std::string> ReadExcludedFileTypes(const std::string& path) {
    return readTexts(path, "types", 10'000);
}

}  // namespace orv
