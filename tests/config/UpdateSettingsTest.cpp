#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "config/ConfigurationPath.h"
#include "config/PersistentFlag.h"
#include "config/PropertyFiles.h"
#include "config/UpdateSettings.h"
#include "foundation/files/FileIo.h"
#include "support/ScopedEnvironment.h"
#include "support/TemporaryFolder.h"

namespace {

using orv::orv_PersistentFlag;
using orv::orvUpdateSettings;
using quelm::Dictionary;

class FolderOfAccount : public testing::Test {
 protected:
    FolderOfAccount() { orv::SetConfigBasePath(folder.path()); }
    ~FolderOfAccount() override { orv::ClearConfigBasePath(); }

    test_support::TemporaryFolder folder;
};
using UpdateSettings = FolderOfAccount;

TEST_F(UpdateSettings, TheUpdateServerHasTwoDefaults) {
    const auto& hosts = orv::CurrentDeployment();
    EXPECT_EQ(orvUpdateSettings().updateServerName(), hosts.webServer);
    EXPECT_EQ(orvUpdateSettings::settings().updateServerName(), hosts.webServer) << "no file";
    ASSERT_TRUE(
        orv::StorePropertiesToFile(folder / "server_info.plist", Dictionary{{"web_server", "w"}}));
    const auto loaded = orvUpdateSettings::settings();
    EXPECT_EQ(loaded.updateServerName(), hosts.updateServer);
    EXPECT_EQ(loaded.webServerName(), "w");
    EXPECT_EQ(loaded.apiServerName(), hosts.apiServer);
}

TEST_F(UpdateSettings, AreMergedIntoTheirFile) {
    const std::string path = folder / "server_info.plist";
    ASSERT_TRUE(orv::StorePropertiesToFile(
        path, Dictionary{{"web_server", 5}, {"update_server", "u"}, {"foreign", 1}}));
    auto settings = orvUpdateSettings::settings();
    settings.setWebServerName("new");
    EXPECT_TRUE(settings.store());
    EXPECT_EQ(orv::LoadPropertiesFromFile(path),
              (Dictionary{{"web_server", "new"},
                          {"update_server", "u"},
                          {"api_server", orv::CurrentDeployment().apiServer},
                          {"foreign", 1}}));
    EXPECT_FALSE(settings.storeToSpecificPath(folder / "absent/a"));
}

TEST_F(UpdateSettings, WhatCannotBeReadChangesNothingAndNoLockIsWaitedFor) {
    orvUpdateSettings settings;
    settings.setUpdateServerName("u");
    const std::string path = folder.makeFile("server_info.plist", "<plist><dict>");
    for (const std::string& bad : {path, folder / "absent", folder.path()}) {
        EXPECT_FALSE(settings.loadSettingsFromFile(bad));
        EXPECT_EQ(settings.updateServerName(), "u");
    }
    struct stat info = {};
    EXPECT_NE(stat((folder / "absent").c_str(), &info), 0) << "reading made a file";
    ASSERT_TRUE(orv::StorePropertiesToFile(path, Dictionary{}));
    const quelm::FileDescriptor holder(quelm::OpenExclusive(path));
    EXPECT_TRUE(settings.loadSettings());
}

using PersistentFlag = FolderOfAccount;

TEST_F(PersistentFlag, IsAnEmptyFileOfItsAccount) {
    folder.makeFolder("account_42");
    EXPECT_EQ(orv_PersistentFlag::createPathForAgentID("42", "f"), folder / "account_42/f");
    for (const auto& id : {std::optional<std::string>(), std::optional<std::string>("1"),
                           std::optional<std::string>("0"), std::optional<std::string>("")}) {
        EXPECT_EQ(orv_PersistentFlag::createPathForAgentID(id, "f"), folder / "f");
    }
    EXPECT_FALSE(orv_PersistentFlag::getAndRemove("f", "42"));
    EXPECT_TRUE(orv_PersistentFlag::set("f", "42"));
    struct stat info = {};
    ASSERT_EQ(stat((folder / "account_42/f").c_str(), &info), 0);
    EXPECT_EQ(info.st_mode & 0777U, 0700U);
    EXPECT_TRUE(orv_PersistentFlag::isSet("f", "42"));
    EXPECT_FALSE(orv_PersistentFlag::isSet("f", "1"));
    EXPECT_TRUE(orv_PersistentFlag::getAndRemove("f", "42"));
    EXPECT_FALSE(orv_PersistentFlag::isSet("f", "42"));
    EXPECT_FALSE(orv_PersistentFlag::remove("f", "42"));
    EXPECT_FALSE(orv_PersistentFlag::set("f", "43")) << "no such account";

    orv::SetConfigBasePath(folder / "account_42");  // as the agent of that account has it
    EXPECT_EQ(orv_PersistentFlag::createPathForAgentID("42", "f"), folder / "account_42/f");
    EXPECT_EQ(orv_PersistentFlag::createPathForAgentID("1", "f"), folder / "f");
}

TEST_F(PersistentFlag, LeadsOutOfNoFolder) {
    for (const std::string bad : {"", ".", "..", "../f", "a/b", "/etc/f"}) {
        EXPECT_EQ(orv_PersistentFlag::createPathForAgentID("1", bad), std::nullopt) << bad;
        EXPECT_FALSE(orv_PersistentFlag::set(bad, "1")) << bad;
        EXPECT_FALSE(orv_PersistentFlag::isSet(bad, "1")) << bad;
        EXPECT_FALSE(orv_PersistentFlag::getAndRemove(bad, "1")) << bad;
        EXPECT_FALSE(orv_PersistentFlag::setGloballyForUser(bad)) << bad;
    }
    EXPECT_FALSE(orv_PersistentFlag::set("f", "../x"));
    // a file of that name keeps its content, and a folder counts as set although it stays
    folder.makeFile("f", "content");
    EXPECT_TRUE(orv_PersistentFlag::set("f", "1"));
    EXPECT_EQ(test_support::ContentOf(folder / "f"), "content");
    folder.makeFolder("g/h");
    EXPECT_TRUE(orv_PersistentFlag::getAndRemove("g", "1"));
    EXPECT_TRUE(orv_PersistentFlag::isSet("g", "1"));
}

TEST_F(PersistentFlag, MayBelongToTheUser) {
    const test_support::ScopedEnvironment home("HOME", folder.path());
    EXPECT_FALSE(orv_PersistentFlag::setGloballyForUser("f")) << "no folder of preferences";
    folder.makeFolder("Library/Preferences");
    EXPECT_FALSE(orv_PersistentFlag::isSetGloballyForUser("f"));
    EXPECT_TRUE(orv_PersistentFlag::setGloballyForUser("f"));
    EXPECT_TRUE(orv_PersistentFlag::isSetGloballyForUser("f"));
    EXPECT_TRUE(test_support::ContentOf(folder / "Library/Preferences/f").empty());
}

}  // namespace
