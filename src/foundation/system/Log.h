#pragma once

#include <functional>
#include <string_view>

namespace quelm {

/// Takes one whole line, without its line end. Called under a lock: it must not log itself.
using LogSink = std::function<void(std::string_view line)>;

/// Where log lines go from now on; an empty sink restores the standard error stream.
void SetLogSink(LogSink sink);

// Each writes one line that begins with its level word ("ERROR: "). Control characters in the
// message are shown as \xNN, so that a file name cannot forge a line. Any thread; never throws.
void LogError(std::string_view message);
void LogWarning(std::string_view message);
void LogInfo(std::string_view message);

}  // namespace quelm
