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
    /// Path to the errno that reading or writing it fails with.
    std::map<std::string, int> readErrors;
    std::map<std::string, int> writeErrors;
    /// Every `write` that succeeded, in order.
    std::vector<std::pair<std::string, platform::AccessList>> written;

    std::optional<platform::AccessList> read(const std::string& path) override {
        if (const auto error = readErrors.find(path); error != readErrors.end()) {
            errno = error->second;
            return std::nullopt;
        }
        const auto found = lists.find(path);
        return found != lists.end() ? found->second : platform::AccessList{};
    }

    int write(const std::string& path, const platform::AccessList& list) override {
        if (const auto error = writeErrors.find(path); error != writeErrors.end()) {
            return error->second;
        }
        written.emplace_back(path, list);
        auto& own = lists[path];
        own.insert(own.end(), list.begin(), list.end());
        return 0;
    }
};

}  // namespace test_support
