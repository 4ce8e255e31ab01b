#include "foundation/system/Log.h"
#include "foundation/texts/VisibleText.h"
#include "pane/PreferencePane.h"
#include "pane/links/LinkAddresses.h"
#include "support/web/HTTPConnection.h"

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

void orvPreferencePane::openDashboard() {
    HTTPConnection::openUrl(HTTPConnection::webBaseUrl(), *environment_.services.workspace);
}

}  // namespace orv
