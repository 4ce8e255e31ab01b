#include <fmt/format.h>
#include <fstream>
#include <gtest/gtest.h>
#include <map>
#include <pwd.h>
#include <regex>
#include <sstream>
#include <unistd.h>

#include "config/AgentSettings.h"
#include "config/AgentSettingsTable.h"
#include "config/Deployment.h"
#include "config/PropertyFiles.h"
#include "foundation/propertylist/PropertyList.h"
#include "foundation/system/UserAndComputer.h"
#include "support/ScopedEnvironment.h"
#include "support/TemporaryFolder.h"

namespace {

using orv::AgentSetting;
using orv::orvAgentSettings;
using quelm::Value;

struct Row {
    std::string type;
    std::string fallback;
    std::string access;
    bool operator==(const Row&) const = default;
};
std::ostream& operator<<(std::ostream& out, const Row& row) {
    return out << row.type << " | " << row.fallback << " | " << row.access;
}

std::map<std::string, Row> rowsOfPage() {
    static const std::regex form(R"re(\| "(\w+)" \| ([^|]+) \| ([^|]+) \| (\w+) \| [^|]+ \|)re");
    std::map<std::string, Row> rows;
    std::ifstream page(TIDEWELL_SOURCE_FOLDER "/docs/configuration.md");
    for (std::string line; std::getline(page, line);) {
        std::smatch cells;
        if (std::regex_match(line, cells, form)) rows[cells[1]] = {cells[2], cells[3], cells[4]};
    }
    return rows;
}

/// What the page says in words.
const std::map<std::string, std::string>& wordsOfTexts() {
    static const std::map<std::string, std::string> words = {
        {"", "\"\""},
        {orv::CurrentDeployment().agentServer, "agent server"},
        {"Tidewell Backup", "product label"},
        {quelm::GetComputerName(), "computer"},
        {getpwuid(getuid())->pw_name, "login"},
        {"/home/anna/Quelm Projects", "project folder"},
    };
    return words;
}

std::string textOf(const std::optional<Value>& value) {
    if (!value) return "none";
    if (const auto* text = value->asString()) {
        const auto words = wordsOfTexts().find(*text);
        return words != wordsOfTexts().end() ? words->second : *text;
    }
    if (const auto* real = value->asReal()) return fmt::format("{:.1f}", *real);
    std::ostringstream out;
    out << *value;
    return out.str();
}

std::map<std::string, Row> rowsInEffect(const orvAgentSettings& record) {
    std::map<std::string, Row> rows;
    for (const AgentSetting& setting : orv::AllAgentSettings()) {
        const std::string key(orv::KeyOf(setting));
        EXPECT_FALSE(rows.contains(key)) << key << " stands twice in the table";
        const bool isReadOnly = orv::AccessOf(setting) == orv::SettingAccess::ReadOnly;
        rows[key] = {std::string(orv::TypeNameOf(setting)), textOf(record.value(setting)),
                     isReadOnly ? "agent" : "anyone"};
    }
    return rows;
}

class AgentSettingsTable : public testing::Test {
 protected:
    AgentSettingsTable() {
        page = rowsOfPage();
        // these two are the same as the user's name
        for (const char* key : {"full_name", "email"}) {
            EXPECT_EQ(page[key].fallback, "user");
            page[key].fallback = page["user"].fallback;
        }
    }
    void expectPageFor(const orvAgentSettings& record) {
        const auto rows = rowsInEffect(record);
        for (const auto& [key, row] : rows)
            EXPECT_EQ(page[key], row) << key;
        EXPECT_EQ(page.size(), rows.size()) << "the page has rows that the table has not";
    }

    test_support::ScopedEnvironment home{"HOME", "/home/anna"};
    test_support::TemporaryFolder folder;
    std::map<std::string, Row> page;
};

TEST_F(AgentSettingsTable, ThePageSaysWhatAnEmptyRecordAnswers) {
    ASSERT_GT(page.size(), 60U);
    expectPageFor({});
    folder.makeFile("user_info.plist");
    orvAgentSettings empty(folder.path());
    EXPECT_TRUE(empty.load());
    expectPageFor(empty);
}

TEST_F(AgentSettingsTable, AValueOfAnotherTypeIsTheDefault) {
    const std::vector<Value> values = {true,
                                       7,
                                       7.5,
                                       "seven",
                                       quelm::Data{"7"},
                                       quelm::Date{7},
                                       quelm::Array{7},
                                       quelm::Dictionary{{"7", 7}}};
    const auto fits = [](const AgentSetting& setting, const Value& value) {
        const auto type = orv::TypeNameOf(setting);
        const bool isNumber = value.asInteger() || value.asReal();
        if (type == "integer" || type == "long" || type == "real") return isNumber;
        if (type == "text list") return value.asString() != nullptr;
        return quelm::TypeName(value.type()) == (type == "text" ? "string" : type);
    };
    for (const Value& value : values) {
        quelm::Dictionary content;
        for (const AgentSetting& setting : orv::AllAgentSettings()) {
            if (!fits(setting, value)) content.set(orv::KeyOf(setting), value);
        }
        orv::StorePropertiesToFile(folder / "user_info.plist", content);
        orvAgentSettings record(folder.path());
        record.load();
        for (const auto& [key, ignored] : content) {
            const auto& setting = *orv::FindAgentSetting(key);
            EXPECT_EQ(textOf(record.value(setting)), page[key].fallback) << key << " is " << value;
        }
    }
}

TEST_F(AgentSettingsTable, WhatIsSetThroughTheTableIsReadBackAndKeepsItsType) {
    const std::map<std::string_view, std::pair<Value, Value>> samples = {
        {"boolean", {true, 1}},      {"integer", {-5, std::int64_t{1} << 31U}},
        {"long", {1LL << 40U, 1.0}}, {"text", {"täxt", true}},
        {"text list", {"a,,b", 5}},
    };
    for (const AgentSetting& setting : orv::AllAgentSettings()) {
        const std::string key(orv::KeyOf(setting));
        orvAgentSettings record(folder.path());
        if (page[key].access == "agent") {
            EXPECT_FALSE(record.setValue(setting, true)) << key;
            continue;
        }
        const auto& [good, bad] = samples.at(orv::TypeNameOf(setting));
        EXPECT_FALSE(record.setValue(setting, bad)) << key;
        EXPECT_TRUE(record.isEqualToAgentSettings({})) << key;
        EXPECT_TRUE(record.setValue(setting, good)) << key;
        ASSERT_TRUE(record.store());
        const auto file = orv::LoadPropertiesFromFile(folder / "user_info.plist");
        EXPECT_EQ(*file->asDictionary()->find(key), good) << key;
        const bool isList = orv::TypeNameOf(setting) == "text list";
        EXPECT_EQ(record.value(setting), isList ? Value(quelm::Array{"a", "", "b"}) : good) << key;
    }
}

}  // namespace
