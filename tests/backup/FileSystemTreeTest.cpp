#include <gtest/gtest.h>

#include "FakeCatalogue.h"
#include "backup/tree/FileSystemTree.h"
#include "config/TopLevelPaths.h"

namespace {

using orv::FileSystemTree;
using orv::orv_FileSystemItem;
using Rows = std::vector<std::pair<std::string, bool>>;

/// A computer with one disk and the folders of Anna.
class TheFolderTree : public testing::Test {
 protected:
    TheFolderTree() {
        for (const char* path :
             {"/etc", "/home/anna/Desktop/notes", "/home/anna/Documents/letters/2025",
              "/home/anna/Documents/taxes", "/home/anna/Pictures", "/srv"}) {
            catalogue_.add(path);
        }
    }

    FileSystemTree& tree() {
        if (!tree_) tree_ = std::make_unique<FileSystemTree>(catalogue_, roots_, rules_);
        return *tree_;
    }
    orv_FileSystemItem& at(const std::string& path) {
        auto* const item = tree().rootFileSystemItem()->createSubpath(path);
        EXPECT_NE(item, nullptr) << path;
        return *item;
    }
    orv_FileSystemItem& root(std::string_view name) {
        for (auto* item : tree().getRootItems()) {
            if (item->relativePath() == name) return *item;
        }
        throw std::logic_error("no such root");
    }
    Rows selection() {
        Rows rows;
        for (const auto& value : tree().getPathsAndFlags()) {
            const auto row = orv::SelectionRowOf(value);
            rows.emplace_back(row->path, row->isSelected);
        }
        return rows;
    }
    std::vector<std::string> marked() {
        std::vector<std::string> paths;
        collectMarked(*tree().rootFileSystemItem(), paths);
        return paths;
    }
    std::vector<std::string> rootNames() {
        std::vector<std::string> names;
        for (const auto* item : tree().getRootItems())
            names.emplace_back(item->relativePath());
        return names;
    }

    test_support::FakeCatalogue catalogue_;
    orv::TreeRoots roots_{{{"/", "Computer"}},
                          {{"/home/anna/Desktop", "Desktop"},
                           {"/home/anna", "anna"},
                           {"/home/anna/Documents", "Documents"}}};
    orv::TreeRules rules_;

 private:
    static void collectMarked(const orv_FileSystemItem& item, std::vector<std::string>& paths) {
        if (item.shouldBeMarked()) paths.push_back(item.fullPath());
        for (const auto* child : item.loadedChildren())
            collectMarked(*child, paths);
    }

