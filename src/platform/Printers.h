#pragma once

#include <optional>
#include <string>
#include <vector>

namespace platform {

struct Printer {
    /// The printing system's name of it.
    std::string id;
    /// For the person.
    std::string name;
    bool isDefault = false;
};

/// The numbers are the printing system's.
enum class PrinterState { Unknown = 0, Ready = 3, Processing = 4, Stopped = 5 };

/// The printing system. Any thread; a call takes seconds at most.
class Printers {
 public:
    virtual ~Printers() = default;

    /// In the printing system's order; none when that does not answer.
    [[nodiscard]] virtual std::optional<std::vector<Printer>> list() = 0;
    /// Unknown for a printer that is not there and when nothing answers.
    [[nodiscard]] virtual PrinterState state(const std::string& id) = 0;
};

}  // namespace platform
