#include "foundation/xml/XmlElements.h"

#include <string_view>
#include <utility>

#include "foundation/texts/Numbers.h"

namespace quelm {

namespace {

bool isText(const pugi::xml_node& node) {
    return node.type() == pugi::node_pcdata || node.type() == pugi::node_cdata;
}

}  // namespace

pugi::xml_node FindElement(const pugi::xml_document& document, const char* name) {
    const pugi::xml_node root = document.document_element();
    return std::string_view(root.name()) == name ? root : root.child(name);
}

std::string TextOf(const pugi::xml_node& element) {
    const pugi::xml_node first = element.first_child();
    // nearly every element: not worth a walk
    if (isText(first) && !first.next_sibling()) return first.value();
    struct Collector final : pugi::xml_tree_walker {
        bool for_each(pugi::xml_node& node) override {
            if (isText(node)) text += node.value();
            return true;
        }
        std::string text;
    };
    Collector collector;
    pugi::xml_node(element).traverse(collector);
    return std::move(collector.text);
}

std::int64_t IntegerOf(const pugi::xml_node& element) {
    return LeadingInteger(TextOf(element));
}

}  // namespace quelm
