#pragma once

#include <functional>
#include <string>
#include <vector>

#include "widgets/FilePanels.h"

namespace test_support {

/// Answers every panel at once.
class FakeFilePanels final : public orv::FilePanels {
 public:
    /// What the person chooses.
    std::vector<std::string> chosen;
    std::vector<orv::OpenPanel> shown;

    void chooseFiles(const orv::OpenPanel& panel,
                     std::function<void(std::vector<std::string> paths)> answer) override {
        shown.push_back(panel);
        answer(chosen);
    }
};

}  // namespace test_support
