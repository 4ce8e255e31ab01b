#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "widgets/Outlets.h"

namespace orv {

struct TabViewItem {
    std::string identifier;
    bool operator==(const TabViewItem&) const = default;
};

/// Which tabs are there, in which order, and the one that is shown. Main thread only.
class TabView final : public View {
 public:
    using Selected = std::function<void(const TabViewItem& item)>;

    [[nodiscard]] const std::vector<TabViewItem>& items() const { return items_; }
    [[nodiscard]] std::optional<std::size_t> indexOf(std::string_view identifier) const;
    /// Empty only when there is no tab.
    [[nodiscard]] std::string selectedIdentifier() const;

    /// Beyond the last: behind it. Nothing for one that is there.
    void insert(const TabViewItem& item, std::size_t index);
    void append(const TabViewItem& item) { insert(item, items_.size()); }
    /// The selected one leaves its neighbour selected.
    void remove(std::string_view identifier);
    /// Tells the delegate if it was not selected; false when there is none.
    bool select(std::string_view identifier);
    void selectFirst();

    /// Told when another tab is selected.
    void setDelegate(Selected didSelect) { didSelect_ = std::move(didSelect); }

 private:
    void tellDelegate() const;

    std::vector<TabViewItem> items_;
    std::size_t selected_ = 0;
    Selected didSelect_;
};

}  // namespace orv
