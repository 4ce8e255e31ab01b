#pragma once

#include <algorithm>
#include <cstdint>
#include <string_view>

#include "accounts/filters/FilterList.h"

namespace test_support {

/// What a list decides, found by asking each of its filters in order: what its index replaces.
inline const orv::orv_FilenameFilter* DecideInOrder(const orv::orv_FilterList& list,
                                                    std::string_view name) {
    const auto length = static_cast<std::uint32_t>(name.size());
    const auto found = std::ranges::find_if(list.all(), [&](const orv::orv_FilenameFilter& filter) {
        return filter.isIncluded(name.data(), length);
    });
    return found != list.all().end() ? &*found : nullptr;
}

}  // namespace test_support
