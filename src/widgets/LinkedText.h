#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace orv {

/// A part of a text that opens an address.
struct TextLink {
    // In bytes.
    std::size_t start = 0;
    std::size_t length = 0;
    std::string address;
    /// As "#e51937"; empty for the usual colour of links.
    std::string color = {};
    bool operator==(const TextLink&) const = default;
};

struct LinkedText {
    std::string text;
    std::vector<TextLink> links = {};
    bool operator==(const LinkedText&) const = default;
};

}  // namespace orv
