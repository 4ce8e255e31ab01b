#pragma once

#include <cstdint>
#include <pugixml.hpp>
#include <string>

namespace quelm {

/// The element of that name that the document is, or that its root holds; null for none.
[[nodiscard]] pugi::xml_node FindElement(const pugi::xml_document& document, const char* name);

/// The text of the element and of everything in it; empty for a null element.
[[nodiscard]] std::string TextOf(const pugi::xml_node& element);

/// LeadingInteger of the element's text; 0 for a null element.
[[nodiscard]] std::int64_t IntegerOf(const pugi::xml_node& element);

}  // namespace quelm
