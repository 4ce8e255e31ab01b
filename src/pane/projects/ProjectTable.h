#pragma once

#include "sync/projects/Project.h"
#include "widgets/TableView.h"

namespace orv {

/// The rows of the table of projects on this computer. Main thread only.
class ProjectTable final : public TableDataSource {
 public:
    // Columns.
    static constexpr const char* name = "name";
    static constexpr const char* path = "path";
    static constexpr const char* content = "content";

    /// It outlives this.
    explicit ProjectTable(TableView& table);
    ProjectTable(const ProjectTable&) = delete;
    ProjectTable& operator=(const ProjectTable&) = delete;
    ~ProjectTable();

    void show(Projects projects);

    [[nodiscard]] std::size_t numberOfRowsInTableView(const TableView&) const override {
        return projects_.size();
    }
    [[nodiscard]] std::optional<std::string> objectValue(const TableView& table,
                                                         std::string_view column,
                                                         std::size_t row) const override;

 private:
    TableView& table_;
    Projects projects_;
};

}  // namespace orv
