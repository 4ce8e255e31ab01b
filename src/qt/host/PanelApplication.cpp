#include "qt/host/PanelApplication.h"

#include <clocale>

#include "accounts/AccountList.h"
#include "config/AgentSettingsHooks.h"
#include "foundation/system/Log.h"
#include "platform/linux/LinuxServices.h"
#include "qt/looks/Theme.h"
#include "support/VarBranding.h"
#include "support/web/WebAddressHooks.h"

namespace orv {

PanelApplication::PanelApplication(int& argc, char** argv)
    : bundle_(quelm::FindResourcesFolder(), quelm::PreferredLanguages()),
      application_(argc, argv),
      appearance_(PreferredAppearance(QApplication::palette())) {
    std::setlocale(LC_NUMERIC, "C");  // the application object sets the user's
    QApplication::setApplicationName(QStringLiteral("Tidewell Backup"));
    QApplication::setDesktopFileName(QStringLiteral("tidewell"));
    quelm::SetApplicationBundle(&bundle_);
    ApplyTheme(application_, appearance_);
    QCoreApplication::installTranslator(&texts_);
    const platform::Reporter reporter = [](const std::string& line) { quelm::LogWarning(line); };
    platform::Services& services = platform::ProcessServices();
    services = platform::MakeLinuxServices(reporter);
    platform::AddEventServices(services, reporter);
    ProcessAgentSettingsHooks().brand = BrandText;
    ProcessWebAddressHooks().rcid = [] {
        return AccountList::defaultAccountList().defaultConfig().rcid();
    };
}

PanelApplication::~PanelApplication() {
    platform::EndProcessServices();
}

}  // namespace orv
