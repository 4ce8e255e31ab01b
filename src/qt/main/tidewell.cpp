#include <exception>
#include <iostream>
#include <string>

#include "pane/links/LinkAddresses.h"
#include "pane/links/SingleInstance.h"
#include "platform/Services.h"
#include "qt/host/PanelApplication.h"
#include "qt/host/PanelHost.h"

namespace {

/// Until the window is closed.
int runPanel(int argc, char** argv, const std::string& address) {
    const std::string meetingPlace = orv::SingleInstance::defaultPath();
    if (orv::SingleInstance::handOver(meetingPlace, address)) return 0;
    const orv::PanelApplication application(argc, argv);
    orv::PanelHost host(application.bundle(), application.appearance());
    const orv::SingleInstance instance(meetingPlace, *platform::ProcessServices().runLoop,
                                       [&host](const std::string& later) { host.open(later); });
    host.start([&host, &address] { host.open(address); });
    return QApplication::exec();
}

}  // namespace

// The composition root of the panel.
int main(int argc, char** argv) {
    try {
        const bool hasLink = argc == 2 && std::string(argv[1]).starts_with(orv::links::scheme);
        if (argc == 1 || hasLink) return runPanel(argc, argv, hasLink ? argv[1] : "");
        std::cerr << "usage: tidewell [orv:LINK]\n";
        return 2;
    } catch (const std::exception& error) {
        std::cerr << "tidewell: " << error.what() << '\n';
        return 1;
    }
}
