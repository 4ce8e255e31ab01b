#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/AccessLists.h"
#include "platform/Authorization.h"
#include "platform/DeviceRegistry.h"
#include "platform/DistributedNotificationCenter.h"
#include "platform/Keychain.h"
#include "platform/LocalNotifications.h"
#include "platform/Printers.h"
#include "platform/ProcessLauncher.h"
#include "platform/ProcessTable.h"
#include "platform/RunLoop.h"
#include "platform/Volumes.h"
#include "platform/Workspace.h"

namespace platform {

/// The ports to the system, owned. A program fills it with adapters at its start, a test with
/// fakes. A port left empty counts as a service that is not there.
struct Services {
    std::unique_ptr<RunLoop> runLoop;
    std::unique_ptr<LocalNotifications> localNotifications;
    std::unique_ptr<DistributedNotificationCenter> notifications;
    std::unique_ptr<Volumes> volumes;
    std::unique_ptr<DeviceRegistry> devices;
    std::unique_ptr<Workspace> workspace;
    std::unique_ptr<AccessLists> accessLists;
    std::unique_ptr<Keychain> keychain;
    std::unique_ptr<Authorization> authorization;
    std::unique_ptr<Printers> printers;
    std::unique_ptr<ProcessLauncher> processLauncher = {};
    std::unique_ptr<ProcessTable> processTable = {};
};

/// The process's services, for plain functions that have no place for a port; classes take the
/// ports that they use in their constructor. Filled before the first thread starts.
[[nodiscard]] Services& ProcessServices();
/// Empties them, those that use others first. A program does so while its application object lives.
void EndProcessServices();

/// Takes one line about a service that is missing, and how to get it.
using Reporter = std::function<void(const std::string& line)>;

}  // namespace platform
