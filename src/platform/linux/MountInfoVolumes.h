#pragma once

#include <string>
#include <vector>

#include "platform/Services.h"
#include "platform/Volumes.h"
#include "platform/linux/OnceReporter.h"
#include "platform/linux/Sysfs.h"

namespace platform {

struct MountEntry;

/// Volumes from the kernel's mount table, their disks from its tree of devices. Both are read anew
/// for each question.
class MountInfoVolumes final : public Volumes {
 public:
    explicit MountInfoVolumes(std::string mountTable = "/proc/self/mountinfo",
                              const std::string& sysfsRoot = "/sys", Reporter reporter = {});

    [[nodiscard]] std::vector<Volume> mounted() override;
    [[nodiscard]] Lookup volumeOf(const std::string& path) override;
    [[nodiscard]] std::optional<DiskDescription> diskDescription(
        const std::string& device) override;

 private:
    [[nodiscard]] std::vector<MountEntry> readTable();
    [[nodiscard]] Volume describe(const MountEntry& entry) const;
    [[nodiscard]] std::string localDevice(const MountEntry& entry) const;
    [[nodiscard]] std::optional<std::string> diskFolder(const std::string& device) const;

    std::string mountTable_;
    Sysfs sysfs_;
    OnceReporter unreadable_;
};

}  // namespace platform