    std::unique_ptr<FileSystemTree> tree_;
};

TEST_F(TheFolderTree, StoresWhereTheSelectionSwitches) {
    EXPECT_EQ(selection(), Rows());
    at("/home/anna/Pictures").changeStoreFlag(true);
    EXPECT_EQ(selection(), (Rows{{"/home/anna/Pictures", true}}));
    at("/home/anna/Documents").changeStoreFlag(true);
    at("/home/anna/Documents/letters").changeStoreFlag(false);
    at("/home/anna/Documents/letters/2025").changeStoreFlag(true);
    EXPECT_EQ(selection(), (Rows{{"/home/anna/Documents", true},
                                 {"/home/anna/Documents/letters", false},
                                 {"/home/anna/Documents/letters/2025", true},
                                 {"/home/anna/Pictures", true}}));
}

TEST_F(TheFolderTree, TakesAShortcutAndItsFolderForOne) {
    root("Desktop").changeStoreFlag(true);
    EXPECT_TRUE(at("/home/anna/Desktop").checkFlag());
    EXPECT_EQ(selection(), (Rows{{"/home/anna/Desktop", true}}));
    EXPECT_EQ(marked(), (std::vector<std::string>{"/", "/home", "/home/anna"}));
    EXPECT_TRUE(root("anna").shouldBeMarked());
    // the children are one folder's, read once
    EXPECT_EQ(root("Desktop").childAtIndex(0), at("/home/anna/Desktop").childAtIndex(0));
    EXPECT_EQ(catalogue_.listed["/home/anna/Desktop"], 1);
    at("/home/anna/Desktop").changeStoreFlag(false);
    EXPECT_FALSE(root("Desktop").checkFlag());
    EXPECT_EQ(marked(), std::vector<std::string>());
}

TEST_F(TheFolderTree, JoinsAVolumeWithTheFolderItIsMountedOn) {
    catalogue_.add("/media/anna/Disk/photos");
    roots_.volumes.push_back({"/media/anna/Disk", "Disk"});
    at("/media/anna/Disk/photos").changeStoreFlag(true);
    EXPECT_TRUE(root("Disk").shouldBeMarked());
    ASSERT_EQ(root("Disk").numberOfChildren(), 1);
    EXPECT_TRUE(root("Disk").childAtIndex(0)->checkFlag());
    EXPECT_EQ(selection(), (Rows{{"/media/anna/Disk/photos", true}}));
}

TEST_F(TheFolderTree, KeepsTheMarkOfAFolderThatHoldsAnotherCheckedOne) {
    for (const char* path : {"/home/anna/Documents/letters", "/home/anna/Documents/taxes", "/srv"})
        at(path).changeStoreFlag(true);
    at("/home/anna/Documents/letters").changeStoreFlag(false);
    EXPECT_TRUE(at("/home/anna/Documents").shouldBeMarked());
    at("/home/anna/Documents/taxes").changeStoreFlag(false);
    EXPECT_EQ(marked(), std::vector<std::string>{"/"});
}

TEST_F(TheFolderTree, HasARootForAVolumeThatIsNotMounted) {
    roots_.volumes = {{"/", "Computer"}, {"/Volumes/Music", "Music"}};
    auto* const item = tree().insertUserPath("/Volumes/Archive/old/taxes", true, false);
    ASSERT_NE(item, nullptr);
    EXPECT_TRUE(item->isMissing());
    EXPECT_EQ(rootNames(), (std::vector<std::string>{"Archive", "Computer", "Music", "Desktop",
                                                     "anna", "Documents"}));
    EXPECT_EQ(tree().numberOfVolumes(), 3U);
    EXPECT_EQ(selection(), (Rows{{"/Volumes/Archive/old/taxes", true}}));
    // the next path on it finds it
    EXPECT_NE(tree().insertUserPath("/Volumes/Archive/old/photos", true, false), nullptr);
    EXPECT_EQ(tree().numberOfVolumes(), 3U);
}

TEST_F(TheFolderTree, ShowsWhatIsMissingInItsPlaceByName) {
    auto* const item = tree().insertUserPath("/home/anna/Music/rock", true, false);
    ASSERT_NE(item, nullptr);
    EXPECT_EQ(item->fullPath(), "/home/anna/Music/rock");
    EXPECT_TRUE(item->isMissing() && item->checkFlag() && item->isCheckable());
    EXPECT_EQ(item->getParent()->index(), 2U);
    EXPECT_EQ(at("/home/anna/Pictures").index(), 3U);
    // a folder that is left out below a missing one takes nothing else with it
    at("/srv").changeStoreFlag(true);
    EXPECT_NE(tree().insertUserPath("/srv/gone/part", false, false), nullptr);
    EXPECT_EQ(selection(),
              (Rows{{"/home/anna/Music/rock", true}, {"/srv", true}, {"/srv/gone/part", false}}));
}

TEST_F(TheFolderTree, RefusesPathsThatAreNoneOrThatTheRulesHide) {
    rules_.excludedVolumes = {"/media/anna/Stick"};
    rules_.excludedFolders = orv::FolderPatterns({"/[Cc]ache(/|$)"});
    const std::string tooLong(5000, 'x');
    for (const std::string& path :
         {std::string("relative"), std::string(), "/" + tooLong, std::string("/home/../etc"),
          std::string("/media/anna/Stick/x"), std::string("/home/anna/cache/x")}) {
        EXPECT_EQ(tree().insertUserPath(path, true, false), nullptr) << path.substr(0, 40);
    }
    EXPECT_NE(tree().insertUserPath("/media/anna/Stick/x", true, true), nullptr);
    EXPECT_EQ(selection(), (Rows{{"/media/anna/Stick/x", true}}));
}

TEST_F(TheFolderTree, LeavesOutWhatIsNoFolderForThePerson) {
    catalogue_.add("/srv/Tool.app", 14);
    catalogue_.add("/srv/iPhoto Library", 10);
    catalogue_.add("/srv/Other Library", 10);
    catalogue_.add("/srv/cache");
    catalogue_.add("/srv/projects");
    catalogue_.add("/srv/web");
    rules_.excludedPath = "/srv/projects";
    rules_.excludedFolders = orv::FolderPatterns({"cache$"});
    std::vector<std::string> names;
    for (const auto* child : at("/srv").children())
        names.emplace_back(child->relativePath());
    EXPECT_EQ(names, (std::vector<std::string>{"iPhoto Library", "web"}));
}

TEST_F(TheFolderTree, ShowsNoChildrenOfAFolderThatCannotBeRead) {
    catalogue_.lock("/srv");
    EXPECT_TRUE(at("/srv").isExpandable());
    EXPECT_EQ(at("/srv").numberOfChildren(), -1);
    EXPECT_EQ(at("/srv").getChildren(), nullptr);
    EXPECT_FALSE(at("/srv").isExpandable());
    EXPECT_TRUE(at("/srv").isUnreadable() && at("/srv").isCheckable());
    EXPECT_NE(tree().insertUserPath("/srv/web", true, false), nullptr);
    EXPECT_EQ(at("/srv").numberOfChildren(), 1);
}

TEST_F(TheFolderTree, TellsNamesThatDifferInCaseApart) {
    catalogue_.add("/srv/docs");
    catalogue_.add("/srv/Docs");
    tree().insertUserPath("/srv/Docs", true, false);
    EXPECT_EQ(selection(), (Rows{{"/srv/Docs", true}}));
    tree().insertUserPath("/SRV/docs", true, false);
    EXPECT_EQ(selection(), (Rows{{"/srv/Docs", true}, {"/srv/docs", true}}));
    // in long lists too, which have an index
    for (int i = 0; i < 100; ++i)
        catalogue_.add("/etc/Folder " + std::to_string(i));
    catalogue_.add("/etc/folder 50");
    EXPECT_EQ(at("/etc/folder 50").relativePath(), "folder 50");
    EXPECT_EQ(at("/etc/Folder 50").relativePath(), "Folder 50");
    EXPECT_EQ(at("/etc/FOLDER 7").relativePath(), "Folder 7");
    EXPECT_EQ(at("/etc").childWithName("Folder 100"), nullptr);
}

TEST_F(TheFolderTree, AddsScannedSizesUp) {
    orv_FileSystemItem& documents = at("/home/anna/Documents");
    documents.changeStoreFlag(true);
    documents.children();
    const std::string path = documents.fullPath();
    const auto scanned = [&](const std::string& below, std::uint64_t size) {
        documents.updateSubpath(path + below, path.size() + 1, size);
    };
    documents.resetScanState(orv_FileSystemItem::ScanRequested);
    EXPECT_TRUE(tree().isComputationInTreeRunnig());
    scanned("", 1);
    scanned("/letters", 10);
    scanned("/letters/2025/may", 100);  // deeper than what is loaded
    documents.setScannedPath(path + "/letters", path.size() + 1);
    scanned("/taxes", 1000);
    EXPECT_EQ(documents.getVisualSize(), 1111U);
    EXPECT_FALSE(documents.canCancelScan());
    documents.setScannedPath(path + "/taxes", path.size() + 1);
    documents.setScannedPath(path, path.size() + 1);
    EXPECT_FALSE(tree().isComputationInTreeRunnig());
    EXPECT_EQ(tree().getSelectionSize(), 1111U);
    at("/home/anna/Documents/letters").changeStoreFlag(false);
    EXPECT_EQ(tree().getSelectionSize(), 1001U);
    documents.changeStoreFlag(false);
    at("/home/anna/Documents/letters").changeStoreFlag(true);
    EXPECT_EQ(tree().getSelectionSize(), 110U);
    EXPECT_EQ(documents.getVisualSize(), 110U);
}

TEST_F(TheFolderTree, BeginsAnewAfterItIsReleased) {
    at("/srv").changeStoreFlag(true);
    tree().releaseRootItems();
    EXPECT_EQ(selection(), Rows());
    EXPECT_EQ(rootNames(), (std::vector<std::string>{"Computer", "Desktop", "anna", "Documents"}));
}

}  // namespace
