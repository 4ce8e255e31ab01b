#include "foundation/paths/ParsedPath.h"

#include "foundation/paths/PathPrefix.h"

namespace quelm {

namespace {

/// Room for the components of nearly every path in one allocation.
constexpr std::size_t usualOffsets = 16;

}  // namespace

void CParsedPath::Parse(unsigned start) {
    offsets_.clear();
    offsets_.reserve(usualOffsets);
    offsets_.push_back(start);
    std::size_t pos = start;
    while (pos < path_.size()) {
        // the first character of a component is never taken as a separator
        const std::size_t slash = path_.find('/', pos + 1);
        pos = (slash == std::string_view::npos ? path_.size() : slash) + 1;
        offsets_.push_back(static_cast<unsigned>(pos));
    }
}

bool CParsedPath::IsHidden() const {
    for (std::size_t i = 0; i < componentCount(); ++i) {
        if (path_[offsets_[i]] == '.') return true;
    }
    return false;
}

bool CParsedPath::IsInFolder(std::string_view folder) const {
    return componentCount() > 0 && path_.size() >= folder.size() + 2 &&
           path_[folder.size()] == '/' && offsets_[componentCount() - 1] == folder.size() + 1 &&
           path_.starts_with(folder);
}

bool CParsedPath::IsSubpathOf(std::string_view folder) const {
    return StartsWithPath(path_, folder);
}

bool CParsedPath::ContainsComponent(std::string_view name) const {
    for (std::size_t i = 0; i < componentCount(); ++i) {
        if (component(i) == name) return true;
    }
    return false;
}

}  // namespace quelm
