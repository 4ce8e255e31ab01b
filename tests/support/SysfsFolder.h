#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "support/TemporaryFolder.h"

namespace test_support {

/// A folder laid out like /sys. Device paths are below its "devices".
class SysfsFolder {
 public:
    using Attributes = std::vector<std::pair<std::string, std::string>>;

    SysfsFolder() {
        for (const char* name : {"devices", "class/net", "class/block", "dev/block"}) {
            folder_.makeFolder(name);
        }
    }

    [[nodiscard]] const std::string& root() const { return folder_.path(); }
    [[nodiscard]] std::string entry(std::string_view device) const {
        return folder_ / ("devices/" + std::string(device));
    }

    /// Makes the device's folder with "uevent", which is what makes it a device.
    std::string addDevice(const std::string& device, const Attributes& attributes = {}) const {
        folder_.makeFile("devices/" + device + "/uevent");
        for (const auto& [name, value] : attributes) {
            folder_.makeFile("devices/" + device + "/" + name, value);
        }
        return entry(device);
    }

    /// The same with links from the class ("net", "block") and, by the attribute "dev", from its
    /// number.
    std::string addDevice(const std::string& device, const std::string& className,
                          const Attributes& attributes) const {
        std::string path = addDevice(device, attributes);
        const std::string name = std::filesystem::path(device).filename().string();
        folder_.makeLink("class/" + className + "/" + name, path);
        for (const auto& [key, value] : attributes) {
            if (key == "dev") folder_.makeLink("dev/block/" + value, path);
        }
        return path;
    }

    void addLink(const std::string& device, const std::string& name,
                 std::string_view target) const {
        folder_.makeLink("devices/" + device + "/" + name, entry(target));
    }

 private:
    TemporaryFolder folder_;
};

}  // namespace test_support
