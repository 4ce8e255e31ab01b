#include "platform/Services.h"

namespace platform {

Services& ProcessServices() {
    static Services services;
    return services;
}

void EndProcessServices() {
    ProcessServices().processLauncher.reset();
    ProcessServices().notifications.reset();
    ProcessServices() = {};
}

}  // namespace platform
