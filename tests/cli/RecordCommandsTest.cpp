#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <sstream>

#include "cli/Command.h"
#include "config/ConfigurationPath.h"
#include "foundation/system/Log.h"
#include "platform/Services.h"
#include "support/FakePrinters.h"
#include "support/TemporaryFolder.h"
#include "support/VarBranding.h"

namespace {

using nlohmann::json;
using orv::cli::ExitCode;

class RecordCommands : public testing::Test {
 protected:
    RecordCommands() {
        orv::SetConfigBasePath(folder_.path());
        quelm::SetLogSink([](std::string_view) {});
    }
    ~RecordCommands() override {
        quelm::SetLogSink({});
        platform::EndProcessServices();
        orv::ClearConfigBasePath();
    }

    /// What the command prints.
    std::string run(const std::vector<std::string>& words, ExitCode code = ExitCode::Done) {
        std::ostringstream out;
        EXPECT_EQ(orv::cli::RunCommandLine(words, out, err_), code) << words[0];
        return out.str();
    }

    test_support::TemporaryFolder folder_;
    std::ostringstream err_;
};

TEST_F(RecordCommands, StorageTellsWhatTheAgentWrote) {
    const json nothing = json::parse(run({"storage", "--json"}));
    EXPECT_EQ(nothing["folders"], json::array());
    EXPECT_EQ(nothing["quota"]["quota"], 0);

    const std::string there = folder_.makeFolder("there");
    folder_.makeFile("storage_folders.xml",
                     "<r><stores><f><total>2048</total><stored>1024</stored>"
                     "<path>" +
                         there +
                         "</path></f><f><total>0</total>"
                         "<stored>0</stored><path>/Volumes/Gone/x</path></f>"
                         "</stores></r>");
    folder_.makeFile("storage_quota.xml",
                     "<request><parameters><total-quota>-1</total-quota><total-this-computer>9"
                     "</total-this-computer></parameters></request>");
    const json storage = json::parse(run({"storage", "--json"}));
    EXPECT_EQ(
        storage["folders"][0],
        (json{{"path", there}, {"total", 2048}, {"stored", 1024}, {"status", "50% Backed Up"}}));
    EXPECT_EQ(storage["folders"][1]["status"], "Volume offline");
    EXPECT_EQ(storage["quota"], (json{{"quota", -1},
                                      {"unlimited", true},
                                      {"totalThisComputer", 9},
                                      {"storedThisComputer", 0},
                                      {"totalOtherComputers", 0},
                                      {"storedOtherComputers", 0}}));
    EXPECT_EQ(run({"storage"}), there +
                                    ": 50% Backed Up\n/Volumes/Gone/x: Volume offline\n"
                                    "Stored: 1.0 KB of 2.0 KB\nQuota: unlimited\n");

    folder_.makeFile("storage_quota.xml", "<request>");
    EXPECT_EQ(run({"storage", "--json"}, ExitCode::Failed), "");
    EXPECT_NE(err_.str().find("storage_quota.xml cannot be read"), std::string::npos);
}

TEST_F(RecordCommands, PrintersTellsWhichAreChosen) {
    EXPECT_EQ(run({"printers", "--json"}), "[]\n") << "without a printing system";
    auto owned = std::make_unique<test_support::FakePrinters>();
    auto* const printers = owned.get();
    printers->printers = {{"a", "First", true}, {"b", "Second\r\xc2\x9b", false}};
    printers->states["b"] = platform::PrinterState::Stopped;
    platform::ProcessServices().printers = std::move(owned);
    EXPECT_EQ(json::parse(run({"printers", "--json"})),
              json::parse(R"([{"id": "a", "name": "First", "checked": true, "status": "unknown"},
                             {"id": "b", "name": "Second\r\u009b", "checked": false,
                              "status": "stopped"}])"));
    EXPECT_EQ(run({"printers"}),
              "[x] First (a): unknown\n[ ] Second\\x0d\\xc2\\x9b (b): stopped\n");
    EXPECT_EQ(printers->asked, (std::vector<std::string>{"a", "b", "a", "b"})) << "once a command";
}

TEST_F(RecordCommands, BrandingTextReplacesTheVariables) {
    orv::orv_VarBranding::storeParams({{"company", "Acme"}});
    EXPECT_EQ(run({"branding", "text", "by $(BRAND_COMPANY_NAME) $(X)"}), "by Acme $(X)\n");
    EXPECT_EQ(run({"branding", "text", "\"$(VERSION)\"", "--json"}), "\"\\\"7.2.33\\\"\"\n");
    run({"branding", "text"}, ExitCode::Usage);
}

}  // namespace
