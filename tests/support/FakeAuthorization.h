#pragma once

#include <string>
#include <utility>
#include <vector>

#include "platform/Authorization.h"

namespace test_support {

class FakeAuthorization final : public platform::Authorization {
 public:
    int answer = 0;
    /// Right and rule of each question.
    std::vector<std::pair<std::string, std::string>> asked;

    int obtainRight(const std::string& right, const std::string& rule) override {
        asked.emplace_back(right, rule);
        return answer;
    }
};

}  // namespace test_support
