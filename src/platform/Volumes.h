#pragma once

#include <optional>
#include <string>
#include <vector>

namespace platform {

/// One mounted file system.
struct Volume {
    std::string mountPoint;
    /// Begins with "/dev/" for every local file system, also for one without a block device
    /// ("/dev/tmpfs"); for a network one its address as mounted ("server:/export").
    std::string device;
    std::string fileSystem;
    bool local = true;
    bool readOnly = false;
    /// proc, sysfs and the like: neither shown nor scanned.
    bool pseudo = false;
};

/// What is known of the disk under a device name; a key that is absent is unknown.
struct DiskDescription {
    std::optional<bool> internal;
    std::optional<bool> mediaWritable;
    std::optional<bool> network;
};

/// The mount table. Any thread.
class Volumes {
 public:
    struct Lookup {
        std::optional<Volume> volume;
        /// Why there is no volume; empty when there is one.
        std::string error;
    };

    virtual ~Volumes() = default;

    /// In mount order; empty when the table cannot be read.
    [[nodiscard]] virtual std::vector<Volume> mounted() = 0;
    /// The volume that holds an existing path; links are followed.
    [[nodiscard]] virtual Lookup volumeOf(const std::string& path) = 0;
    /// `device` as in `Volume::device`, with its "/dev/"; none for an unknown device.
    [[nodiscard]] virtual std::optional<DiskDescription> diskDescription(
        const std::string& device) = 0;
};

}  // namespace platform
