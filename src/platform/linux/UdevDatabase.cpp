#include "platform/linux/UdevDatabase.h"

#include <libudev.h>
#include <memory>

#include "platform/linux/Sysfs.h"

namespace platform {

std::optional<std::string> UdevProperty(const std::string& deviceFolder, const char* key) {
    // a context is for one thread, so each question has its own
    const std::unique_ptr<udev, decltype(&udev_unref)> context(udev_new(), &udev_unref);
    if (!context) return std::nullopt;
    const std::unique_ptr<udev_device, decltype(&udev_device_unref)> device(
        udev_device_new_from_syspath(context.get(), deviceFolder.c_str()), &udev_device_unref);
    const char* const value = device ? udev_device_get_property_value(device.get(), key) : nullptr;
    return value != nullptr ? CleanText(value) : std::nullopt;
}

}  // namespace platform
