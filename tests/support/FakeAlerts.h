#pragma once

#include <functional>
#include <utility>
#include <vector>

#include "widgets/Alerts.h"

namespace test_support {

/// Keeps the alerts; the test answers them.
class FakeAlerts final : public orv::Alerts {
 public:
    struct Shown {
        orv::Alert alert;
        std::function<void(int)> answered;
    };

    std::vector<Shown> shown;

    void show(const orv::Alert& alert, std::function<void(int button)> answered) override {
        shown.push_back({alert, std::move(answered)});
    }
};

}  // namespace test_support
