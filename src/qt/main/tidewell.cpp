#include <QApplication>
#include <clocale>
#include <exception>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "config/AgentSettingsHooks.h"
#include "config/ConfigurationPath.h"
#include "foundation/system/ApplicationBundle.h"
#include "foundation/system/Log.h"
#include "pane/links/LinkAddresses.h"
#include "pane/links/SingleInstance.h"
#include "platform/linux/LinuxServices.h"
#include "qt/host/PanelHost.h"
#include "qt/looks/Theme.h"
#include "qt/texts/LocalizedTranslator.h"
#include "support/VarBranding.h"

namespace {

int usage() {
    std::cerr << "usage: tidewell [orv:LINK]\n";
    return 2;
}

/// Until the window is closed.
int runPanel(const quelm::Bundle& bundle, orv::Appearance appearance, const std::string& address) {
    const std::string meetingPlace = orv::SingleInstance::defaultPath();
    if (orv::SingleInstance::handOver(meetingPlace, address)) return 0;
    const platform::Reporter reporter = [](const std::string& line) { quelm::LogWarning(line); };
    platform::Services& services = platform::ProcessServices();
    services = platform::MakeLinuxServices(reporter);
    platform::AddEventServices(services, reporter);
    orv::ProcessAgentSettingsHooks().brand = orv::BrandText;
    int code = 0;
    {
        orv::PanelHost host(bundle, appearance);
        const orv::SingleInstance instance(
            meetingPlace, *services.runLoop,
            [&host](const std::string& later) { host.open(later); });
        host.start([&host, address] { host.open(address); });
        code = QApplication::exec();
    }
    platform::EndProcessServices();
    return code;
}

}  // namespace

// The composition root of the panel.
int main(int argc, char** argv) {
    try {
        const quelm::Bundle bundle(quelm::FindResourcesFolder(), quelm::PreferredLanguages());
        quelm::SetApplicationBundle(&bundle);
        QApplication application(argc, argv);
        std::setlocale(LC_NUMERIC, "C");  // the application object sets the user's
        QApplication::setApplicationName(QStringLiteral("Tidewell Backup"));
        QApplication::setDesktopFileName(QStringLiteral("tidewell"));
        const QStringList words = QApplication::arguments();
        const std::string address = words.size() > 1 ? words[1].toStdString() : std::string();
        if (words.size() > 2 || (!address.empty() && !address.starts_with(orv::links::scheme)))
            return usage();
        const orv::Appearance appearance = orv::PreferredAppearance(QApplication::palette());
        orv::ApplyTheme(application, appearance);
        orv::LocalizedTranslator texts;
        QCoreApplication::installTranslator(&texts);
        return runPanel(bundle, appearance, address);
    } catch (const std::exception& error) {
        std::cerr << "tidewell: " << error.what() << '\n';
        return 1;
    }
}
