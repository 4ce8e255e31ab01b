#pragma once

#include <map>
#include <string>
#include <vector>

#include "platform/Volumes.h"

namespace test_support {

/// A mount table that the test fills. A path belongs to the volume with the longest mount point
/// above it, whether or not it exists.
class FakeVolumes final : public platform::Volumes {
 public:
    std::vector<platform::Volume> volumes;
    std::map<std::string, platform::DiskDescription> disks;
    /// Path to the error that `volumeOf` has for it.
    std::map<std::string, std::string> errors;

    std::vector<platform::Volume> mounted() override { return volumes; }

    Lookup volumeOf(const std::string& path) override {
        if (const auto error = errors.find(path); error != errors.end()) {
            return {std::nullopt, error->second};
        }
        const platform::Volume* best = nullptr;
        for (const auto& volume : volumes) {
            const bool longer = !best || volume.mountPoint.size() >= best->mountPoint.size();
            if (longer && lies(path, volume.mountPoint)) best = &volume;
        }
        if (!best) return {std::nullopt, "No such device"};
        return {*best, {}};
    }

    std::optional<platform::DiskDescription> diskDescription(const std::string& device) override {
        const auto found = disks.find(device);
        if (found == disks.end()) return std::nullopt;
        return found->second;
    }

 private:
    static bool lies(const std::string& path, const std::string& mountPoint) {
        return mountPoint == "/" || path == mountPoint || path.starts_with(mountPoint + "/");
    }
};

}  // namespace test_support
