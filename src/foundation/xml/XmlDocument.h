#pragma once

#include <memory>
#include <pugixml.hpp>
#include <string>
#include <string_view>

namespace quelm {

/// A parsed document, or none and why. Documents are bounded at 64 MiB; entities other than the
/// predefined are left as they stand, and nothing outside the text is ever loaded.
struct XmlResult {
    std::unique_ptr<pugi::xml_document> document;
    std::string error;
    /// Whether already reading the file failed.
    bool unreadable = false;
};

/// `options` are those of pugixml.
[[nodiscard]] XmlResult ParseXml(std::string_view text, unsigned options = pugi::parse_default);

/// The same of a file, which is not made or changed.
[[nodiscard]] XmlResult ParseXmlFile(const std::string& path,
                                     unsigned options = pugi::parse_default);

}  // namespace quelm
