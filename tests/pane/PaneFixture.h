#pragma once

#include <algorithm>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "foundation/propertylist/PropertyList.h"
#include "pane/PreferencePane.h"
#include "support/ChildProcess.h"
#include "support/FakeAlerts.h"
#include "support/FakeFilePanels.h"
#include "support/FakeKeychain.h"
#include "support/FakeVolumes.h"
#include "support/FakeWorkspace.h"
#include "support/ForwardedRunLoop.h"
#include "support/ScopedEnvironment.h"
#include "sync/SyncFixture.h"

namespace test_support {

/// Everything at once, but nothing while it is held.
class HeldBackground final : public quelm::Background {
 public:
    bool held = false;

    [[nodiscard]] std::size_t waiting() const { return waiting_.size(); }
    void perform(Work work, Work done) override {
        waiting_.emplace_back(std::move(work), std::move(done));
        if (!held) release();
    }
    void release() {
        held = false;
        while (!waiting_.empty()) {
            const auto [work, done] = std::move(waiting_.front());
            waiting_.erase(waiting_.begin());
            work();
            if (done) done();
        }
    }

 private:
    std::vector<std::pair<Work, Work>> waiting_;
};

class FakeApplication final : public orv::AgentApplication {
 public:
    bool isRunning = false;
    bool agentRuns = true;
    /// Questions after agents are kept in `asked`.
    bool held = false;
    std::vector<std::function<void(bool)>> asked;
    std::vector<std::string> launched;

    void launch(const std::string& agentId, std::function<void()> done) override {
        launched.push_back(agentId);
        done();
    }
    void askIfRunning(std::function<void(bool)> answer) override { answer(isRunning); }
    void askIfAgentRuns(const std::string&, std::function<void(bool)> answer) override {
        if (held) return asked.push_back(std::move(answer));
        answer(agentRuns);
    }
};

class FakeWindows final : public orv::PaneWindows {
 public:
    orv::OnlinePasswordOutlets* password = nullptr;
    orv::AdvancedSettingsOutlets* advanced = nullptr;
    orv::SharingOutlets* sharing = nullptr;

    void showOnlinePassword(orv::OnlinePasswordOutlets& outlets) override { password = &outlets; }
    void showAdvancedSettings(orv::AdvancedSettingsOutlets& outlets) override {
        advanced = &outlets;
    }
    void showSharing(orv::SharingOutlets& outlets) override { sharing = &outlets; }
    void release(orv::OnlinePasswordOutlets&) override { password = nullptr; }
    void release(orv::AdvancedSettingsOutlets&) override { advanced = nullptr; }
    void release(orv::SharingOutlets&) override { sharing = nullptr; }
    void activate() override {}
};

class FakeClipboard final : public orv::Clipboard {
 public:
    std::string text;
    void setText(const std::string& copied) override { text = copied; }
};

class FakeViolations final : public orv::ViolationCount {
 public:
    std::int64_t count = 0;
    [[nodiscard]] std::int64_t numberOfViolations() const override { return count; }
};

/// A panel among fakes, with a configuration folder of its own.
class PaneFixture : public SyncFixture {
 protected:
    explicit PaneFixture(const quelm::Dictionary& record = {{"full_name", "Anna"}})
        : SyncFixture(record), home_("HOME", folder_.path()) {
        services_.runLoop = std::make_unique<ForwardedRunLoop>(loop_);
        services_.localNotifications =
            std::make_unique<platform::LocalNotifications>(*services_.runLoop);
        auto workspace = std::make_unique<FakeWorkspace>();
        workspace_ = workspace.get();
        services_.workspace = std::move(workspace);
        services_.keychain = std::make_unique<FakeKeychain>();
        services_.volumes = std::make_unique<FakeVolumes>();
        projects_.emplace(environment());
        locks_.emplace(environment());
    }
    ~PaneFixture() override {
        pane_.reset();
        locks_.reset();
        projects_.reset();
    }

    void start() {
        pane_ = orv::orvPreferencePane::initWithBundle(
            nullptr, outlets_,
            {services_, *dispatcher_, *accounts_, *projects_, *locks_, background_, held_, held_,
             scans_, held_, alerts_, filePanels_, clipboard_, application_, windows_, violations_});
        quelm::SetLogSink([this](std::string_view line) { log_.emplace_back(line); });
        ASSERT_TRUE(pane_);
        pane_->mainViewDidLoad();
        loop_.processPending();
    }
    void status(int code, std::int64_t timestamp = 0) {
        center_->deliver(orv::notifications::connectionStatusChanged,
                         orv::defaultNotificationObject,
                         {{"agent-id", "1"}, {"status", code}, {"timestamp", timestamp}});
        loop_.processPending();
    }
    /// Of the active account's agent.
    void own(const char* name, quelm::Dictionary payload) {
        payload.set("agent-id", "1");
        event(name, std::move(payload));
    }
    /// Names of events, and hints as "hint 16384", since the last call; but for what the lists of
    /// projects and locks ask.
    std::vector<std::string> posted() {
        orv::NotifyAgentEvent("1", "marker");
        std::vector<std::string> names;
        EXPECT_TRUE(WaitUntil([&] {
            names = namesPosted();
            return std::ranges::count(names, "marker") > markers_;
        }));
        ++markers_;
        names.pop_back();
        const std::vector<std::string> fresh(names.begin() + static_cast<std::ptrdiff_t>(seen_),
                                             names.end());
        seen_ = names.size() + 1;
        return fresh;
    }
    quelm::Dictionary stored(const char* file) {
        const auto value = quelm::ReadPropertyListFile(folder_ / file).value;
        return value && value->asDictionary() ? *value->asDictionary() : quelm::Dictionary();
    }
    void answer(int button) {
        ASSERT_FALSE(alerts_.shown.empty());
        const auto shown = alerts_.shown.back();
        alerts_.shown.pop_back();
        shown.answered(button);
    }

    std::vector<std::string> namesPosted() {
        std::vector<std::string> names;
        for (const auto& one : center_->posted()) {
            if (const auto* name = one.payload.find("event_name")) {
                if (*name->asString() != "sync_request") names.push_back(*name->asString());
            } else if (const auto* hint = one.payload.find("hint")) {
                names.push_back("hint " + std::to_string(*hint->asInteger()));
            }
        }
        return names;
    }

    ScopedEnvironment home_;
    platform::Services& services_ = platform::ProcessServices();
    FakeWorkspace* workspace_ = nullptr;
    std::optional<orv::ProjectsList> projects_;
    std::optional<orv::LockedFilesList> locks_;
    HeldBackground held_;
    quelm::WatchedBackground background_{held_, loop_};
    FakeAlerts alerts_;
    FakeFilePanels filePanels_;
    HeldBackground scans_;
    FakeClipboard clipboard_;
    FakeApplication application_;
    FakeWindows windows_;
    FakeViolations violations_;
    orv::PaneOutlets outlets_;
    std::unique_ptr<orv::orvPreferencePane> pane_;
    std::size_t seen_ = 0;
    std::ptrdiff_t markers_ = 0;
};

}  // namespace test_support
