#include "foundation/system/Log.h"

#include <cstdio>
#include <fmt/format.h>
#include <mutex>
#include <string>

namespace quelm {

namespace {

struct Log {
    std::mutex mutex;
    LogSink sink;
};

Log& log() {
    static Log instance;
    return instance;
}

std::string visibleLine(std::string_view level, std::string_view message) {
    std::string line(level);
    for (const char c : message) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 0x20 || byte == 0x7f) {
            line += fmt::format("\\x{:02x}", byte);
        } else {
            line += c;
        }
    }
    return line;
}

void write(std::string_view level, std::string_view message) noexcept {
    try {
        const std::string line = visibleLine(level, message);
        const std::lock_guard guard(log().mutex);
        if (log().sink) {
            log().sink(line);
        } else {
            fmt::print(stderr, "{}\n", line);
        }
    } catch (...) {  // a line that cannot be written is lost; the work it speaks of goes on
    }
}

}  // namespace

void SetLogSink(LogSink sink) {
    const std::lock_guard guard(log().mutex);
    log().sink = std::move(sink);
}

void LogError(std::string_view message) {
    write("ERROR: ", message);
}
void LogWarning(std::string_view message) {
    write("WARNING: ", message);
}
void LogInfo(std::string_view message) {
    write("INFO: ", message);
}

}  // namespace quelm
