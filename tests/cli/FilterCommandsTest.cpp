#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "ChangingCommands.h"
#include "agentlink/AgentVocabulary.h"
#include "config/PropertyFiles.h"

namespace {

using nlohmann::json;
using orv::cli::ExitCode;
using quelm::Dictionary;
using testing::ElementsAre;
using testing::HasSubstr;

class FilterCommands : public test_support::ChangingCommands {
 protected:
    const std::string file = folder / "filter_info.plist";
};

TEST_F(FilterCommands, ChangesAreStoredAndAnnounced) {
    json shown = runForJson({"filters", "exclude", "add", "*.tmp"});
    EXPECT_EQ(shown["exclude"], json({"*.tmp"}));
    EXPECT_THAT(hints, ElementsAre(orv::HintBackupSelection));
    EXPECT_EQ(run({"filters", "exclude", "add", "*.tmp"}), ExitCode::Done);
    EXPECT_THAT(hints, ElementsAre()) << "it was there";
    EXPECT_EQ(run({"filters", "category", "music", "on"}), ExitCode::Done);
    EXPECT_THAT(hints, ElementsAre(orv::HintBackupSelection));
    EXPECT_EQ(run({"filters", "category", "all", "off"}), ExitCode::Done);
    EXPECT_EQ(out.str() + err.str(), "");
    EXPECT_EQ(orv::LoadPropertiesFromFile(file),
              quelm::Value(
                  Dictionary{{"all", false}, {"exclude", quelm::Array{"*.tmp"}}, {"music", true}}));

    shown = runForJson({"filters", "show"});
    EXPECT_EQ(shown["all"], false);
    EXPECT_EQ(shown["music"], true);
    EXPECT_EQ(shown["min_file_size"], 50);
    EXPECT_EQ(shown.size(), 14U);
    EXPECT_EQ(run({"filters", "show"}), ExitCode::Done);
    EXPECT_THAT(out.str(), HasSubstr("all: off\ndocuments: off\n"));
    EXPECT_THAT(out.str(), HasSubstr("\nexcluded: *.tmp\n"));

    EXPECT_EQ(runForJson({"filters", "exclude", "remove", "*.tmp"})["exclude"], json::array());
    EXPECT_THAT(hints, ElementsAre(orv::HintBackupSelection));
}

TEST_F(FilterCommands, MatchNamesThePatternsThatDecide) {
    orv::StorePropertiesToFile(file, Dictionary{{"all", false},
                                                {"documents", true},
                                                {"include", quelm::Array{"own*"}},
                                                {"exclude", quelm::Array{"*.TMP"}}});
    const auto verdicts =
        runForJson({"filters", "match", "a.PDF", "own.tmp", "a.tmp", "\xff", "--", "-a.css"});
    EXPECT_EQ(verdicts, json::parse(R"([
        {"name": "a.PDF", "included": true, "type": 1, "pattern": "*.pdf",
         "excluded": false, "excludePattern": null},
        {"name": "own.tmp", "included": true, "type": 8, "pattern": "own*",
         "excluded": true, "excludePattern": "*.TMP"},
        {"name": "a.tmp", "included": false, "type": 0, "pattern": null,
         "excluded": true, "excludePattern": "*.TMP"},
        {"name": "\ufffd", "included": false, "type": 0, "pattern": null,
         "excluded": false, "excludePattern": null},
        {"name": "-a.css", "included": true, "type": 1, "pattern": "*.css",
         "excluded": false, "excludePattern": null}])"));
    EXPECT_EQ(run({"filters", "match", "a.pdf", "own.tmp", "x"}), ExitCode::Done);
    EXPECT_EQ(out.str(),
              "a.pdf: included by *.pdf, type 1\nown.tmp: excluded by *.TMP, type 9\n"
              "x: not included, no pattern matches\n");
    run({"filters", "category", "all", "on"});
    run({"filters", "match", "x"});
    EXPECT_EQ(out.str(), "x: included, as all files, type 0\n");
}

TEST_F(FilterCommands, WhatIsRefusedChangesNothing) {
    folder.makeFile("filter_info.plist", "");
    const std::pair<std::vector<std::string>, ExitCode> cases[] = {
        {{"exclude", "add", ""}, ExitCode::Usage},
        {{"exclude", "add", "a\x01"}, ExitCode::Failed},
        {{"exclude", "add", "\xff*"}, ExitCode::Failed},
        {{"exclude", "add", std::string(1'025, 'a')}, ExitCode::Failed},
        {{"exclude", "add"}, ExitCode::Usage},
        {{"exclude", "remove", "absent"}, ExitCode::Failed},
        {{"category", "games", "on"}, ExitCode::Usage},
        {{"category", "music", "yes"}, ExitCode::Usage},
        {{"match"}, ExitCode::Usage}};
    for (auto [words, expected] : cases) {
        words.insert(words.begin(), "filters");
        words.emplace_back("--json");
        EXPECT_EQ(run(words), expected) << words[2];
        EXPECT_EQ(out.str(), "");
        EXPECT_NE(err.str(), "");
        EXPECT_THAT(hints, ElementsAre());
    }
    EXPECT_EQ(test_support::ContentOf(file), "");
}

TEST_F(FilterCommands, AFileThatCannotBeReadIsNamedAndStays) {
    for (const std::string content : {"<plist><dict>", "<plist><array/></plist>"}) {
        folder.makeFile("filter_info.plist", content);
        for (const std::vector<std::string>& words :
             {std::vector<std::string>{"exclude", "add", "a"},
              {"exclude", "remove", "a"},
              {"category", "music", "on"},
              {"show"},
              {"match", "a"}}) {
            std::vector<std::string> line = {"filters"};
            line.insert(line.end(), words.begin(), words.end());
            EXPECT_EQ(run(line), ExitCode::Failed) << words[0];
            EXPECT_EQ(out.str(), "");
            EXPECT_THAT(err.str(), HasSubstr(file + " cannot be read: "));
            EXPECT_THAT(hints, ElementsAre());
        }
        EXPECT_EQ(test_support::ContentOf(file), content);
    }
}

TEST_F(FilterCommands, NoControlCharacterReachesTheTerminal) {
    folder.makeFile("storage_exceptions.xml",
                    "<backup-exclusions><types><t>*.\x1b[2J</t></types></backup-exclusions>");
    run({"filters", "show"});
    EXPECT_THAT(out.str(), HasSubstr("excluded by the server: *.\\x1b[2J\n"));
    run({"filters", "match", "a.\x1b[2J"});
    EXPECT_EQ(out.str(), "a.\\x1b[2J: excluded by *.\\x1b[2J, type 9\n");
}

TEST_F(FilterCommands, AChangeThatCannotBeStoredFailsAndOneWithoutABusDoesNot) {
    std::ostringstream output, errors;
    EXPECT_EQ(orv::cli::RunCommandLine({"filters", "category", "music", "on"}, output, errors),
              ExitCode::Done);
    EXPECT_THAT(errors.str(), HasSubstr("no session bus"));
    orv::SetConfigBasePath(folder.makeFile("file") + "/absent");
    EXPECT_EQ(run({"filters", "exclude", "add", "a"}), ExitCode::Failed);
    EXPECT_THAT(err.str(), HasSubstr(folder / "file/absent"));
    EXPECT_THAT(hints, ElementsAre());
}

}  // namespace
