#include <QApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <exception>
#include <fmt/format.h>
#include <functional>
#include <iostream>
#include <map>
#include <stdexcept>
#include <string>

#include "agentlink/AgentVocabulary.h"
#include "config/ConfigurationPath.h"
#include "config/Locations.h"
#include "config/PropertyFiles.h"
#include "foundation/propertylist/PropertyList.h"
#include "qt/desktop/Screenshots.h"
#include "qt/host/PanelApplication.h"
#include "qt/host/PanelHost.h"

// Shows the panel at work without anybody at the screen: it connects to the running agent, goes
// through a backup as an agent reports it, changes a setting, and takes pictures.

namespace {

using namespace orv;
using quelm::Dictionary;

/// Runs the panel until something holds, and prints its lines as they change.
class Viewer {
 public:
    explicit Viewer(PaneOutlets& outlets) : outlets_(outlets) {}

    void wait(const std::string& what, const std::function<bool()>& holds) {
        constexpr int patience = 10'000;  // milliseconds
        QElapsedTimer timer;
        timer.start();
        while (!holds()) {
            if (timer.elapsed() > patience) throw std::runtime_error("waited in vain: " + what);
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 20);
            printChanges();
        }
        printChanges();
    }
    void waitFor(const TextField& field, const std::string& text) {
        wait("“" + text + "”, shown is “" + field.stringValue() + "”",
             [&] { return field.stringValue().find(text) != std::string::npos; });
    }

 private:
    void printChanges() {
        const std::pair<const char*, const TextField*> lines[] = {
            {"headline", &outlets_._headline},           {"last backup", &outlets_._lastBackup},
            {"connection", &outlets_._connectionStatus}, {"info", &outlets_._connectionInfo},
            {"backup", &outlets_._backupStatus1},        {"state", &outlets_._backupStatus2},
            {"projects", &outlets_._projectsStatus1},    {"state", &outlets_._projectsStatus2},
        };
        for (const auto& [name, field] : lines) {
            std::string& last = printed_[field];
            if (last == field->stringValue()) continue;
            last = field->stringValue();
            std::cout << fmt::format("{:<12}{}\n", name, last) << std::flush;
        }
    }

    PaneOutlets& outlets_;
    std::map<const TextField*, std::string> printed_;
};

/// As the agent of the account reports it.
void report(const char* name, Dictionary payload) {
    payload.set("agent-id", "1");
    QueueAgentEvent("1", name, std::move(payload));
}

