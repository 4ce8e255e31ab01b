#pragma once

#include <cerrno>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "platform/AccessLists.h"

namespace test_support {

/// Access lists by path; a path without one has an empty list. What is written stands as given,
/// deny entries included, so that a test sees what was asked for.
class FakeAccessLists final : public platform::AccessLists {
 public:
    std::map<std::string, platform::AccessList> lists;
    /// Path to the errno that reading it fails with.
    std::map<std::string, int> readErrors;
    /// Every `write`, in order.
    std::vector<std::pair<std::string, platform::AccessList>> written;

    std::optional<platform::AccessList> read(const std::string& path) override {
        if (!readErrors.contains(path)) return lists[path];
        errno = readErrors[path];
        return std::nullopt;
    }

    int write(const std::string& path, const platform::AccessList& list) override {
        written.emplace_back(path, list);
        auto& own = lists[path];
        own.insert(own.end(), list.begin(), list.end());
        return 0;
    }
};

}  // namespace test_support
