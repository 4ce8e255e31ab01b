#include "backup/sharing/SelectedPaths.h"

#include "config/TopLevelPaths.h"

namespace orv {

SelectedPaths::SelectedPaths(const quelm::Array& rows) {
    for (const quelm::Value& value : rows) {
        if (const auto row = SelectionRowOf(value))
            flags_.insert_or_assign(std::string(row->path), row->isSelected);
    }
}

bool SelectedPaths::contains(std::string_view path) const {
    while (!path.empty()) {
        const auto found = flags_.find(path);
        if (found != flags_.end()) return found->second;
        const std::size_t slash = path.find_last_of('/');
        if (slash == std::string_view::npos || path.size() == 1) break;
        path = path.substr(0, slash == 0 ? 1 : slash);
    }
    return false;
}

}  // namespace orv
