#pragma once

#include <cstddef>
#include <memory>
#include <pugixml.hpp>
#include <string>
#include <string_view>

namespace quelm {

/// What a document may hold at most, in bytes.
constexpr std::size_t largestXmlDocument = std::size_t{32} << 20U;

/// A parsed document, or none and why. One that refers to a NUL, which would cut its texts, is
/// refused. Entities other than the predefined are left as they stand, and nothing outside the text
/// is ever loaded.
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
