#pragma once

#include <chrono>
#include <filesystem>
#include <gtest/gtest.h>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "backup/sharing/SharingWindowController.h"
#include "foundation/propertylist/PropertyList.h"
#include "support/ChildProcess.h"
#include "support/FakeAlerts.h"
#include "support/FakeFilePanels.h"
#include "support/FakeVolumes.h"
#include "support/FakeWorkspace.h"
#include "support/ForwardedRunLoop.h"
#include "support/ScopedEnvironment.h"
#include "sync/SyncFixture.h"

namespace test_support {

/// Counts what is shown.
class CountedWindows final : public orv::SharingWindows {
 public:
    int shown = 0;
    void showSharing(orv::SharingOutlets&) override { ++shown; }
    void release(orv::SharingOutlets&) override { --shown; }
};

/// Keeps what the window tells at its end.
class Opener final : public orv::SharingDelegate {
 public:
    std::vector<std::string> heard;
    void sharingDialogDidFinishWithSize(std::uint64_t size, const std::string& agentID) override {
        heard.push_back("finished " + std::to_string(size) + " " + agentID);
    }
    void sharingDialogCancelled() override { heard.emplace_back("cancelled"); }
};

/// Work that is done when the test says so.
class Later final : public quelm::Background {
 public:
    bool held = false;
    void perform(Work work, Work done) override {
        waiting_.emplace_back(std::move(work), std::move(done));
        if (!held) release();
    }
    void release() {
        held = false;
        for (const auto& [work, done] : std::exchange(waiting_, {})) {
            work();
            if (done) done();
        }
    }

 private:
    std::vector<std::pair<Work, Work>> waiting_;
};

/// Anna's computer, with real folders, and her account.
class SharingFixture : public SyncFixture {
 protected:
    SharingFixture()
        : SyncFixture({{"full_name", "Anna"}}), home_("HOME", std::string(anna_.path())) {
        anna_.makeFile("Documents/letter.txt", "four");
        anna_.makeFile("Documents/song.mp3", std::string(100, 's'));
        anna_.makeFile("Documents/taxes/2025.pdf", std::string(20, 't'));
        anna_.makeFile("Documents/.hidden", std::string(7, 'h'));
        anna_.makeFile("Documents/.cache/deep/blob", std::string(1000, 'b'));
        anna_.makeLink("Documents/link", "letter.txt");
        anna_.makeFile("Desktop/note.txt", "note!");
        services_.runLoop = std::make_unique<ForwardedRunLoop>(loop_);
        services_.workspace = std::make_unique<FakeWorkspace>();
        auto volumes = std::make_unique<FakeVolumes>();
        volumes->volumes = {{.mountPoint = "/", .device = "/dev/sda1", .fileSystem = "ext4"}};
        services_.volumes = std::move(volumes);
    }
    ~SharingFixture() override { controller_.reset(); }

    void open() {
        accounts_->load();
        controller_ = std::make_unique<orv::orv_SharingWindowController>(
            orv::SharingEnvironment{services_, files_, folders_, scans_, scans_, alerts_, panels_,
                                    windows()},
            *accounts_->accountAtIndex(0), orv::StorageFigures{});
        controller_->openSharingWindowWithDelegate(&opener_);
        settle();
    }
    orv::SharingOutlets& outlets() { return controller_->outlets(); }
    virtual orv::SharingWindows& windows() { return windows_; }

    /// Until nothing is being computed.
    void settle() {
        ASSERT_TRUE(WaitUntil([this] {
            loop_.advance(std::chrono::milliseconds(10));  // results travel together
            return !controller_->computationInProgress();
        }));
        loop_.processPending();
    }
    [[nodiscard]] orv::OutlineDataSource& rows() { return *outlets()._folderTree.dataSource(); }
    static std::string_view nameIn(std::string_view title) {
        title.remove_prefix(title.find_first_not_of(' '));
        return title.substr(0, title.find(" ("));
    }
    /// The row below the others, each by its name, opened as the person does.
    orv::OutlineItem row(std::initializer_list<std::string_view> names) {
        orv::OutlineItem at = nullptr;
        for (const std::string_view name : names) {
            if (at) rows().itemWillExpand(at);
            orv::OutlineItem found = nullptr;
            for (std::size_t i = 0; i < rows().numberOfChildrenOfItem(at) && !found; ++i) {
                const orv::OutlineItem child = rows().childOfItem(i, at);
                auto title = rows().cellOfItem(child).title;
                if (nameIn(title).substr(0, name.size()) == name &&
                    nameIn(title).find_first_not_of(' ', name.size()) == std::string_view::npos)
                    found = child;
            }
            EXPECT_NE(found, nullptr) << name;
            at = found;
        }
        return at;
    }
    void click(orv::OutlineItem item) {
        rows().toggleItem(item);
        settle();
    }
    std::string title(orv::OutlineItem item) {
        const std::string text = rows().cellOfItem(item).title;
        return text.substr(text.find_first_not_of(' '));
    }
    orv::OutlineCheck check(orv::OutlineItem item) { return rows().cellOfItem(item).check; }
    quelm::Value stored(const char* file) {
        return quelm::ReadPropertyListFile(folder_ / file).value.value_or(quelm::Value());
    }
    /// The hints that were posted so far.
    std::vector<std::int64_t> hints() {
        EXPECT_TRUE(orv::EndAgentEvents(std::chrono::seconds(10)));
        std::vector<std::int64_t> found;
        for (const auto& posted : center_->posted()) {
            if (posted.name != orv::notifications::settingsChanged) continue;
            const auto* const hint = posted.payload.find("hint");
            found.push_back(hint && hint->asInteger() ? *hint->asInteger() : -1);
        }
        orv::BeginAgentEvents();
        return found;
    }
    std::map<std::string, std::string> filesOfAccount() {
        std::map<std::string, std::string> contents;
        for (const auto& entry : std::filesystem::directory_iterator(folder_.path()))
            contents[entry.path().filename()] = ContentOf(entry.path());
        return contents;
    }

    TemporaryFolder anna_;
    ScopedEnvironment home_;
    platform::Services services_;
    Later files_;
    Later folders_;
    Later scans_;
    FakeAlerts alerts_;
    FakeFilePanels panels_;
    CountedWindows windows_;
    Opener opener_;
    std::unique_ptr<orv::orv_SharingWindowController> controller_;
};

}  // namespace test_support
