#include "support/PrivateBus.h"

namespace test_support {

namespace {

std::string configuration(const std::string& address) {
    return "<busconfig><type>session</type><listen>" + address +
           "</listen><auth>EXTERNAL</auth><policy context=\"default\">"
           "<allow send_destination=\"*\" eavesdrop=\"true\"/><allow eavesdrop=\"true\"/>"
           "<allow own=\"*\"/></policy></busconfig>";
}

}  // namespace

PrivateBus::PrivateBus() {
    folder_.makeFile("bus.conf", configuration(address_));
    start();
}

void PrivateBus::stop() {
    daemon_.stop();
    runs_ = false;
    std::filesystem::remove(folder_ / "bus");
}

bool PrivateBus::start() {
    stop();
    const std::string ready = folder_ / "address";
    std::filesystem::remove(ready);
    // it prints its address once it listens
    runs_ = daemon_.start({.words = {"/usr/bin/dbus-daemon", "--nofork", "--nopidfile",
                                     "--config-file=" + folder_ / "bus.conf", "--print-address"},
                           .outputFile = ready}) &&
            WaitUntil([&] { return ContentOf(ready).find(address_) != std::string::npos; });
    return runs_;
}

}  // namespace test_support
