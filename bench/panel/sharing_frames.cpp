// bench_sharing_frames FILE [FOLDERS FILES]: the window in which folders are chosen, off-screen,
// over a tree that is made below a home of its own and removed. Everything is opened, then scanned,
// then scrolled through. Writes {"name": number} as JSON: the longest time in nanoseconds for which
// the main thread dealt with one event in each of these, how many took longer than a frame, and
// kilobytes of memory.
#include <QApplication>
#include <QScrollBar>
#include <chrono>
#include <cstdlib>
#include <fmt/ostream.h>
#include <fstream>
#include <iostream>
#include <map>
#include <memory>

#include "EndAtPaint.h"
#include "Tree.h"
#include "backup/sharing/SharingWindowController.h"
#include "config/ConfigurationPath.h"
#include "config/PropertyFiles.h"
#include "foundation/system/ApplicationBundle.h"
#include "foundation/threads/Background.h"
#include "platform/linux/LinuxServices.h"
#include "qt/binding/FrameUpdates.h"
#include "qt/binding/WindowContext.h"
#include "qt/elements/OutlineTree.h"
#include "qt/looks/Icons.h"
#include "qt/windows/SharingWindow.h"
#include "support/FakeAlerts.h"
#include "support/FakeFilePanels.h"
#include "support/TemporaryFolder.h"

namespace {

using Clock = std::chrono::steady_clock;
constexpr std::chrono::milliseconds frame{16};

/// Notes how long the main thread deals with each event.
class TimedApplication final : public QApplication {
 public:
    using QApplication::QApplication;

    bool notify(QObject* receiver, QEvent* event) override {
        if (depth_ != 0) return QApplication::notify(receiver, event);
        ++depth_;
        const auto start = Clock::now();
        const bool isDone = QApplication::notify(receiver, event);
        const auto taken = Clock::now() - start;
        --depth_;
        longest_ = std::max(longest_, taken);
        if (taken > frame) ++stalls_;
        return isDone;
    }
    [[nodiscard]] double longest() const { return static_cast<double>(longest_.count()); }
    [[nodiscard]] int stalls() const { return stalls_; }
    void beginAnew() {
        longest_ = {};
        stalls_ = 0;
    }

 private:
    int depth_ = 0;
    Clock::duration longest_{};
    int stalls_ = 0;
};

class Windows final : public orv::SharingWindows {
 public:
    explicit Windows(const orv::WindowContext& context) : context_(context) {}
    void showSharing(orv::SharingOutlets& outlets) override {
        window = std::make_unique<orv::SharingWindow>(context_, outlets, nullptr);
    }
    void release(orv::SharingOutlets&) override { window.reset(); }

    std::unique_ptr<orv::SharingWindow> window;

