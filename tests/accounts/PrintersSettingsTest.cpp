#include <cerrno>
#include <gtest/gtest.h>
#include <set>
#include <sys/stat.h>

#include "accounts/PrintersSettings.h"
#include "config/ConfigurationPath.h"
#include "foundation/propertylist/PropertyList.h"
#include "foundation/system/Log.h"
#include "platform/Services.h"
#include "support/FakeAlerts.h"
#include "support/FakePrinters.h"
#include "support/ProcessNotifications.h"
#include "support/TemporaryFolder.h"

namespace {

using orv::orv_PrintersSettings;
using orv::SettingsError;
using quelm::Array;
using quelm::Dictionary;

class PrintersSettings : public testing::Test {
 protected:
    PrintersSettings() {
        orv::SetConfigBasePath(folder_.path());
        quelm::SetLogSink([this](std::string_view line) { log_.emplace_back(line); });
        printers_.printers = {{"laser", "Laser", false}, {"ink", "Ink", true}};
    }
    ~PrintersSettings() override {
        quelm::SetLogSink({});
        orv::ClearConfigBasePath();
    }

    void writeFile(const Array& rows) const {
        folder_.makeFile("printer_info.plist", *quelm::WritePropertyList(rows));
    }
    [[nodiscard]] quelm::Value fileContent() const {
        return quelm::ReadPropertyListFile(file_).value.value_or("unreadable");
    }
    /// "Laser- Ink+": the live list with its checks.
    [[nodiscard]] std::string listed() const {
        std::string text;
        for (std::size_t i = 0; i < settings_.count(); ++i) {
            text +=
                settings_.printersNameAtIndex(i) + (settings_.userCheckAtIndex(i) ? "+ " : "- ");
        }
        return text;
    }

