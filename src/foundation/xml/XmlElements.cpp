#include "foundation/xml/XmlElements.h"

#include <string_view>

#include "foundation/texts/Numbers.h"

namespace quelm {

pugi::xml_node FindElement(const pugi::xml_document& document, const char* name) {
    const pugi::xml_node root = document.document_element();
    return std::string_view(root.name()) == name ? root : root.child(name);
}

std::int64_t IntegerOf(const pugi::xml_node& element) {
    return LeadingInteger(element.text().get());
}

}  // namespace quelm