/// What an agent writes into the account's folder.
void writeAgentFiles(const std::string& home, int percent) {
    std::string folders;
    for (const auto& [name, megabytes] : {std::pair{"Documents", 840}, {"Pictures", 2'150}}) {
        const std::int64_t bytes = std::int64_t{megabytes} << 20;
        folders +=
            fmt::format("<store><path>{}/{}</path><total>{}</total><stored>{}</stored></store>",
                        home, name, bytes, percent == 100 ? bytes : bytes / 100 * percent);
    }
    const std::string stores = "<r><stores>" + folders + "</stores></r>";
    const std::string quota =
        "<r><request><parameters><total-quota>21474836480</total-quota>"
        "<total-this-computer>3135242240</total-this-computer>"
        "<total-other-computers>5368709120</total-other-computers></parameters></request></r>";
    for (const auto& [name, content] :
         {std::pair{files::storageFolders, stores}, {files::storageQuota, quota}}) {
        if (!StoreDataToFile(GetConfigurationPath(name), content.data(),
                             static_cast<std::uint32_t>(content.size())))
            throw std::runtime_error(std::string("cannot write ") + name);
    }
}

constexpr const char* projectsXml =
    "<project-list><project><id>11</id><name>Harbour bridge</name><owner>me</owner>"
    "<local-path>/p/Harbour bridge</local-path><synced-files>812</synced-files>"
    "<synced-size>904396800</synced-size><subscribed>1</subscribed></project>"
    "<project><id>12</id><name>Spring catalogue</name><owner>Ben</owner>"
    "<local-path>/p/Spring catalogue</local-path><synced-files>96</synced-files>"
    "<synced-size>204396800</synced-size><subscribed>1</subscribed></project></project-list>";

void backUp(PaneOutlets& shown, Viewer& viewer, const std::string& home) {
    report(events::scanActivity, {{"value", "1"}, {"files-scanned", "480"}});
    viewer.waitFor(shown._backupStatus2, "480 files indexed");
    report(events::scanActivity, {{"value", "0"}});
    report(events::shareStatistics, {{"files", "1204"}, {"folders", "87"}});
    report(events::storeStatus, {{"total-bytes", "3135242240"},
                                 {"stored-bytes", "1254096896"},
                                 {"total-files", "1204"},
                                 {"stored-files", "700"}});
    writeAgentFiles(home, 40);
    report(events::storageFolders, {});
    report(events::storageQuota, {});
    viewer.waitFor(shown._backupStatus2, "remaining");
    report(events::speedStatus, {{"output", "1500000"}, {"outputmax", "4000000"}});
    report(events::storeProgress, {{"count", "8388608"}});
    viewer.waitFor(shown._backupStatus2, "minutes");
    report(events::syncResponse,
           {{"command", "subscribed-projects"}, {"result", "0"}, {"project-list", projectsXml}});
    viewer.waitFor(shown._projectsStatus1, "2 projects");
    viewer.wait("40 % in the table", [&] {
        return shown._foldersList.textAt(FolderTable::status, 0).starts_with("40%");
    });
}

void complete(PaneOutlets& shown, Viewer& viewer, const std::string& home) {
    report(events::storeStatus, {{"total-bytes", "3135242240"}, {"stored-bytes", "3135242240"}});
    report(events::speedStatus, {});
    writeAgentFiles(home, 100);
    report(events::storageFolders, {});
    viewer.waitFor(shown._headline, "Everything is backed up");
    viewer.wait("full rows in the table", [&] {
        return shown._foldersList.textAt(FolderTable::status, 1).starts_with("Fully");
    });
}

void changeSetting(PaneOutlets& shown, Viewer& viewer) {
    if (!shown._backupPolicyButton.isOn())
        throw std::runtime_error("the policy does not choose the folders of this home");
    shown._backupPolicyButton.performClick();
    viewer.wait("a stored setting", [] {
        const auto stored =
            quelm::ReadPropertyListFile(GetConfigurationPath(files::userInfo)).value;
        const auto* value = stored ? stored->asDictionary()->find("policy_backup") : nullptr;
        return value && *value == quelm::Value(0);
    });
    std::cout << "setting     policy_backup is 0 now\n";
}

void takePictures(PanelHost& host, const QString& folder, const QString& name) {
    host.context().updates.flush();
    for (const QString& path : TakeScreenshots(host.window(), folder, name))
        std::cout << "picture     " << path.toStdString() << '\n';
}

QWidget& windowNamed(const char* name) {
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (window->objectName() == QLatin1String(name) && window->isVisible()) return *window;
    }
    throw std::runtime_error(std::string("no window ") + name);
}

void takePicture(PanelHost& host, const char* window, const QString& folder, const QString& name) {
    host.context().updates.flush();
    QCoreApplication::processEvents();
    host.context().updates.flush();
    for (const QString& path : TakeScreenshots(windowNamed(window), folder, name))
        std::cout << "picture     " << path.toStdString() << '\n';
}

/// The row of that name below the shortcut to the person's home.
OutlineItem rowInHome(OutlineDataSource& rows, const std::string& home, const std::string& name) {
    const std::string shortcut = home.substr(home.find_last_of('/') + 1);
    OutlineItem at = nullptr;
    for (const std::string& wanted : {shortcut, name}) {
        OutlineItem found = nullptr;
        for (std::size_t i = 0; i < rows.numberOfChildrenOfItem(at); ++i) {
            const OutlineItem row = rows.childOfItem(i, at);
            if (rows.cellOfItem(row).title.find(wanted) != std::string::npos) found = row;
        }
        if (!found) throw std::runtime_error("no row " + wanted);
        at = found;
    }
    return at;
}

void chooseFolders(PanelHost& host, Viewer& viewer, const QString& folder, const QString& theme,
                   const std::string& home) {
    host.outlets()._manageBackupsButton.performClick();
    orv_SharingWindowController& sharing = *host.pane().sharing();
    const auto isComputed = [&sharing] {
        return sharing.tree() && !sharing.computationInProgress();
    };
    viewer.wait("sizes of the selection", isComputed);
    SharingOutlets& shown = sharing.outlets();
    OutlineDataSource& rows = *shown._folderTree.dataSource();
    const OutlineItem music = rowInHome(rows, home, "Music");
    rows.toggleItem(music);
    viewer.wait("sizes with the music", isComputed);
    shown._folderTree.selectItem(rowInHome(rows, home, "Documents"));
    viewer.waitFor(shown._leftOutInfo, "of them");
    takePicture(host, "SharingWindow", folder, QStringLiteral("folders-") + theme);
    shown._excludeButton.performClick();
    shown.exclude._filterField.enterText("*.txt");
    viewer.waitFor(shown.exclude._previewInfo, "would leave out 3");
    takePicture(host, "ExcludeFilters", folder, QStringLiteral("excludes-") + theme);
    shown.exclude._filterField.enterText("*.tmp");
    shown.exclude._addFilterButton.performClick();
    shown.exclude._okButton.performClick();
    viewer.wait("sizes without temporary files", isComputed);
    shown._leftOutButton.performClick();
    viewer.waitFor(shown.leftOut._leftOutTitle, "not counted");
    takePicture(host, "LeftOut", folder, QStringLiteral("not-counted-") + theme);
    shown.leftOut._closeButton.performClick();
    shown._okButton.performClick();
    viewer.wait("a stored selection", [&host] { return host.pane().sharing() == nullptr; });
    viewer.wait("the music in the table", [&] {
        return host.outlets()._foldersList.textAt(FolderTable::path, 1).ends_with("Music");
    });
    std::cout << "folders     " << host.outlets()._foldersList.numberOfRows() << " are backed up\n";
}

void goThrough(PanelHost& host, const QString& folder, const QString& theme,
               const std::string& home) {
    PaneOutlets& shown = host.outlets();
    Viewer viewer(shown);
    viewer.waitFor(shown._connectionStatus, "disconnected");
    takePictures(host, folder, QStringLiteral("offline-") + theme);
    shown._connectButton.performClick();
    viewer.waitFor(shown._connectionStatus, "connected");
    viewer.waitFor(shown._connectionInfo, "Connected");
    backUp(shown, viewer, home);
    takePictures(host, folder, QStringLiteral("backing-up-") + theme);
    complete(shown, viewer, home);
    changeSetting(shown, viewer);
    takePictures(host, folder, QStringLiteral("complete-") + theme);
    chooseFolders(host, viewer, folder, theme, home);
    shown._connectButton.performClick();
    viewer.waitFor(shown._connectionStatus, "disconnected");
}

}  // namespace

int main(int argc, char** argv) {
    try {
        const PanelApplication application(argc, argv);
        const char* const home = std::getenv("HOME");
        if (argc != 2 || !home) {
            std::cerr << "usage: tidewell-tour FOLDER\n";
            return 2;
        }
        PanelHost host(application.bundle(), application.appearance());
        bool isStarted = false;
        host.start([&isStarted] { isStarted = true; });
        while (!isStarted)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        goThrough(host, QString::fromLocal8Bit(argv[1]),
                  application.appearance() == Appearance::Dark ? QStringLiteral("dark")
                                                               : QStringLiteral("light"),
                  home);
        return 0;
    } catch (const std::exception& error) {
        std::cerr << "tidewell-tour: " << error.what() << '\n';
        return 1;
    }
}
