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
        if (errors.contains(path)) return {std::nullopt, errors[path]};
        const platform::Volume* best = nullptr;
        for (const auto& volume : volumes) {
            const auto& above = volume.mountPoint;
            const bool holds = above == "/" || (path + "/").starts_with(above + "/");
            if (holds && (!best || above.size() >= best->mountPoint.size())) best = &volume;
        }
        return best ? Lookup{*best, {}} : Lookup{std::nullopt, "No such device"};
    }

    std::optional<platform::DiskDescription> diskDescription(const std::string& device) override {
        const auto found = disks.find(device);
        return found != disks.end() ? std::optional(found->second) : std::nullopt;
    }
};

}  // namespace test_support
