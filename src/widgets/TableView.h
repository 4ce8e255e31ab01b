#pragma once

#include <cstddef>
#include <optional>
#include <set>
#include <string>
#include <string_view>

#include "widgets/Outlets.h"

namespace orv {

class TableView;

/// Answers what stands in a table's cells. Main thread only.
class TableDataSource {
 public:
    [[nodiscard]] virtual std::size_t numberOfRowsInTableView(const TableView& table) const = 0;
    /// None for a row or a column that it has not.
    [[nodiscard]] virtual std::optional<std::string> objectValue(const TableView& table,
                                                                 std::string_view column,
                                                                 std::size_t row) const = 0;

 protected:
    ~TableDataSource() = default;
};

/// Rows that a data source answers for. Main thread only.
class TableView final : public View {
 public:
    /// It outlives the table or is replaced by null.
    void setDataSource(const TableDataSource* source) {
        source_ = source;
        reloadData();
    }
    [[nodiscard]] const TableDataSource* dataSource() const { return source_; }
    [[nodiscard]] std::size_t numberOfRows() const {
        return source_ ? source_->numberOfRowsInTableView(*this) : 0;
    }
    [[nodiscard]] std::string textAt(std::string_view column, std::size_t row) const {
        return source_ ? source_->objectValue(*this, column, row).value_or("") : "";
    }

    /// The data source's answers have changed.
    void reloadData() {
        ++revision_;
        std::erase_if(selected_, [this](std::size_t row) { return row >= numberOfRows(); });
        changed();
    }
    /// Grows with every reload.
    [[nodiscard]] std::size_t revision() const { return revision_; }

    [[nodiscard]] const std::set<std::size_t>& selectedRows() const { return selected_; }
    void selectRows(std::set<std::size_t> rows) {
        std::erase_if(rows, [this](std::size_t row) { return row >= numberOfRows(); });
        if (rows == selected_) return;
        selected_ = std::move(rows);
        changed();
        if (selectionDidChange_) selectionDidChange_();
    }
    void setSelectionDidChange(std::function<void()> action) {
        selectionDidChange_ = std::move(action);
    }

 private:
    const TableDataSource* source_ = nullptr;
    std::size_t revision_ = 0;
    std::set<std::size_t> selected_;
    std::function<void()> selectionDidChange_;
};

}  // namespace orv
