#pragma once

#include <map>
#include <string>
#include <vector>

#include "platform/Printers.h"

namespace test_support {

/// Printers that the test plugs in. None stands for a printing system that does not answer, too.
class FakePrinters final : public platform::Printers {
 public:
    std::vector<platform::Printer> printers;
    std::map<std::string, platform::PrinterState> states;

    std::vector<platform::Printer> list() override { return printers; }

    platform::PrinterState state(const std::string& id) override {
        const auto found = states.find(id);
        return found != states.end() ? found->second : platform::PrinterState::Unknown;
    }
};

}  // namespace test_support
