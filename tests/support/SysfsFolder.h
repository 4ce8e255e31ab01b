#pragma once

#include <string>
#include <utility>
#include <vector>

#include "support/TemporaryFolder.h"

namespace test_support {

/// A folder laid out like /sys. Device paths are below its "devices".
class SysfsFolder : public TemporaryFolder {
 public:
    using Attributes = std::vector<std::pair<std::string, std::string>>;

    SysfsFolder() { makeFolder("devices"); }

    /// With "uevent", which is what makes a folder a device, and with links from its class ("net",
    /// "block") and, by the attribute "dev", from its number.
    std::string addDevice(const std::string& device, const Attributes& attributes = {},
                          const std::string& className = "") const {
        std::string path = makeFolder("devices/" + device);
        makeFile("devices/" + device + "/uevent");
        for (const auto& [name, value] : attributes) {
            makeFile("devices/" + device + "/" + name, value);
            if (name == "dev") makeLink("dev/block/" + value, path);
        }
        const std::string name = path.substr(path.rfind('/'));
        if (!className.empty()) makeLink("class/" + className + name, path);
        return path;
    }
};

}  // namespace test_support
