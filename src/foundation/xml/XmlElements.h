#pragma once

#include <cstdint>
#include <pugixml.hpp>

namespace quelm {

/// The element of that name that the document is, or that its root holds; null for none.
[[nodiscard]] pugi::xml_node FindElement(const pugi::xml_document& document, const char* name);

/// The decimal number that the element's text begins with, after blanks and a sign; the nearest one
/// where 64 bits do not hold it, 0 without one and for a null element.
[[nodiscard]] std::int64_t IntegerOf(const pugi::xml_node& element);

}  // namespace quelm
