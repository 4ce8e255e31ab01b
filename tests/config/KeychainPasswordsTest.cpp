#include <cerrno>
#include <gtest/gtest.h>
#include <thread>

#include "config/KeychainInteraction.h"
#include "config/KeychainPasswords.h"
#include "foundation/system/Log.h"
#include "platform/Services.h"
#include "support/FakeAuthorization.h"
#include "support/FakeKeychain.h"

namespace {

using platform::GenericPasswordItem;
using platform::InternetPasswordItem;
using test_support::FakeKeychain;
using Status = platform::Keychain::Status;
using Interaction = platform::Keychain::Interaction;

class KeychainPasswords : public testing::Test {
 protected:
    KeychainPasswords() {
        auto keychain = std::make_unique<FakeKeychain>();
        keychain_ = keychain.get();
        platform::ProcessServices().keychain = std::move(keychain);
        quelm::SetLogSink([this](std::string_view line) { log_.emplace_back(line); });
    }
    ~KeychainPasswords() override {
        quelm::SetLogSink(nullptr);
        platform::ProcessServices() = {};
    }

    FakeKeychain* keychain_;
    std::vector<std::string> log_;
};

TEST_F(KeychainPasswords, KeepsOneItemForAServiceAndAccount) {
    const std::string bytes("a\0b\xff", 4);
    std::string data = "unchanged";
    EXPECT_FALSE(orv::ReadPasswordData("Default", "rcid", data));
    EXPECT_EQ(data, "unchanged");
    EXPECT_TRUE(orv::StorePasswordData("Default", "rcid", "first"));
    EXPECT_TRUE(orv::StorePasswordData("Default", "rcid", bytes));
    EXPECT_TRUE(orv::StorePasswordData("Default", "other", "x"));
    ASSERT_TRUE(orv::ReadPasswordData("Default", "rcid", data));
    EXPECT_EQ(data, bytes);
    EXPECT_EQ(keychain_->size(), 2U);

    const auto* entry = keychain_->find(GenericPasswordItem{"Default", "rcid"});
    ASSERT_NE(entry, nullptr);
    EXPECT_EQ(entry->label, "Default");
    EXPECT_EQ(entry->access.description, "Default");
    EXPECT_EQ(entry->access.trustedApplications.size(), 4U);

    EXPECT_TRUE(orv::DeletePasswordData("Default", "rcid"));
    EXPECT_TRUE(orv::DeletePasswordData("Default", "rcid")) << "absent is as good as deleted";
    EXPECT_EQ(keychain_->size(), 1U);
}

TEST_F(KeychainPasswords, TellsInternetItemsApartByEveryPartOfTheirKey) {
    EXPECT_TRUE(orv::StoreInternetPasswordData("HTTPS", "host", 443, "/p", "user", "one"));
    EXPECT_TRUE(orv::StoreInternetPasswordData("https", "host", 443, "/p", "user", "two"));
    EXPECT_TRUE(orv::StoreInternetPasswordData("https", "host", 443, std::nullopt, "user", "3"));
    EXPECT_TRUE(orv::StoreInternetPasswordData("sftp", "host", 443, "/p", "user", "4"));
    EXPECT_EQ(keychain_->size(), 3U);
    const InternetPasswordItem item{"host", "user", "/p", 443, 0x68747073};
    ASSERT_NE(keychain_->find(item), nullptr);
    EXPECT_EQ(keychain_->find(item)->secret, "two");
    EXPECT_EQ(keychain_->find(item)->label, "host");
    EXPECT_EQ(keychain_->find(item)->access.trustedApplications,
              std::vector<std::string>{"/System/Library/CoreServices/NetAuthAgent.app"});

    EXPECT_TRUE(orv::DeleteInternetPasswordData("https", "host", 443, "/p", "user"));
    EXPECT_TRUE(orv::DeleteInternetPasswordData("https", "host", 443, "/p", "user"));
    EXPECT_EQ(keychain_->size(), 2U);
    EXPECT_FALSE(orv::StoreInternetPasswordData("https", "host", 65536 + 443, "/p", "u", "x"));
    EXPECT_FALSE(orv::DeleteInternetPasswordData("https", "host", 65536 + 443, {}, "user"));
    EXPECT_EQ(keychain_->size(), 2U) << "no other port's item";
}

TEST_F(KeychainPasswords, ProtocolCodesAreFourCharacters) {
    for (const auto& [scheme, code] :
         std::initializer_list<std::pair<const char*, std::uint32_t>>{{"HTTPS", 0x68747073},
                                                                      {"http", 0x68747470},
                                                                      {"Ftp", 0x66747020},
                                                                      {"ftps", 0x66747073},
                                                                      {"sftp", 0},
                                                                      {"httpsx", 0},
                                                                      {"", 0}}) {
        EXPECT_EQ(orv::GetInternetProtocolType(scheme), code) << scheme;
    }
}

TEST_F(KeychainPasswords, NewAccessNeverLosesTheSecretInSilence) {
    EXPECT_TRUE(orv::UpdatePasswordDataAccess("s", "a")) << "no item is fine";
    ASSERT_TRUE(orv::StorePasswordData("s", "a", "secret"));
    EXPECT_TRUE(orv::UpdatePasswordDataAccess("s", "a"));
    EXPECT_EQ(keychain_->find(GenericPasswordItem{"s", "a"})->secret, "secret");

    for (const char* call : {"read", "remove"}) {
        keychain_->failures[call] = 1;
        EXPECT_FALSE(orv::UpdatePasswordDataAccess("s", "a")) << call;
        ASSERT_NE(keychain_->find(GenericPasswordItem{"s", "a"}), nullptr) << call;
    }
    keychain_->failures["create"] = 1;
    EXPECT_TRUE(orv::UpdatePasswordDataAccess("s", "a"));
    EXPECT_EQ(keychain_->find(GenericPasswordItem{"s", "a"})->secret, "secret") << "put back";
    EXPECT_TRUE(log_.empty());

    keychain_->failures["create"] = 2;
    EXPECT_FALSE(orv::UpdatePasswordDataAccess("s", "a"));
    ASSERT_EQ(log_.size(), 1U);
    EXPECT_TRUE(log_[0].starts_with("ERROR: ")) << log_[0];
    EXPECT_EQ(log_[0].find("secret"), std::string::npos) << log_[0];
}

TEST_F(KeychainPasswords, AsksNobodyWithinTheScopeAndOnItsThread) {
    ASSERT_TRUE(orv::StorePasswordData("s", "a", "secret"));
    keychain_->locked = true;
    std::string data;
    {
        const orv::KeychainInteractionOff off;
        { const orv::KeychainInteractionOff nested; }
        keychain_->calls.clear();
        EXPECT_FALSE(orv::ReadPasswordData("s", "a", data));
        EXPECT_FALSE(orv::StorePasswordData("s", "a", "x"));
        EXPECT_FALSE(orv::DeletePasswordData("s", "a"));
        EXPECT_FALSE(orv::UpdatePasswordDataAccess("s", "a"));
        EXPECT_FALSE(orv::StoreInternetPasswordData("ftp", "h", 21, {}, "a", "x"));
        EXPECT_FALSE(orv::DeleteInternetPasswordData("ftp", "h", 21, {}, "a"));
        for (const auto& call : keychain_->calls) {
            EXPECT_EQ(call.interaction, Interaction::Forbidden) << call.name;
        }
        EXPECT_EQ(keychain_->calls.size(), 6U);
        std::jthread(
            [] { EXPECT_EQ(orv::KeychainInteractionOff::current(), Interaction::Allowed); });
    }
    EXPECT_TRUE(orv::ReadPasswordData("s", "a", data));
    EXPECT_EQ(data, "secret");
}

TEST_F(KeychainPasswords, WithoutAServiceEverythingFails) {
    const auto expectFailures = [] {
        std::string data = "unchanged";
        EXPECT_FALSE(orv::ReadPasswordData("s", "a", data));
        EXPECT_EQ(data, "unchanged");
        EXPECT_FALSE(orv::StorePasswordData("s", "a", "x"));
        EXPECT_FALSE(orv::UpdatePasswordDataAccess("s", "a"));
        EXPECT_FALSE(orv::DeletePasswordData("s", "a"));
        EXPECT_FALSE(orv::StoreInternetPasswordData("ftp", "h", 21, {}, "a", "x"));
        EXPECT_FALSE(orv::DeleteInternetPasswordData("ftp", "h", 21, {}, "a"));
    };
    for (const Status fault : {Status::Unavailable, Status::Failed, Status::Locked}) {
        keychain_->fault = fault;
        expectFailures();
    }
    platform::ProcessServices() = {};
    expectFailures();
    EXPECT_EQ(orv::AuthorizeWebAccess(), ENOSYS);
}

TEST_F(KeychainPasswords, WebAccessIsARightThatTheSessionOwnerGrants) {
    auto authorization = std::make_unique<test_support::FakeAuthorization>();
    auto& fake = *authorization;
    platform::ProcessServices().authorization = std::move(authorization);
    EXPECT_EQ(orv::AuthorizeWebAccess(), 0);
    fake.answer = 3;
    EXPECT_EQ(orv::AuthorizeWebAccess(), 3);
    ASSERT_EQ(fake.asked.size(), 2U);
    EXPECT_EQ(fake.asked[0].first, "com.corvanta.orv.webaccess");
    EXPECT_EQ(fake.asked[0].second, "authenticate-session-owner");
}

}  // namespace