 private:
    const orv::WindowContext& context_;
};

template <typename Condition>
void runUntil(Condition isDone) {
    while (!isDone())
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
}

/// Reads the folder and all below it, one after the other.
void openAll(orv::OutlineDataSource& rows, quelm::BackgroundThread& looking, orv::OutlineItem row) {
    rows.itemWillExpand(row);
    if (!looking.waitUntilIdle(std::chrono::seconds(10))) std::exit(1);
    QCoreApplication::processEvents();
    for (std::size_t i = 0; i < rows.numberOfChildrenOfItem(row); ++i)
        openAll(rows, looking, rows.childOfItem(i, row));
}

/// Every row below the one, however many; from below, since the view lays out what it shows anew
/// for each row that is expanded.
void expandAll(QTreeView& tree, const QModelIndex& index) {
    auto& model = *tree.model();
    while (model.canFetchMore(index))
        model.fetchMore(index);
    for (int i = 0; i < model.rowCount(index); ++i)
        expandAll(tree, model.index(i, 0, index));
    tree.expand(index);
}

/// From the first row to the last, a page at a time, each one drawn.
void scrollThrough(QScrollBar& bar) {
    for (int at = 0; at < bar.maximum(); at += std::max(bar.pageStep(), bar.maximum() / 2000)) {
        bar.setValue(at);
        QCoreApplication::processEvents();
    }
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 2) return 2;
    const auto number = [&](int at, std::size_t otherwise) {
        return argc > at ? std::strtoul(argv[at], nullptr, 10) : otherwise;
    };
    const test_support::TemporaryFolder home;
    setenv("HOME", home.path().c_str(), 1);
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    const std::size_t folders = number(2, 20'000);
    const ScanTree disk(home.path(), folders, number(3, 400'000));

    int one = 1;
    TimedApplication application(one, argv);
    const quelm::Bundle bundle(quelm::FindResourcesFolder(), {"en"});
    quelm::SetApplicationBundle(&bundle);
    platform::Services& services = platform::ProcessServices();
    services = platform::MakeLinuxServices([](const std::string&) {});
    platform::AddEventServices(services, [](const std::string&) {});
    orv::SetConfigBasePath(home / "settings");
    home.makeFolder("settings");
    orv::StorePropertiesToFile(home / "settings/user_info.plist",
                               quelm::Dictionary{{"full_name", "Anna"}});
    orv::StoreArrayToFile(home / "settings/storage_info.plist",
                          quelm::Array{quelm::Value(quelm::Array{disk.path(), true})});
    orv::AccountList accounts(false);
    accounts.load();
    std::map<std::string, double> results;
    {
        quelm::BackgroundThread files(*services.runLoop);
        quelm::BackgroundThread looking(*services.runLoop);
        quelm::BackgroundThread scans(*services.runLoop);
        quelm::BackgroundThread hidden(*services.runLoop);
        test_support::FakeAlerts alerts;
        test_support::FakeFilePanels panels;
        orv::FrameUpdates updates;
        const orv::Icons icons(QString::fromStdString(quelm::FindResourcesFolder()),
                               orv::Appearance::Light);
        const orv::WindowContext context{updates, icons, [](const std::string&) {}};
        Windows windows(context);
        orv::orv_SharingWindowController controller(
            {services, files, looking, scans, hidden, alerts, panels, windows},
            *accounts.accountAtIndex(0), {});
        const auto note = [&](const std::string& what) {
            results["SharingLongest" + what] = application.longest();
            results["SharingStalls" + what] = application.stalls();
            application.beginAnew();
        };
        const auto isIdle = [&] { return !controller.computationInProgress(); };

        controller.openSharingWindow();
        runUntil([&] { return controller.tree() && isIdle(); });
        note("Opening");
        auto& rows = *controller.outlets()._folderTree.dataSource();
        for (std::size_t i = 0; i < rows.numberOfChildrenOfItem(nullptr); ++i) {
            const auto row = rows.childOfItem(i, nullptr);
            if (rows.cellOfItem(row).imageName == "folder-home") openAll(rows, looking, row);
        }
        note("Reading");
        auto& tree = *windows.window->findChild<orv::OutlineTree*>(QStringLiteral("_folderTree"));
        updates.flush();
        expandAll(tree, {});
        QCoreApplication::processEvents();
        application.beginAnew();
        controller.outlets()._onlyTheseButton.performClick();
        runUntil(isIdle);
        note("Scanning");
        scrollThrough(*tree.verticalScrollBar());
        note("Scrolling");
        results["SharingFolders"] = static_cast<double>(controller.tree()->numberOfItems());
        results["SharingRowsHeight"] = tree.verticalScrollBar()->maximum();
        results["SharingMemory"] = static_cast<double>(bench::residentMemory());
    }
    platform::EndProcessServices();
    std::ofstream stream(argv[1]);
    const char* separator = "{";
    for (const auto& [name, value] : results) {
        fmt::print(stream, "{}\"{}\": {}", separator, name, value);
        separator = ", ";
    }
    fmt::print(stream, "}}\n");
    return stream ? 0 : 1;
}
