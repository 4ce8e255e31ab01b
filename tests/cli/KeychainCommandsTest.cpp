#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <sstream>

#include "cli/Command.h"
#include "platform/Services.h"
#include "support/FakeKeychain.h"

namespace {

using orv::cli::ExitCode;
using test_support::FakeKeychain;
using Status = platform::Keychain::Status;

class KeychainCheck : public testing::Test {
 protected:
    ~KeychainCheck() override { platform::ProcessServices() = {}; }

    FakeKeychain& useKeychain() {
        platform::ProcessServices().keychain = std::make_unique<FakeKeychain>();
        return static_cast<FakeKeychain&>(*platform::ProcessServices().keychain);
    }
    /// Checks the three answers; answers the message.
    std::string expect(bool service, bool unlocked, bool writable) {
        std::ostringstream out;
        const auto code = orv::cli::RunCommandLine({"keychain", "check", "--json"}, out, err_);
        EXPECT_EQ(code, writable ? ExitCode::Done : ExitCode::Failed);
        const auto json = nlohmann::json::parse(out.str());
        EXPECT_EQ(json.size(), 4U);
        EXPECT_EQ(json["service"], service);
        EXPECT_EQ(json["unlocked"], unlocked);
        EXPECT_EQ(json["writable"], writable);
        return json["message"];
    }

    std::ostringstream err_;
};

TEST_F(KeychainCheck, WritesReadsAndRemovesAnItemOfItsOwnWithoutAsking) {
    auto& keychain = useKeychain();
    expect(true, true, true);
    std::vector<std::string> names;
    for (const auto& call : keychain.calls) {
        names.push_back(call.name);
        EXPECT_EQ(call.interaction, platform::Keychain::Interaction::Forbidden);
    }
    EXPECT_EQ(names, (std::vector<std::string>{"create", "read", "remove"}));
    EXPECT_EQ(keychain.size(), 0U);
    std::ostringstream out;
    EXPECT_EQ(orv::cli::RunCommandLine({"keychain", "check"}, out, err_), ExitCode::Done);
    EXPECT_EQ(out.str(),
              "Secret Service answers: yes\nUnlocked: yes\n"
              "Items can be written and read back: yes\nPasswords can be kept.\n");
}

TEST_F(KeychainCheck, NamesTheRemedyForWhatFails) {
    EXPECT_NE(expect(false, false, false).find("gnome-keyring"), std::string::npos);
    auto& keychain = useKeychain();
    keychain.locked = true;
    EXPECT_NE(expect(true, false, false).find("Unlock it"), std::string::npos);
    keychain.locked = false;
    for (const char* call : {"create", "read", "remove"}) {
        keychain.failures[call] = 1;
        EXPECT_NE(expect(true, true, false).find("test item"), std::string::npos) << call;
    }
    keychain.fault = Status::NotFound;
    EXPECT_NE(expect(true, false, false).find("no default keyring"), std::string::npos);
    keychain.fault = Status::Unavailable;
    expect(false, false, false);
}

}  // namespace
