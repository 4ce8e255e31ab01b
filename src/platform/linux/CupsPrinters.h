#pragma once

#include <chrono>
#include <string>

#include "platform/Printers.h"
#include "platform/linux/OnceReporter.h"

namespace platform {

struct CupsLibrary;

/// The queues of CUPS, classes too. Every call has a connection of its own.
class CupsPrinters final : public Printers {
 public:
    /// `server` is a host or a socket's path, as in CUPS_SERVER; empty for the one that the system
    /// is set up for. A server that hangs holds a call up for twice the limit and a second.
    explicit CupsPrinters(Reporter reporter, std::string server = {},
                          std::chrono::milliseconds limit = std::chrono::seconds(1));

    /// The default is the user's own (lpoptions, LPDEST, PRINTER), else the server's.
    [[nodiscard]] std::optional<std::vector<Printer>> list() override;
    [[nodiscard]] PrinterState state(const std::string& id) override;

 private:
    class Connection;

    /// Null where it is missing, which is said.
    [[nodiscard]] const CupsLibrary* library();

    OnceReporter reporter_;
    std::string server_;
    std::chrono::milliseconds limit_;
};

}  // namespace platform
