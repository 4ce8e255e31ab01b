#pragma once

#include <map>
#include <string>
#include <vector>

#include "platform/Printers.h"

namespace test_support {

/// Printers that the test plugs in.
class FakePrinters final : public platform::Printers {
 public:
    std::vector<platform::Printer> printers;
    std::map<std::string, platform::PrinterState> states;
    bool answers = true;
    /// Whose states were asked for.
    std::vector<std::string> asked;

    std::optional<std::vector<platform::Printer>> list() override {
        return answers ? std::optional(printers) : std::nullopt;
    }

    platform::PrinterState state(const std::string& id) override {
        asked.push_back(id);
        const auto found = states.find(id);
        return found != states.end() ? found->second : platform::PrinterState::Unknown;
    }
};

}  // namespace test_support
