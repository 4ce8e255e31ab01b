#include "qt/binding/LinkedTextHtml.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include "qt/binding/QtText.h"
#include "qt/binding/ShownText.h"
#include "qt/looks/Contrast.h"
#include "widgets/HexColor.h"

namespace orv {

namespace {

/// As much as is laid out, without half a character at its end.
std::string_view shownPart(std::string_view text) {
    auto end = static_cast<std::size_t>(mostShownCharacters);
    if (text.size() <= end) return text;
    while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0U) == 0x80U)
        --end;
    return text.substr(0, end);
}

QString escaped(std::string_view text) {
    return ShownText(text).toHtmlEscaped().replace(u'\n', QStringLiteral("<br>"));
}

QColor colorOf(const TextLink& link, const LinkColors& colors) {
    const auto own = ParseHexColor(link.color);
    if (!own) return colors.link;
    return ReadableColor(QColor(own->red, own->green, own->blue), colors.background);
}

QString anchor(const TextLink& link, std::string_view text, const LinkColors& colors) {
    return QStringLiteral("<a href=\"%1\" style=\"color:%2\">%3</a>")
        .arg(ToQt(link.address).toHtmlEscaped(), colorOf(link, colors).name(), escaped(text));
}

std::vector<TextLink> inOrder(std::vector<TextLink> links) {
    std::ranges::stable_sort(links, {}, &TextLink::start);
    return links;
}

}  // namespace

QString LinkedTextHtml(const LinkedText& text, const LinkColors& colors) {
    const std::string_view whole = shownPart(text.text);
    QString html;
    std::size_t done = 0;
    for (const TextLink& link : inOrder(text.links)) {
        if (link.start < done || link.start >= whole.size() || link.length == 0) continue;
        const std::string_view linked = whole.substr(link.start, link.length);
        html += escaped(whole.substr(done, link.start - done)) + anchor(link, linked, colors);
        done = link.start + linked.size();
    }
    html += escaped(whole.substr(done));
    return QStringLiteral("<span style=\"white-space:pre-wrap\">%1</span>").arg(html);
}

}  // namespace orv
