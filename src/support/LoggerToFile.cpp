#include "support/LoggerToFile.h"

// the descriptor does not reach the programs that this one starts
#define SPDLOG_PREVENT_CHILD_FD

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <fmt/format.h>
#include <mutex>
#include <optional>
#include <spdlog/pattern_formatter.h>
#include <spdlog/sinks/rotating_file_sink.h>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

#include "foundation/files/Folders.h"
#include "foundation/paths/Paths.h"
#include "foundation/system/Log.h"
#include "foundation/texts/VisibleText.h"
#include "platform/FileDescriptor.h"

namespace orv {

namespace {

using Sink = spdlog::sinks::rotating_file_sink_st;

constexpr std::size_t longestLine = std::size_t{64} << 10U;

void toStandardError(std::string_view line) {
    std::fprintf(stderr, "%.*s\n", static_cast<int>(line.size()), line.data());
}

/// No longer than `limit`, and no character cut in two.
std::string_view cut(std::string_view line, std::size_t limit) {
    if (line.size() <= limit) return line;
    while (limit > 0 && (line[limit] & '\xC0') == '\x80')
        --limit;
    return line.substr(0, limit);
}

void makeFoldersAbove(const std::string& path) {
    for (auto end = path.find('/', 1); end != std::string::npos; end = path.find('/', end + 1)) {
        // opening the file tells what is wrong
        [[maybe_unused]] const auto made = quelm::os::CreateRootFolder(path.substr(0, end));
    }
}

/// Ends a line that a full disk or a crash has cut off.
void endLastLine(int file, off_t size) {
    char last = '\n';
    if (size > 0 && ::pread(file, &last, 1, size - 1) == 1 && last != '\n') {
        [[maybe_unused]] const auto written = ::write(file, "\n", 1);
    }
}

/// Makes the file, or a file of before, ready for the sink. Throws what the sink would.
void prepare(const std::string& path) {
    makeFoldersAbove(path);
    constexpr int flags = O_RDWR | O_APPEND | O_CREAT | O_NONBLOCK | O_NOCTTY | O_CLOEXEC;
    const platform::FileDescriptor file(::open(path.c_str(), flags, 0600));
    struct stat status = {};
    if (!file || ::fstat(file.get(), &status) != 0) spdlog::throw_spdlog_ex("opening it", errno);
    // a pipe would make whoever logs wait for a reader
    if (!S_ISREG(status.st_mode)) spdlog::throw_spdlog_ex("it is no regular file");
    if ((status.st_mode & 0777) != 0600 && ::fchmod(file.get(), 0600) != 0) {
        spdlog::throw_spdlog_ex("keeping it from others", errno);
    }
    endLastLine(file.get(), status.st_size);
}

/// None when there is no such file.
std::optional<std::size_t> sizeOf(const std::string& path) {
    struct stat status = {};
    if (::stat(path.c_str(), &status) != 0) return std::nullopt;
    return static_cast<std::size_t>(status.st_size);
}

std::unique_ptr<Sink> openSink(const std::string& path, const LogFileLimits& limits) {
    spdlog::file_event_handlers handlers;
    handlers.before_open = prepare;
    auto sink = std::make_unique<Sink>(path, limits.fileSize, limits.oldFiles,
                                       sizeOf(path) >= limits.fileSize, handlers);
    sink->set_formatter(std::make_unique<spdlog::pattern_formatter>(
        "%Y-%m-%d %H:%M:%S.%e %v", spdlog::pattern_time_type::local, "\n"));
    return sink;
}

}  // namespace

class LoggerToFile::File {
 public:
    explicit File(LogFileLimits limits) : limits_(limits) {}

    bool open(const std::string& path) noexcept {
        const std::lock_guard guard(mutex_);
        return attempt([&] {
            path_ = path;
            openAnew();
        });
    }

    bool reopen() noexcept {
        const std::lock_guard guard(mutex_);
        if (path_.empty()) return false;
        const auto size = sizeOf(path_);
        if (sink_ && size && *size < limits_.fileSize) return true;
        return attempt([this] { openAnew(); });
    }

    void write(std::string_view line) noexcept {
        const std::lock_guard guard(mutex_);
        const bool written = sink_ && attempt([&] {
                                 const auto limit = std::min(longestLine, limits_.fileSize / 2);
                                 sink_->log({"", spdlog::level::info, cut(line, limit)});
                                 sink_->flush();
                             });
        if (!written) toStandardError(line);
    }

 private:
    /// Whether `work` ended well; the file is given up when not.
    template <typename Work>
    bool attempt(const Work& work) noexcept {
        try {
            work();
            return true;
        } catch (const std::exception& error) {
            giveUp(error.what());
        } catch (...) {
            giveUp("unknown error");
        }
        return false;
    }

    void openAnew() {
        sink_ = openSink(path_, limits_);
        fault_.clear();
    }

    void giveUp(const char* reason) noexcept {
        try {
            sink_.reset();
            const std::string fault = fmt::format(
                "WARNING: the log cannot be written to {}: {}; its lines stand here instead",
                quelm::VisibleText(path_), reason);
            if (fault != fault_) toStandardError(fault);
            fault_ = fault;
        } catch (...) {  // no memory for saying so
        }
    }

    const LogFileLimits limits_;
    std::mutex mutex_;
    std::string path_;
    /// None while the file cannot be written.
    std::unique_ptr<Sink> sink_;
    /// What was said to be wrong.
    std::string fault_;
};

LoggerToFile::LoggerToFile(LogFileLimits limits) : file_(std::make_shared<File>(limits)) {}

LoggerToFile& LoggerToFile::defaultLogger() {
    static LoggerToFile logger;
    return logger;
}

bool LoggerToFile::redirect(std::string_view path) {
    const bool opened = file_->open(quelm::ExpandTildeInPath(path));
    quelm::SetLogSink([file = file_](std::string_view line) { file->write(line); });
    return opened;
}

bool LoggerToFile::checkLogSize() {
    return file_->reopen();
}

}  // namespace orv
