#include "platform/Services.h"

namespace platform {

Services& ProcessServices() {
    static Services services;
    return services;
}

}  // namespace platform
