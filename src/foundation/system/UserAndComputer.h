#pragma once

#include <string>

namespace quelm {

/// What the user calls this computer: PRETTY_HOSTNAME of machine-info(5), else the host name
/// without its domain.
[[nodiscard]] std::string GetComputerName(const std::string& machineInfo = "/etc/machine-info");

/// The short name of the user that this process runs for; empty when the system knows none.
[[nodiscard]] std::string GetLoginName();

}  // namespace quelm
