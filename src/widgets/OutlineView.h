#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <utility>

#include "widgets/Outlets.h"

namespace orv {

class OutlineView;

/// A row of an outline, as its data source knows it; null is what holds the top rows.
using OutlineItem = const void*;

enum class OutlineCheck { None, Unchecked, Partly, Checked };

/// What stands in a row.
struct OutlineCell {
    std::string title;
    /// Of an icon of this product or of the desktop's theme.
    std::string imageName;
    std::string toolTip;
    OutlineCheck check = OutlineCheck::None;
    /// Shown fainter than others.
    bool isFaint = false;
    bool operator==(const OutlineCell&) const = default;
};

/// Answers what an outline shows, each in a time that does not grow with the outline, but for what
/// changes it. A row that is there stays where it is until the outline is reloaded with
/// `structureDidChange`. Main thread only.
class OutlineDataSource {
 public:
    /// Of rows that are there now: a folder that was not read yet has none.
    [[nodiscard]] virtual std::size_t numberOfChildrenOfItem(OutlineItem item) const = 0;
    [[nodiscard]] virtual OutlineItem childOfItem(std::size_t index, OutlineItem item) const = 0;
    [[nodiscard]] virtual OutlineItem parentOfItem(OutlineItem item) const = 0;
    /// Its place in its parent.
    [[nodiscard]] virtual std::size_t indexOfItem(OutlineItem item) const = 0;
    [[nodiscard]] virtual bool isItemExpandable(OutlineItem item) const = 0;
    [[nodiscard]] virtual OutlineCell cellOfItem(OutlineItem item) const = 0;

    /// The person opens the row; its children may come later, with `structureDidChange`.
    virtual void itemWillExpand(OutlineItem item) = 0;
    /// The person clicks its check box.
    virtual void toggleItem(OutlineItem item) = 0;
    /// Whether the row wants to be opened; asked, and forgotten, when it is shown.
    [[nodiscard]] virtual bool takeShouldExpand(OutlineItem item) = 0;

 protected:
    ~OutlineDataSource() = default;
};

/// A tree of rows that a data source answers for. Main thread only.
class OutlineView final : public View {
 public:
    /// It outlives the outline or is replaced by null.
    void setDataSource(OutlineDataSource* source) {
        source_ = source;
        structureDidChange();
    }
    [[nodiscard]] OutlineDataSource* dataSource() const { return source_; }

    /// What stands in rows has changed.
    void reloadData() {
        ++revision_;
        changed();
    }
    [[nodiscard]] std::size_t revision() const { return revision_; }
    /// Rows have come, gone or moved; those that are still there keep their identity.
    void structureDidChange() {
        if (source_ == nullptr) selected_ = nullptr;
        ++structure_;
        reloadData();
    }
    [[nodiscard]] std::size_t structure() const { return structure_; }

    [[nodiscard]] OutlineItem selectedItem() const { return selected_; }
    void selectItem(OutlineItem item) {
        if (item == selected_) return;
        selected_ = item;
        changed();
        if (selectionDidChange_) selectionDidChange_();
    }
    void setSelectionDidChange(std::function<void()> action) {
        selectionDidChange_ = std::move(action);
    }

 private:
    OutlineDataSource* source_ = nullptr;
    OutlineItem selected_ = nullptr;
    std::size_t revision_ = 0;
    std::size_t structure_ = 0;
    std::function<void()> selectionDidChange_;
};

}  // namespace orv
