#include "pane/projects/ProjectTable.h"

#include <utility>

#include "sync/projects/ProjectStatusText.h"

namespace orv {

ProjectTable::ProjectTable(TableView& table) : table_(table) {
    table_.setDataSource(this);
}

ProjectTable::~ProjectTable() {
    table_.setDataSource(nullptr);
}

void ProjectTable::show(Projects projects) {
    projects_ = std::move(projects);
    table_.reloadData();
}

std::optional<std::string> ProjectTable::objectValue(const TableView& table,
                                                     std::string_view column,
                                                     std::size_t row) const {
    if (&table != &table_ || row >= projects_.size()) return std::nullopt;
    const Project& project = *projects_[row];
    if (column == name) return project.name();
    if (column == path) return project.path();
    if (column != content) return std::nullopt;
    return ProjectStatusText({.files = project.syncedFiles(),
                              .bytes = project.syncedSize(),
                              .outOfQuota = project.outOfQuota(),
                              .partial = project.partial()});
}

}  // namespace orv
