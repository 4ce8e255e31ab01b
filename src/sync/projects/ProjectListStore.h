#pragma once

#include <optional>
#include <string>

#include "foundation/threads/SerialWorker.h"
#include "platform/Value.h"

namespace orv {

/// The file of the subscribed projects, an array of dictionaries. It is replaced as a whole, so
/// that a reader sees the old or the new list. One thread uses the object; a thread of its own
/// writes.
class ProjectListStore {
 public:
    explicit ProjectListStore(std::string path) : path_(std::move(path)) {}

    [[nodiscard]] const std::string& path() const { return path_; }
    /// None, with a line in the log unless the file is missing, for one that cannot be read. Any
    /// thread.
    [[nodiscard]] static std::optional<quelm::Array> load(const std::string& path);
    /// Writes later; of several lists that wait the last is written. A failure leaves the file and
    /// is logged.
    void store(const quelm::Array& rows);
    /// Until everything is written.
    void wait() { writer_.wait(); }

 private:
    std::string path_;
    quelm::SerialWorker writer_;
};

}  // namespace orv
