#include "platform/linux/LinuxServices.h"

#include "platform/linux/CupsPrinters.h"
#include "platform/linux/DesktopWorkspace.h"
#include "platform/linux/MountInfoVolumes.h"
#include "platform/linux/PolkitAuthorization.h"
#include "platform/linux/PosixAccessLists.h"
#include "platform/linux/QtRunLoop.h"
#include "platform/linux/SysfsDeviceRegistry.h"
#include "platform/linux/bus/BusAddress.h"
#include "platform/linux/bus/DBusNotificationCenter.h"
#include "platform/linux/secrets/SecretServiceKeychain.h"

namespace platform {

Services MakeLinuxServices(const Reporter& reporter) {
    return {.runLoop = nullptr,
            .localNotifications = nullptr,
            .notifications = nullptr,
            .volumes = std::make_unique<MountInfoVolumes>("/proc/self/mountinfo", "/sys", reporter),
            .devices =
                std::make_unique<SysfsDeviceRegistry>("/sys", PermanentHardwareAddress, reporter),
            .workspace = std::make_unique<DesktopWorkspace>(reporter),
            .accessLists = std::make_unique<PosixAccessLists>(),
            .keychain = std::make_unique<SecretServiceKeychain>(reporter),
            .authorization = std::make_unique<PolkitAuthorization>(reporter),
            .printers = std::make_unique<CupsPrinters>(reporter)};
}

void AddEventServices(Services& services, const Reporter& reporter) {
    services.runLoop = std::make_unique<QtRunLoop>();
    services.localNotifications = std::make_unique<LocalNotifications>(*services.runLoop);
    services.notifications =
        std::make_unique<DBusNotificationCenter>(*services.runLoop, SessionBusAddress(), reporter);
}

}  // namespace platform
