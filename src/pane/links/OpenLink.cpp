#include <memory>

#include "config/ConfigurationPath.h"
#include "config/UpdateSettings.h"
#include "foundation/system/Log.h"
#include "foundation/texts/VisibleText.h"
#include "pane/PreferencePane.h"
#include "pane/links/LinkAddresses.h"
#include "support/web/HTTPConnection.h"
#include "support/web/HttpParameter.h"

// Where the panel's links lead.

namespace orv {

namespace {

struct Place {
    std::string_view address;
    void (*open)(orvPreferencePane& pane);
};

constexpr Place places[] = {
    {links::panel, [](orvPreferencePane&) {}},
    {links::connect, [](orvPreferencePane& pane) { pane.connect(); }},
    {links::backupConfiguration, [](orvPreferencePane& pane) { pane.showSharingWindow(); }},
    {links::lockedFiles,
     [](orvPreferencePane& pane) { pane.selectTabWithIdentifier(tabs::projects); }},
    {links::permissionViolations,
     [](orvPreferencePane& pane) { pane.selectTabWithIdentifier(tabs::projects); }},
};

}  // namespace

void orvPreferencePane::openLink(const std::string& address) {
    for (const Place& place : places) {
        if (place.address == address) return place.open(*this);
    }
    const std::string_view rest = address;
    if (rest.starts_with(links::tabPrefix))
        return selectTabWithIdentifier(rest.substr(links::tabPrefix.size()));
    if (rest.starts_with(links::dashboardPrefix)) return openDashboard();
    if (rest.starts_with(links::scheme) || !environment_.services.workspace->openAddress(address))
        quelm::LogWarning("The link " + quelm::VisibleText(address.substr(0, 200)) +
                          " leads nowhere.");
}

/// The server's name is in a file.
void orvPreferencePane::openDashboard() {
    auto address = std::make_shared<std::string>();
    environment_.background.perform(
        [address, file = GetConfigurationPath(orvUpdateSettings::defaultFilename)] {
            orvUpdateSettings servers;
            static_cast<void>(servers.loadSettingsFromFile(file));
            *address = BaseUrlOf(servers.webServerName());
        },
        [this, life = std::weak_ptr(life_), address] {
            if (!life.expired())
                HTTPConnection::openUrl(*address, *environment_.services.workspace);
        });
}

}  // namespace orv
