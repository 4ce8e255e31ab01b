#include "support/InterfaceBranding.h"

#include <algorithm>
#include <array>

#include "foundation/system/Log.h"

namespace orv {

namespace {

constexpr std::size_t mostLevels = 128;
/// Of the text fields that stand in a window's header.
constexpr int headerTextTag = 11;

enum Has : unsigned {
    Text = 1,
    Parts = 2,
    Subviews = 4,
};

struct Rule {
    InterfaceKind kind;
    unsigned has;
};

constexpr std::array rules = {
    Rule{InterfaceKind::Array, Parts},
    Rule{InterfaceKind::Button, Text | Subviews},
    Rule{InterfaceKind::TextField, Text | Subviews},
    Rule{InterfaceKind::TabView, Parts | Subviews},
    Rule{InterfaceKind::TextView, Subviews},
    Rule{InterfaceKind::ScrollView, Parts | Subviews},
    Rule{InterfaceKind::ImageView, Subviews},
    Rule{InterfaceKind::Matrix, Parts | Subviews},
    Rule{InterfaceKind::TableView, Parts | Subviews},
    Rule{InterfaceKind::OtherView, Subviews},
    Rule{InterfaceKind::TabViewItem, Text | Parts},
    Rule{InterfaceKind::Menu, Parts},
    Rule{InterfaceKind::MenuItem, Text},
    Rule{InterfaceKind::ButtonCell, Text},
    Rule{InterfaceKind::TableColumn, Text},
    Rule{InterfaceKind::Window, Text | Parts},
};

/// 0 for a kind that is left alone.
unsigned whatHas(InterfaceKind kind) {
    const auto rule = std::ranges::find(rules, kind, &Rule::kind);
    return rule != rules.end() ? rule->has : 0;
}

}  // namespace

void InterfaceBranding::apply(InterfaceElement& element, std::size_t depth) {
    if (depth == mostLevels) {
        quelm::LogWarning("An interface is nested too deeply to be branded as a whole.");
        return;
    }
    const InterfaceKind kind = element.kind();
    const unsigned has = whatHas(kind);
    if ((has & Text) != 0) applyText(element);
    if (kind == InterfaceKind::TextField) applyTextColor(element);
    if (kind == InterfaceKind::TextView) applyStyledText(element);
    if (kind == InterfaceKind::ImageView) applyImage(element);

    const auto applyBelow = [this, depth](InterfaceElement& below) { apply(below, depth + 1); };
    if ((has & Parts) != 0) element.visitParts(applyBelow);
    if ((has & Subviews) != 0) element.visitSubviews(applyBelow);
}

void InterfaceBranding::applyText(InterfaceElement& element) const {
    const std::string before = element.text();
    const std::string text = brand_->processString(before);
    if (text != before) element.setText(text);
}

void InterfaceBranding::applyTextColor(InterfaceElement& element) const {
    if (element.tag() == headerTextTag && brand_->headerTextColor()) {
        element.setTextColor(*brand_->headerTextColor());
    }
}

void InterfaceBranding::applyStyledText(InterfaceElement& element) const {
    const StyledText before = element.styledText();
    StyledText text = before;
    brand_->processAttributedString(text);
    if (text != before) element.setStyledText(text);
}

void InterfaceBranding::applyImage(InterfaceElement& element) const {
    const auto name = element.imageName();
    const bool isNamed = name && !name->empty();
    const auto key = isNamed ? BrandImageKey(*name) : BrandImageKey(element.tag());
    const auto found = brand_->images().find(key);
    if (found != brand_->images().end()) element.setImage(found->second);
}

}  // namespace orv
