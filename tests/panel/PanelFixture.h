#pragma once

#include <QDeadlineTimer>
#include <QEventLoop>
#include <QPushButton>
#include <QTextBlock>
#include <QTextDocument>
#include <functional>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <vector>

#include "config/ConfigurationPath.h"
#include "config/PropertyFiles.h"
#include "qt/binding/Mnemonics.h"
#include "qt/elements/ImageLabel.h"
#include "qt/host/PanelApplication.h"
#include "qt/host/PanelHost.h"
#include "support/AgentVoice.h"
#include "support/ChildProcess.h"
#include "support/PrivateBus.h"
#include "support/ScopedEnvironment.h"

namespace test_support {

/// The panel's window in this process, with agent and orvctl as children, on a bus and in a home
/// folder of their own. What is looked at is what the widgets show. There is one panel a process,
/// so each test has to be run in a process of its own, as CTest does.
class PanelFixture : public testing::Test {
 protected:
    PanelFixture() { orv::ClearConfigBasePath(); }
    ~PanelFixture() override {
        host_.reset();
        application_.reset();
        orv::ClearConfigBasePath();
    }
    void SetUp() override {
        static int tests = 0;
        if (++tests > 1) GTEST_SKIP() << "there was a panel in this process before";
        ASSERT_TRUE(bus_.runs());
        ASSERT_TRUE(orv::StorePropertiesToFile(
            settings_ + "/user_info.plist",
            quelm::Dictionary{
                {"full_name", "Anna"}, {"policy_backup", 0}, {"two_way_sync", true}}));
    }

    void openPanel() {
        application_.emplace(count_, arguments_);
        host_.emplace(application_->bundle(), application_->appearance());
        bool isOpen = false;
        host_->start([&] { isOpen = true; });
        ASSERT_TRUE(runUntil([&] { return isOpen && host_->window().isVisible(); }));
    }
    /// From now on the panel hears everything.
    void waitUntilListening() {
        ASSERT_TRUE(platform::ProcessServices().notifications->waitUntilListening(
            std::chrono::seconds(10)));
    }
    void startAgent() {
        ASSERT_TRUE(agent_.start(setup({ORV_AGENT, "1"}, "agent")));
        ASSERT_TRUE(WaitUntil([this] { return voice_.isAgentThere(); }));
    }
    [[nodiscard]] ChildProcess::Setup setup(std::vector<std::string> words,
                                            const std::string& output) const {
        return {.words = std::move(words), .outputFile = files_ / output};
    }
    /// What orvctl prints.
    [[nodiscard]] std::string orvctl(std::vector<std::string> words) const {
        words.insert(words.begin(), ORVCTL);
        RunProgram(setup(std::move(words), "orvctl"));
        return ContentOf(files_ / "orvctl");
    }

    /// The window goes on meanwhile; false when it takes too long.
    [[nodiscard]] static bool runUntil(const std::function<bool()>& holds) {
        const QDeadlineTimer limit(std::chrono::seconds(20));
        while (!holds()) {
            if (limit.hasExpired()) return false;
            QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 10);
        }
        return true;
    }
    template <class Widget>
    [[nodiscard]] Widget& widget(const char* name) {
        auto* const found = host_->window().findChild<Widget*>(QLatin1String(name));
        if (!found) throw std::runtime_error(std::string("the window has no ") + name);
        return *found;
    }
    /// As the person reads it.
    [[nodiscard]] std::string text(const char* label) {
        const auto& shown = widget<QLabel>(label);
        if (shown.textFormat() != Qt::RichText) return shown.text().toStdString();
        QTextDocument document;
        document.setHtml(shown.text());
        return document.toPlainText().toStdString();
    }
    /// Runs until the label reads so.
    [[nodiscard]] bool reads(const char* label, const std::string& expected) {
        return runUntil([&] { return text(label) == expected; });
    }
    /// The window's lines in the form of `orvctl status --json`.
    [[nodiscard]] nlohmann::json windowReport() {
        auto links = nlohmann::json::array();
        for (const char* label : {"_backupStatus2", "_projectsStatus2"})
            appendLinks(links, widget<QLabel>(label));
        return {
            {"connection",
             {{"text", text("_connectionStatus")},
              {"info", text("_connectionInfo")},
              {"button", orv::PlainTitle(widget<QPushButton>("_connectButton")).toStdString()}}},
            {"backup", block("_backupStatus1", "_backupStatus2", "_backupStatusImage")},
            {"projects", block("_projectsStatus1", "_projectsStatus2", "_projectsStatusImage")},
            {"links", links}};
    }

    PrivateBus bus_;
    TemporaryFolder home_;
    TemporaryFolder files_;
    const std::string settings_ = home_.makeFolder("Library/Preferences/com.corvanta.orv");
    ScopedEnvironment homeFolder_{"HOME", home_.path()};
    ScopedEnvironment runtimeFolder_{"XDG_RUNTIME_DIR", home_.path()};
    ScopedEnvironment busAddress_{"DBUS_SESSION_BUS_ADDRESS", bus_.address()};
    ScopedEnvironment platform_{"QT_QPA_PLATFORM", "offscreen"};
    ScopedEnvironment quiet_{"QT_LOGGING_RULES", "qt.qpa.*=false"};
    AgentVoice voice_{bus_.address()};
    ChildProcess agent_;
    ChildProcess watch_;
    int count_ = 1;
    char name_[5] = "test";
    char* arguments_[2] = {name_, nullptr};
    std::optional<orv::PanelApplication> application_;
    std::optional<orv::PanelHost> host_;

 private:
    [[nodiscard]] nlohmann::json block(const char* summary, const char* state, const char* image) {
        const std::string name = widget<orv::ImageLabel>(image).imageName().toStdString();
        return {{"summary", text(summary)},
                {"state", text(state)},
                {"image", name.empty() ? nlohmann::json() : nlohmann::json(name)}};
    }
    static void appendLinks(nlohmann::json& links, const QLabel& label) {
        if (label.textFormat() != Qt::RichText) return;
        QTextDocument document;
        document.setHtml(label.text());
        for (auto part = document.begin().begin(); !part.atEnd(); ++part) {
            const QTextFragment fragment = part.fragment();
            if (!fragment.charFormat().isAnchor()) continue;
            links.push_back({{"text", fragment.text().toStdString()},
                             {"address", fragment.charFormat().anchorHref().toStdString()}});
        }
    }
};

}  // namespace test_support
