#pragma once

#include <memory>
#include <mutex>
#include <optional>
#include <string>

#include "platform/linux/OnceReporter.h"

struct magic_set;

namespace platform {

/// Tells a file's type from its content. The database is loaded for the first question. Any thread.
class FileTypeDatabase {
 public:
    explicit FileTypeDatabase(Reporter reporter);
    ~FileTypeDatabase();

    /// Of an open file, from its start; none without a database.
    [[nodiscard]] std::optional<std::string> mimeType(int file);

 private:
    struct Close {
        void operator()(magic_set* handle) const;
    };

    [[nodiscard]] bool loaded();

    std::mutex mutex_;
    bool tried_ = false;
    std::unique_ptr<magic_set, Close> handle_;
    OnceReporter missing_;
};

}  // namespace platform
