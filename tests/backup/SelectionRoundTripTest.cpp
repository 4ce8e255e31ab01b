#include <gtest/gtest.h>
#include <map>

#include "FakeCatalogue.h"
#include "RandomComputer.h"
#include "backup/tree/FileSystemTree.h"
#include "config/TopLevelPaths.h"

namespace {

using quelm::Array;
using quelm::Value;
using test_support::RandomComputer;

bool coversPath(const std::string& above, const std::string& path) {
    return above == "/" || path == above || path.starts_with(above + "/");
}

/// Every folder that the test asks about, and whether it is backed up.
class Answers {
 public:
    explicit Answers(const std::set<std::string>& folders) {
        for (const std::string& path : folders)
            backedUp_[path] = false;
    }
    /// As a click on the folder's check box.
    void click(const std::string& path, bool flag) {
        if (backedUp_.at(path) == flag) return;
        for (auto& [each, answer] : backedUp_) {
            if (coversPath(path, each)) answer = flag;
        }
    }
    /// What the rows say: of those that cover a folder the longest decides.
    void take(const Array& rows) {
        for (auto& [each, answer] : backedUp_) {
            std::size_t longest = 0;
            answer = false;
            for (const Value& value : rows) {
                const auto row = orv::SelectionRowOf(value);
                if (row->path.size() <= longest || !coversPath(std::string(row->path), each))
                    continue;
                longest = row->path.size();
                answer = row->isSelected;
            }
        }
    }
    bool operator==(const Answers&) const = default;
    [[nodiscard]] std::string firstDifference(const Answers& other) const {
        for (const auto& [each, answer] : backedUp_) {
            if (other.backedUp_.at(each) != answer) return each;
        }
        return "";
    }

 private:
    std::map<std::string, bool> backedUp_;
};

Array throughTheTree(const RandomComputer& computer, const Array& rows) {
    test_support::FakeCatalogue catalogue;
    computer.fill(catalogue);
    orv::FileSystemTree tree(catalogue, computer.roots());
    for (const Value& value : rows) {
        if (const auto row = orv::SelectionRowOf(value))
            tree.insertUserPath(row->path, row->isSelected, false);
    }
    return tree.getPathsAndFlags();
}

Array sorted(Array rows) {
    std::ranges::sort(rows, {}, [](const Value& row) { return orv::SelectionRowOf(row)->path; });
    return rows;
}

/// Folders of the computer and such as are not there, some on volumes that are not mounted.
std::set<std::string> foldersAndOthers(const RandomComputer& computer) {
    std::set<std::string> all = computer.folders;
    for (const std::string& path : computer.folders) {
        for (const char* below : {"/b", "/gone", "/gone/deep"})
            all.insert((path == "/" ? "" : path) + below);
    }
    for (const char* volume : {"/media/u/disk", "/media/u/stick", "/media/u/old", "/Volumes/x"}) {
        for (const char* below : {"", "/a", "/a/b", "/c"})
            all.insert(std::string(volume) + below);
    }
    return all;
}

TEST(TheStoredSelection, MeansTheSameAfterItWasInTheTree) {
    for (unsigned seed = 1; seed <= test_support::Rounds(400); ++seed) {
        std::mt19937 random(seed);
        RandomComputer computer(random);
        computer.showRootsInTheTree();
        const auto folders = foldersAndOthers(computer);
        Answers asked(folders);
        Array rows;
        for (const std::string& path : folders) {  // those above before those below
            if (random() % 12 != 0) continue;
            const bool flag = random() % 2 == 0;
            asked.click(path, flag);
            for (auto times = random() % 2; times < 2; ++times)
                rows.emplace_back(Array{path, flag});
        }
        const Array stored = throughTheTree(computer, rows);
        Answers answered(folders);
        answered.take(stored);
        ASSERT_EQ(answered.firstDifference(asked), "")
            << "seed " << seed << "\n"
            << Value(rows) << "\nbecame " << Value(stored);
        ASSERT_EQ(sorted(throughTheTree(computer, stored)), sorted(stored)) << "seed " << seed;
    }
}

TEST(TheStoredSelection, MayHoldAnythingManyTimes) {
    std::mt19937 random(7);
    RandomComputer computer(random);
    computer.locked.clear();
    // the folders of volumes that are not mounted take no part in what is said out of order
    std::set<std::string> folders = foldersAndOthers(computer);
    std::erase_if(folders, [](const std::string& path) {
        return path.starts_with("/media") || path.starts_with("/Volumes");
    });
    const std::vector<std::string> paths(folders.begin(), folders.end());
    const Array others{7,
                       "text",
                       Array{},
                       Array{"/home"},
                       Array{3, true},
                       Array{"relative", true},
                       Array{"", true},
                       Array{"/home/../etc", true},
                       Array{"/" + std::string(5'000, 'x'), true},
                       quelm::Dictionary{{"path", "/home"}}};
    Answers asked(folders);
    Array rows;
    while (rows.size() < 10'000) {
        if (random() % 4 == 0) rows.push_back(others[random() % others.size()]);
        const std::string& path = paths[random() % paths.size()];
        const bool flag = random() % 2 == 0;
        asked.click(path, flag);
        // what is no boolean counts as false
        const Value cell = flag ? Value(true) : random() % 2 == 0 ? Value(false) : Value("yes");
        rows.emplace_back(Array{random() % 2 == 0 || path == "/" ? path : path + "/", cell, 5});
    }
    const Array stored = throughTheTree(computer, rows);
    Answers answered(folders);
    answered.take(stored);
    EXPECT_EQ(answered.firstDifference(asked), "");
    EXPECT_LT(stored.size(), 2 * paths.size());
}

}  // namespace
