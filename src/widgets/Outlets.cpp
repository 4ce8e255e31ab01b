#include "widgets/Outlets.h"

#include <algorithm>

namespace orv {

void MakeHyperLink(TextField& field, std::size_t start, std::size_t length, std::string url) {
    MakeHyperLinkWithColor(field, start, length, std::move(url), {});
}

void MakeHyperLinkWithColor(TextField& field, std::size_t start, std::size_t length,
                            std::string url, std::string color) {
    LinkedText text = field.text();
    if (start >= text.text.size() || length == 0) return;
    text.links.push_back(
        {start, std::min(length, text.text.size() - start), std::move(url), std::move(color)});
    field.setText(std::move(text));
}

}  // namespace orv
