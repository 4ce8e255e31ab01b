#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <map>

#include "ChangingCommands.h"
#include "agentlink/AgentVocabulary.h"
#include "config/PropertyFiles.h"
#include "support/FakeVolumes.h"
#include "support/FakeWorkspace.h"
#include "support/ScopedEnvironment.h"

namespace {

using nlohmann::json;
using orv::cli::ExitCode;
using quelm::Array;
using testing::ElementsAre;
using testing::HasSubstr;

class SelectionCommands : public test_support::ChangingCommands {
 protected:
    SelectionCommands() {
        for (const char* name : {"Documents/letters/2025", "Documents/taxes", "Pictures",
                                 ".hidden/x", "Tool.app", "stick/x", "Cache/x"}) {
            disk_.makeFolder(name);
        }
        auto volumes = std::make_unique<test_support::FakeVolumes>();
        volumes->volumes.resize(2);
        volumes->volumes[0].mountPoint = "/";
        volumes->volumes[1].mountPoint = disk_ / "stick";
        volumes->volumes[1].device = "server:/export";
        volumes->volumes[1].local = false;
        volumes->disks["server:/export"].network = true;
        auto workspace = std::make_unique<test_support::FakeWorkspace>();
        workspace->flags["Tool.app"] = 14;
        platform::ProcessServices().volumes = std::move(volumes);
        platform::ProcessServices().workspace = std::move(workspace);
    }
    [[nodiscard]] Array rows() const {
        const auto stored = orv::LoadArrayFromFile(folder / "storage_info.plist");
        return stored ? *stored->asArray() : Array();
    }
    static quelm::Value row(const std::string& path, bool isSelected) {
        return Array{path, isSelected};  // as an array, a list of one row would be a copy for Clang
    }

