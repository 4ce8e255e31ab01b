#pragma once

#include <cstdint>
#include <string>

#include "cli/Command.h"

namespace orv::cli {

/// The account of this command line.
[[nodiscard]] std::string AccountOfCommandLine();

/// Before something is stored: the account's folder, which a new user does not have yet. Storing
/// tells where that fails.
void MakeConfigurationFolder();

/// Tells agents and panels that a command changed settings; `hint` is of SettingsHint bits. Without
/// a bus that is said on standard error, and the change holds all the same. The last thing that a
/// command does: nothing can be posted afterwards.
void AnnounceSettingsChange(std::uint32_t hint, Console& console);

}  // namespace orv::cli
