#include "foundation/system/Log.h"

#include <cstdio>
#include <fmt/core.h>
#include <mutex>
#include <string>

#include "foundation/texts/VisibleText.h"

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

void write(const std::string& level, std::string_view message) noexcept {
    try {
        const std::string line = level + VisibleText(message);
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