    test_support::ProcessNotifications center_;
    test_support::TemporaryFolder folder_;
    const std::string file_ = folder_ / "printer_info.plist";
    test_support::FakePrinters printers_;
    test_support::FakeAlerts alerts_;
    std::vector<std::string> log_;
    orv_PrintersSettings settings_{&printers_, &alerts_};
};

TEST_F(PrintersSettings, OnlyTheDefaultPrinterIsCheckedUntilThereIsAFile) {
    settings_.createListOfPrinters(false);
    EXPECT_EQ(listed(), "Laser- Ink+ ");
    folder_.makeFile("printer_info.plist");
    settings_.createListOfPrinters(true);
    EXPECT_EQ(listed(), "Laser- Ink+ ") << "an empty file is none";
    writeFile({Dictionary{{"printer_id", "laser"}, {"user_check", true}},
               Dictionary{{"printer_id", "ink"}, {"user_check", 1}}, "no dictionary"});
    settings_.createListOfPrinters(false);
    EXPECT_EQ(listed(), "Laser- Ink+ ") << "the list is there";
    settings_.createListOfPrinters(true);
    EXPECT_EQ(listed(), "Laser+ Ink- ");
    EXPECT_EQ(settings_.count2(), 3U);
    EXPECT_TRUE(settings_.isThisPrinterCheckedInPropertyList("laser"));
    EXPECT_FALSE(settings_.isThisPrinterCheckedInPropertyList("none"));
    EXPECT_TRUE(alerts_.shown.empty());
}

TEST_F(PrintersSettings, AreStoredForTheOwnerAloneAndTheAgentIsTold) {
    writeFile({Dictionary{{"printer_id", "ink"}, {"future", 7}, {"user_check", false}},
               Dictionary{{"printer_id", "sold"}, {"user_check", true}}});
    ::chmod(file_.c_str(), 0644);
    settings_.createListOfPrinters(true);
    settings_.setUserCheck(true, 1);
    settings_.setUserCheck(true, 2);
    EXPECT_EQ(
        fileContent(),
        quelm::Value(Array{
            Dictionary{{"printer_id", "laser"}, {"printer_name", "Laser"}, {"user_check", false}},
            Dictionary{{"future", 7},
                       {"printer_id", "ink"},
                       {"printer_name", "Ink"},
                       {"user_check", true}}}));
    struct stat status = {};
    ASSERT_EQ(::stat(file_.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777U, 0600U);
    ASSERT_EQ(center_->posted().size(), 1U);
    EXPECT_EQ(center_->posted()[0].payload, (Dictionary{{"agent-id", "1"}, {"hint", 128}}));
}

TEST_F(PrintersSettings, FollowTheSystemsPrinters) {
    settings_.setUserCheck(true, 0);
    EXPECT_FALSE(std::filesystem::exists(file_)) << "there is no list yet";
    EXPECT_TRUE(settings_.store());
    printers_.printers = {{"ink", "Ink", true}, {"\x01", "?", false}, {"new", "\xff", false}};
    settings_.createListOfPrinters(true);
    EXPECT_EQ(listed(), "Ink+ new- ");
    printers_.printers.clear();
    settings_.createListOfPrinters(true);
    EXPECT_EQ(listed(), "");
    orv_PrintersSettings noService(nullptr, nullptr);
    noService.createListOfPrinters(true);
    EXPECT_EQ(noService.count(), 0U);
    EXPECT_EQ(noService.printersStatusAtIndex(0), "unknown");
}

TEST_F(PrintersSettings, TellTheStateThatAPrinterIsIn) {
    settings_.createListOfPrinters(true);
    EXPECT_EQ(settings_.printersStatusAtIndex(0), "unknown");
    const std::vector<std::pair<platform::PrinterState, std::string>> cases = {
        {platform::PrinterState::Ready, "ready"},
        {platform::PrinterState::Processing, "processing"},
        {platform::PrinterState::Stopped, "stopped"},
        {platform::PrinterState::Unknown, "unknown"}};
    for (const auto& [state, text] : cases) {
        printers_.states["laser"] = state;
        EXPECT_EQ(settings_.printersStatusAtIndex(0), text);
    }
    EXPECT_EQ(settings_.printersStatusAtIndex(9), "unknown");
}

TEST_F(PrintersSettings, ShowWhatKeepsTheFileFromBeingWritten) {
    folder_.makeFolder("printer_info.plist");
    settings_.createListOfPrinters(true);
    ASSERT_EQ(alerts_.shown.size(), 0U) << "a folder has no content";
    EXPECT_FALSE(settings_.store());
    ASSERT_EQ(alerts_.shown.size(), 1U);
    const orv::Alert& alert = alerts_.shown[0].alert;
    EXPECT_EQ(alert.title, "Corvanta Tidewell Backup Settings");
    EXPECT_EQ(alert.message, "Error 21: Is a directory\nPath: " + file_);
    EXPECT_EQ(alert.buttons, std::vector<std::string>{"OK"});
    EXPECT_TRUE(center_->posted().empty());

    EXPECT_EQ(settings_.readDataFromFile(folder_ / "missing/x", true), std::nullopt);
    EXPECT_EQ(settings_.readDataFromFile(file_, false), std::nullopt);
    EXPECT_EQ(alerts_.shown.size(), 1U);
    EXPECT_EQ(settings_.readDataFromFile(file_, true), std::nullopt);
    EXPECT_EQ(alerts_.shown.size(), 2U);
}

TEST_F(PrintersSettings, AreKeptInACopyWhenTheirFileCannotBeRead) {
    std::set<std::string> kept;
    for (const char* content : {"no list", "<plist><dict/></plist>"}) {
        folder_.makeFile("printer_info.plist", content);
        log_.clear();
        settings_ = {&printers_, &alerts_};
        settings_.createListOfPrinters(true);
        EXPECT_EQ(listed(), "Laser- Ink- ") << content;
        EXPECT_EQ(log_.size(), 1U) << content;
        EXPECT_TRUE(log_.at(0).starts_with("ERROR: Shared Folders Settings load: failed with "));
        EXPECT_TRUE(settings_.store());
        kept.insert(content);
    }
    std::set<std::string> copies;
    for (const auto& entry : std::filesystem::directory_iterator(folder_.path())) {
        if (entry.path().string().find(".damaged-") != std::string::npos)
            copies.insert(test_support::ContentOf(entry.path()));
    }
    EXPECT_EQ(copies, kept);
}

TEST_F(PrintersSettings, StayAsTheyAreWhileThePrintingSystemDoesNotAnswer) {
    writeFile({Dictionary{{"printer_id", "ink"}, {"user_check", true}}});
    const quelm::Value before = fileContent();
    settings_.createListOfPrinters(true);
    printers_.answers = false;
    settings_.createListOfPrinters(true);
    EXPECT_EQ(listed(), "");
    EXPECT_TRUE(settings_.getArrayOfPrinters().empty());
    EXPECT_FALSE(settings_.store());
    EXPECT_EQ(fileContent(), before);
    ASSERT_EQ(alerts_.shown.size(), 1U);
    EXPECT_TRUE(alerts_.shown[0].alert.message.ends_with("\nPath: " + file_));
    EXPECT_TRUE(center_->posted().empty());
    printers_.answers = true;
    EXPECT_TRUE(settings_.store());
    EXPECT_EQ(listed(), "Laser- Ink+ ");
}

TEST_F(PrintersSettings, ErrorsAreToldByTheirDomain) {
    const std::vector<std::pair<SettingsError, std::string>> cases = {
        {{SettingsError::posixDomain, EACCES, "", "", "/a"},
         "Error 13: Permission denied\nPath: /a"},
        {{SettingsError::posixDomain, EACCES, "No luck", "", std::nullopt},
         "No luck.\nError 13: Permission denied"},
        {{SettingsError::settingsDomain, 5, "Bad settings", "x", std::nullopt}, "Bad settings"},
        {{"Other", -7, "ignored", "info", "/b"},
         "Unknown error: domain Other, code -7, info: info\nPath: /b"},
    };
    for (const auto& [error, text] : cases) {
        settings_.printError(error);
        EXPECT_EQ(alerts_.shown.back().alert.message, text);
    }
    orv_PrintersSettings(nullptr, nullptr).printError(cases[2].first);
    EXPECT_EQ(log_, std::vector<std::string>{"ERROR: Bad settings"});
}

}  // namespace
