#include "foundation/xml/XmlElements.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <string_view>

namespace quelm {

pugi::xml_node FindElement(const pugi::xml_document& document, const char* name) {
    const pugi::xml_node root = document.document_element();
    return std::string_view(root.name()) == name ? root : root.child(name);
}

std::int64_t IntegerOf(const pugi::xml_node& element) {
    using Limits = std::numeric_limits<std::int64_t>;
    std::string_view text = element.text().get();
    text.remove_prefix(std::min(text.find_first_not_of(" \t\r\n"), text.size()));
    if (text.starts_with('+') && !text.starts_with("+-")) text.remove_prefix(1);
    std::int64_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc::result_out_of_range) return number;
    return text.starts_with('-') ? Limits::min() : Limits::max();
}

}  // namespace quelm
