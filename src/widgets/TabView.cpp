#include "widgets/TabView.h"

#include <algorithm>

namespace orv {

std::optional<std::size_t> TabView::indexOf(std::string_view identifier) const {
    const auto found = std::ranges::find(items_, identifier, &TabViewItem::identifier);
    if (found == items_.end()) return std::nullopt;
    return static_cast<std::size_t>(found - items_.begin());
}

std::string TabView::selectedIdentifier() const {
    return items_.empty() ? std::string() : items_[selected_].identifier;
}

void TabView::insert(const TabViewItem& item, std::size_t index) {
    if (indexOf(item.identifier)) return;
    const std::size_t place = std::min(index, items_.size());
    if (!items_.empty() && place <= selected_) ++selected_;
    items_.insert(items_.begin() + static_cast<std::ptrdiff_t>(place), item);
    changed();
}

void TabView::remove(std::string_view identifier) {
    const auto index = indexOf(identifier);
    if (!index) return;
    const bool wasSelected = *index == selected_;
    items_.erase(items_.begin() + static_cast<std::ptrdiff_t>(*index));
    const bool isLast = selected_ == items_.size();
    if (selected_ > 0 && (*index < selected_ || isLast)) --selected_;
    changed();
    if (wasSelected) tellDelegate();
}

bool TabView::select(std::string_view identifier) {
    const auto index = indexOf(identifier);
    if (!index) return false;
    if (*index == selected_) return true;
    selected_ = *index;
    changed();
    tellDelegate();
    return true;
}

void TabView::selectFirst() {
    if (!items_.empty()) select(items_.front().identifier);
}

void TabView::tellDelegate() const {
    if (didSelect_ && !items_.empty()) didSelect_(TabViewItem(items_[selected_]));
}

}  // namespace orv
