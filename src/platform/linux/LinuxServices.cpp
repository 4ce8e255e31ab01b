#include "platform/linux/LinuxServices.h"

#include "platform/linux/DesktopWorkspace.h"
#include "platform/linux/MountInfoVolumes.h"
#include "platform/linux/PosixAccessLists.h"
#include "platform/linux/SysfsDeviceRegistry.h"

namespace platform {

Services MakeLinuxServices(const Reporter& reporter) {
    return {.runLoop = nullptr,
            .volumes = std::make_unique<MountInfoVolumes>("/proc/self/mountinfo", "/sys", reporter),
            .devices =
                std::make_unique<SysfsDeviceRegistry>("/sys", PermanentHardwareAddress, reporter),
            .workspace = std::make_unique<DesktopWorkspace>(reporter),
            .accessLists = std::make_unique<PosixAccessLists>()};
}

}  // namespace platform