    const test_support::TemporaryFolder disk_;
    test_support::ScopedEnvironment home_{"HOME", disk_.path()};
};

TEST_F(SelectionCommands, AddAndRemoveFoldersAsTheCheckBoxesDo) {
    const std::string documents = disk_ / "Documents";
    const std::string letters = documents + "/letters";
    disk_.makeLink("link", "Documents");
    EXPECT_EQ(run({"folders", "add", disk_ / "link/."}), ExitCode::Done) << err.str();
    EXPECT_EQ(out.str() + err.str(), "");
    EXPECT_THAT(hints, ElementsAre(orv::HintBackupSelection));
    EXPECT_EQ(rows(), (Array{row(documents, true)}));
    EXPECT_EQ(runForJson({"folders", "add", letters}), json::array({{documents, true}}));
    EXPECT_THAT(hints, ElementsAre()) << "it was in it";

    EXPECT_EQ(runForJson({"folders", "remove", letters}),
              json::array({{documents, true}, {letters, false}}));
    EXPECT_EQ(run({"folders", "add", letters + "/2025/"}), ExitCode::Done);
    EXPECT_EQ(rows(),
              (Array{row(documents, true), row(letters, false), row(letters + "/2025", true)}));
    // something in it is selected, and then nothing any more
    EXPECT_EQ(run({"folders", "remove", letters}), ExitCode::Done);
    EXPECT_EQ(rows(), (Array{row(documents, true), row(letters, false)}));
    EXPECT_EQ(run({"folders", "remove", disk_.path()}), ExitCode::Done);
    EXPECT_EQ(rows(), Array());
    EXPECT_EQ(run({"folders", "remove", documents}), ExitCode::Failed);
    EXPECT_THAT(hints, ElementsAre());
}

TEST_F(SelectionCommands, MakeTheFolderThatANewUserDoesNotHave) {
    std::filesystem::remove_all(folder.path());
    EXPECT_EQ(run({"folders", "add", disk_ / "Documents"}), ExitCode::Done) << err.str();
    EXPECT_EQ(rows(), (Array{row(disk_ / "Documents", true)}));
    std::filesystem::remove_all(folder.path());
    EXPECT_EQ(run({"settings", "set", "two_way_sync", "true"}), ExitCode::Done) << err.str();
}

TEST_F(SelectionCommands, KeepWhatIsStoredOfFoldersThatAreNotThere) {
    const Array gone{row(disk_ / "Documents/gone", true), row("/media/anna/Disk/x", true),
                     row(disk_ / "stick/x", true)};
    orv::StoreArrayToFile(folder / "storage_info.plist", gone);
    orv::StorePropertiesToFile(folder / "user_info.plist",
                               quelm::Dictionary{{"network_drive_share", false}});
    EXPECT_EQ(run({"folders", "add", disk_ / "Pictures"}), ExitCode::Done) << err.str();
    Array expected = gone;
    expected.emplace_back(row(disk_ / "Pictures", true));
    EXPECT_THAT(rows(), testing::UnorderedElementsAreArray(expected));
    EXPECT_EQ(run({"folders", "remove", disk_ / "Documents/gone"}), ExitCode::Done);
    EXPECT_EQ(rows().size(), 3U);
}

TEST_F(SelectionCommands, RefuseWithTheReason) {
    orv::StorePropertiesToFile(folder / "user_info.plist",
                               quelm::Dictionary{{"network_drive_share", false},
                                                 {"two_way_sync", true},
                                                 {"master_project_folder", disk_ / "Pictures"}});
    folder.makeFile("storage_exceptions.xml",
                    "<backup-exclusions><patterns><p>/Cache$</p></patterns></backup-exclusions>");
    disk_.makeFile("file");
    disk_.makeFolder("bad\x01name");
    const std::pair<std::string, std::string> cases[] = {
        {"/", "whole computer"},          {disk_ / "absent", "no folder"},
        {disk_ / "file", "no folder"},    {disk_ / "bad\x01name", "\\x01name cannot be stored"},
        {disk_ / "stick/x", "volume"},    {disk_ / "Cache/x", "expression"},
        {disk_ / "Pictures", "projects"}, {disk_ / ".hidden/x", "hidden"},
        {disk_ / "Tool.app", "program"},  {"/proc/self/../..", "whole computer"},
    };
    for (const auto& [path, reason] : cases) {
        EXPECT_EQ(run({"folders", "add", path, "--json"}), ExitCode::Failed) << path;
        EXPECT_THAT(err.str(), HasSubstr(reason));
        EXPECT_EQ(out.str(), "");
        EXPECT_THAT(hints, ElementsAre());
    }
    EXPECT_EQ(run({"folders", "remove", "/"}), ExitCode::Failed);
    EXPECT_EQ(test_support::ContentOf(folder / "storage_info.plist"), "");
}

TEST_F(SelectionCommands, NeverReplaceASelectionThatCannotBeRead) {
    for (const std::string content : {"<plist><array>", "<plist><dict/></plist>"}) {
        folder.makeFile("storage_info.plist", content);
        for (const char* verb : {"add", "remove", "tree"}) {
            EXPECT_EQ(run({"folders", verb, disk_ / "Pictures"}), ExitCode::Failed) << verb;
            EXPECT_THAT(err.str(), HasSubstr("storage_info.plist cannot be read"));
        }
        EXPECT_EQ(test_support::ContentOf(folder / "storage_info.plist"), content);
    }
}

TEST_F(SelectionCommands, ShowTheTreeWithItsCheckBoxes) {
    const std::string documents = disk_ / "Documents";
    orv::StoreArrayToFile(folder / "storage_info.plist",
                          Array{row(documents + "/letters", true), row(documents + "/old", true)});
    EXPECT_EQ(run({"folders", "tree", disk_.path()}), ExitCode::Done) << err.str();
    EXPECT_EQ(out.str(), "[-] " + disk_.path() +
                             "\n  [ ] Cache\n  [-] Documents\n  [ ] Pictures\n  [ ] stick\n");
    EXPECT_EQ(run({"folders", "tree", documents, "--depth", "2"}), ExitCode::Done);
    EXPECT_EQ(out.str(), "[-] " + documents +
                             "\n  [x] letters\n    [x] 2025\n  [x] old (Folder is missing)\n"
                             "  [ ] taxes\n");
    const json shown = runForJson({"folders", "tree", documents});
    ASSERT_EQ(shown.size(), 1U);
    EXPECT_EQ(shown[0]["state"], "partly");
    EXPECT_EQ(shown[0]["children"][1], json({{"path", documents + "/old"},
                                             {"name", "old"},
                                             {"state", "checked"},
                                             {"missing", true}}));
    EXPECT_EQ(run({"folders", "tree", "--depth", "0"}), ExitCode::Done);
    EXPECT_EQ(out.str(), "[-] /\n[-] " + disk_.path() + "\n[-] " + documents + "\n");
    for (const char* depth : {"-1", "x", "1x", "101", ""})
        EXPECT_EQ(run({"folders", "tree", "--depth", depth}), ExitCode::Usage) << depth;
    EXPECT_EQ(run({"folders", "tree", disk_ / "absent"}), ExitCode::Failed);
}

TEST_F(SelectionCommands, ScanCountsWhatIsSelectedAndNothingElse) {
    const std::string documents = disk_ / "Documents";
    for (const auto& [name, size] :
         std::map<std::string, std::size_t>{{"Documents/a.pdf", 1},
                                            {"Documents/b.tmp", 10},
                                            {"Documents/letters/c", 100},
                                            {"Documents/letters/2025/d", 1'000},
                                            {"Documents/taxes/e", 10'000},
                                            {"Pictures/f", 100'000}}) {
        disk_.makeFile(name, std::string(size, 'x'));
    }
    orv::StorePropertiesToFile(folder / "filter_info.plist",
                               quelm::Dictionary{{"exclude", Array{"*.tmp"}}});
    orv::StoreArrayToFile(folder / "storage_info.plist",
                          Array{row(documents, true), row(documents + "/letters", false),
                                row(documents + "/letters/2025", true)});
    const json scanned = runForJson({"scan"});
    EXPECT_EQ(scanned["bytes"], 11'001);
    EXPECT_EQ(scanned["files"], 3);
    ASSERT_EQ(scanned["folders"].size(), 3U);
    EXPECT_EQ(scanned["folders"][0], json({{"path", documents},
                                           {"bytes", 1},
                                           {"files", 1},
                                           {"types", {1, 0, 0, 0, 0, 0, 0, 0, 0, 0}}}));
    EXPECT_EQ(run({"scan", disk_ / "Pictures", documents + "/letters"}), ExitCode::Done);
    EXPECT_EQ(out.str(), "   97.7 KB        1 " + disk_.path() + "/Pictures\n     100 B        1 " +
                             documents + "/letters\n    1000 B        1 " + documents +
                             "/letters/2025\n98.7 KB in 3 files and 3 folders\n");
    EXPECT_EQ(run({"scan", disk_ / "absent", "--json"}), ExitCode::Failed);
    EXPECT_EQ(out.str(), "");
}

TEST_F(SelectionCommands, LeaveFilesOutOneByOne) {
    const std::string file = folder / "excluded_files.plist";
    const std::string a = disk_.makeFile("Pictures/a.jpg");
    const std::string b = disk_.makeFile("Pictures/B.jpg");
    disk_.makeLink("Pictures/link", "a.jpg");
    disk_.makeLink("other", "Pictures");
    EXPECT_EQ(run({"excluded", "list"}), ExitCode::Done);
    EXPECT_FALSE(std::filesystem::exists(file));
    EXPECT_EQ(runForJson({"excluded", "add", b}), json({b}));
    EXPECT_THAT(hints, ElementsAre(orv::HintExcludedFiles));
    EXPECT_EQ(run({"excluded", "add", disk_ / "other/a.jpg"}), ExitCode::Done);
    EXPECT_EQ(orv::LoadArrayFromFile(file), quelm::Value(Array{a, b}));
    EXPECT_EQ(run({"excluded", "add", a}), ExitCode::Done);
    EXPECT_THAT(hints, ElementsAre()) << "it was there";
    for (const char* none : {"Pictures", "absent", "Pictures/link"})
        EXPECT_EQ(run({"excluded", "add", disk_ / none}), ExitCode::Failed) << none;
    EXPECT_EQ(run({"excluded", "list"}), ExitCode::Done);
    EXPECT_EQ(out.str(), a + "\n" + b + "\n");
    std::filesystem::remove(a);
    EXPECT_EQ(runForJson({"excluded", "remove", a}), json({b}));
    EXPECT_THAT(hints, ElementsAre(orv::HintExcludedFiles));
    EXPECT_EQ(run({"excluded", "remove", a}), ExitCode::Failed);
    EXPECT_THAT(hints, ElementsAre());

    folder.makeFile("excluded_files.plist", "<plist><array>");
    for (const char* verb : {"add", "remove"})
        EXPECT_EQ(run({"excluded", verb, b}), ExitCode::Failed) << verb;
    EXPECT_EQ(test_support::ContentOf(file), "<plist><array>");
}

}  // namespace
