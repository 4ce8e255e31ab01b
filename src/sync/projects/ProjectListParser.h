#pragma once

#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <string_view>

#include "sync/projects/Project.h"

namespace orv {

struct ParsedProjects {
    // Each sorted by name without regard to case. Those of NotSubscribed are all in `sync`.
    Projects sync;
    Projects external;
    // Sums: of what is synchronised, or of the whole where nothing is.
    std::int64_t files = 0;
    std::int64_t bytes = 0;
};

/// Reads the agent's answer, the children "project" of the element "project-list" with one element
/// an attribute, and adds the texts for display. `me` are the user's names. Without that element
/// there are no projects; none, with a line in the log, for what is no XML document.
[[nodiscard]] std::optional<ParsedProjects> ParseProjectList(std::string_view xml,
                                                             ProjectListKind kind,
                                                             const std::set<std::string>& me);

/// The subscribed projects of a stored list: an array of dictionaries, other rows are left out.
[[nodiscard]] ParsedProjects ProjectsOfStoredList(const quelm::Array& rows);

}  // namespace orv
