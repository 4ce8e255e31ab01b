#pragma once

#include <cstddef>
#include <memory>
#include <string_view>

namespace orv {

struct LogFileLimits {
    /// In bytes; a file that would grow beyond it is put aside.
    std::size_t fileSize = std::size_t{5} << 20U;
    /// How many that were put aside are kept.
    std::size_t oldFiles = 3;
};

/// The log as a file for the user alone: "NAME.log", and what was put aside as "NAME.1.log" and so
/// on, the newest first. Each line begins with the local time, "2026-11-23 15:04:05.123 "; one that
/// is very long is cut. A line is with the system, though not on the disk, when the call that logs
/// it returns. While the file cannot be written, lines go to the standard error stream, where one
/// more says why. Any thread; never throws.
class LoggerToFile {
 public:
    explicit LoggerToFile(LogFileLimits limits = {});

    /// The process's own.
    static LoggerToFile& defaultLogger();

    /// Log lines go to this file from now on, also after this object. A leading "~" is the user's
    /// home; folders that are missing are made, with mode 0700. False when it cannot be written.
    bool redirect(std::string_view path);

    /// Puts a file aside that has reached its size, and opens one again that could not be written.
    /// False when it still cannot, or none was named.
    bool checkLogSize();

 private:
    class File;
    std::shared_ptr<File> file_;
};

}  // namespace orv
