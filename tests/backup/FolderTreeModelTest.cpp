#include <gtest/gtest.h>
#include <random>
#include <sstream>

#include "FakeCatalogue.h"
#include "PlainFolderTree.h"
#include "RandomComputer.h"
#include "backup/tree/FileSystemTree.h"
#include "config/TopLevelPaths.h"

namespace {

using orv::orv_FileSystemItem;
using test_support::PlainFolder;
using test_support::PlainFolderTree;
using test_support::RandomComputer;

/// Does the same to the tree and to the plain one, at random, and compares them.
class Session {
 public:
    explicit Session(unsigned seed) : random_(seed), computer_(random_) {
        computer_.fill(catalogue_);
    }

    /// What differs first and what was done until then; empty when nothing does.
    std::string run() {
        compareAll();
        for (int step = 0; step < 30 && fault_.empty(); ++step) {
            perform(random_() % 16);
            compareAll();
        }
        if (fault_.empty()) compareSizes();
        return fault_.empty() ? "" : fault_ + "\nafter" + steps_.str();
    }

 private:
    struct Pair {
        orv_FileSystemItem* item;
        PlainFolder* plain;
    };

    void perform(std::size_t what) {
        if (what < 4) return click();
        if (what < 6) return load();
        if (what < 8) return insertRow();
        if (what < 9) return reset();
        if (what < 12) return scanned();
        if (what < 14) return subtreeScanned();
        return compareVisual(anyPair());
    }
    const Pair& anyPair() { return pairs_[random_() % pairs_.size()]; }
    std::string anyPath() {
        auto path = computer_.folders.begin();
        std::advance(path, random_() % computer_.folders.size());
        if (random_() % 3 != 0) return *path;
        return (*path == "/" ? "" : *path) + (random_() % 2 ? "/b" : "/gone/b");
    }
    /// At or below the folder.
    std::string anyPathIn(const std::string& folder) {
        const std::string path = anyPath();
        if (folder == "/" || path == folder || path.starts_with(folder + "/")) return path;
        return random_() % 2 ? folder : folder + "/b";
    }
    std::ostream& say(std::string_view what) { return steps_ << "\n  " << what << ' '; }

    void click() {
        const Pair pair = anyPair();
        if (!pair.item->isCheckable()) return;
        const bool flag = !pair.plain->isChecked;
        say(flag ? "check" : "uncheck") << pair.plain->path;
        pair.item->changeStoreFlag(flag);
        plain_.click(*pair.plain, flag);
    }
    void load() {
        const Pair pair = anyPair();
        say("load") << pair.plain->path;
        pair.item->children();
        plain_.load(*pair.plain);
    }
    void insertRow() {
        const std::string path = anyPath();
        const bool flag = random_() % 3 != 0;
        say("row") << path << ' ' << flag;
        tree_.insertUserPath(path, flag, false);
        plain_.insertRow(path, flag);
    }
    void reset() {
        const Pair pair = anyPair();
        const unsigned state = random_() % 2 == 0 ? 0 : 1;
        say("reset") << pair.plain->path << ' ' << state;
        pair.item->resetScanState(static_cast<orv_FileSystemItem::ScanningState>(state));
        PlainFolderTree::reset(*pair.plain, state);
    }
    void scanned() {
        const Pair pair = anyPair();
        const std::string path = anyPathIn(pair.plain->path);
        const std::uint64_t size = random_() % 1'000;
        say("scanned") << path << " from " << pair.plain->path << ": " << size;
        pair.item->updateSubpath(path, offsetOf(*pair.plain), size);
        plain_.scanned(*pair.plain, path, size);
    }
    /// Twins are told one by one, as they keep their own states.
    void subtreeScanned() {
        const Pair pair = anyPair();
        const std::string path = anyPathIn(pair.plain->path);
        say("subtree scanned") << path << " from " << pair.plain->path;
        PlainFolder& plain = plain_.findDeepest(*pair.plain, path, false);
        if (plain.path != path) {
            pair.item->setScannedPath(path, offsetOf(*pair.plain));
            return;
        }
        bool isWhole = false;
        auto& item = pair.item->findItemForSubpath(path, offsetOf(*pair.plain), isWhole);
        pair.item->setScannedPath(path, offsetOf(*pair.plain));
        for (auto* twin = item.duplicateItem(); twin != &item; twin = twin->duplicateItem()) {
            expect("state of a twin", path, twin->getScanningState(), plain.state);
            twin->setScannedPath("", 0);
        }
        plain.state = 3;
    }
    static std::size_t offsetOf(const PlainFolder& start) {
        return start.path == "/" ? 1 : start.path.size() + 1;
    }

    template <class A, class B>
    void expect(std::string_view what, const std::string& path, const A& real, const B& plain) {
        if (real == static_cast<A>(plain) || !fault_.empty()) return;
        std::ostringstream text;
        text << what << " of " << path << " is " << testing::PrintToString(real) << ", plainly "
             << testing::PrintToString(plain);
        fault_ = text.str();
    }

    void compareAll() {
        pairs_.clear();
        std::vector<PlainFolder*> roots = plain_.volumes;
        roots.insert(roots.end(), plain_.shortcuts.begin(), plain_.shortcuts.end());
        const auto& items = tree_.getRootItems();
        expect("number of volumes", "", tree_.numberOfVolumes(), plain_.volumes.size());
        for (std::size_t i = 0; i < roots.size() && fault_.empty(); ++i)
            compareTree(*items[i], *roots[i], i);
        if (!fault_.empty()) return;
        expect("rows", "", rowsOf(tree_.getPathsAndFlags()), plain_.rows());
        expect("top items", "", topsOf(tree_), plain_.tops());
        const Pair pair = anyPair();
        expect("cancelling", pair.plain->path, pair.item->canCancelScan(),
               PlainFolderTree::mayCancel(*pair.plain));
        expect("need of a scan", pair.plain->path, pair.item->shoudStartScanForSubtree(),
               PlainFolderTree::needsScan(*pair.plain));
    }
    void compareTree(orv_FileSystemItem& item, PlainFolder& plain, std::size_t index) {
        pairs_.push_back({&item, &plain});
        const auto* const parent = item.findParent();
        const std::string& path = plain.path;
        expect("path", path, item.fullPath(), path);
        expect("parent", path, parent ? parent->fullPath() : "",
               plain.parent ? plain.parent->path : "");
        expect("index", path, item.index(), index);
        expect("flag", path, item.checkFlag(), plain.isChecked);
        expect("mark", path, item.shouldBeMarked(), PlainFolderTree::isMarked(plain));
        // a volume that is not mounted is none, its place in the tree may be
        if (item.getParent()) expect("missing", path, item.isMissing(), plain.isMissing);
        expect("size", path, item.getSize(), plain.size);
        expect("size with subtree", path, item.sizeWithSubtree(), plain.sizeWithSubtree);
        expect("state", path, static_cast<unsigned>(item.getScanningState()), plain.state);
        expect("loaded", path, item.hasLoadedChildren(), plain.children.has_value());
        const auto& children = item.loadedChildren();
        const auto loaded = plain.loaded();
        expect("number of children", path, children.size(), loaded.size());
        for (std::size_t i = 0; i < loaded.size() && fault_.empty(); ++i)
            compareTree(*children[i], *loaded[i], i);
    }
    void compareVisual(const Pair& pair) {
        say("look at") << pair.plain->path;
        expect("visual size", pair.plain->path, pair.item->getVisualSize(),
               plain_.visual(*pair.plain));
    }
    void compareSizes() {
        expect("selection size", "", tree_.getSelectionSize(), plain_.selected());
        std::shuffle(pairs_.begin(), pairs_.end(), random_);
        for (const Pair& pair : pairs_) {
            expect("selection size", pair.plain->path, pair.item->getSelectionSize(),
                   plain_.selected(*pair.plain));
            compareVisual(pair);
        }
    }
    static std::vector<PlainFolderTree::Row> rowsOf(const quelm::Array& array) {
        std::vector<PlainFolderTree::Row> rows;
        for (const auto& value : array) {
            const auto row = orv::SelectionRowOf(value);
            rows.emplace_back(row->path, row->isSelected);
        }
        return rows;
    }
    static std::vector<std::string> topsOf(orv::FileSystemTree& tree) {
        std::vector<std::string> paths;
        for (const auto* item : tree.findTopLevelItems())
            paths.push_back(item->fullPath());
        return paths;
    }

    std::mt19937 random_;
    RandomComputer computer_;
    test_support::FakeCatalogue catalogue_;
    orv::FileSystemTree tree_{catalogue_, computer_.roots()};
    PlainFolderTree plain_{computer_.folders, computer_.locked, computer_.volumes,
                           computer_.shortcuts};
    std::vector<Pair> pairs_;
    std::string fault_;
    std::ostringstream steps_;
};

TEST(TheFolderTreeBesideAPlainOne, IsTheSameWhateverIsDone) {
    for (unsigned seed = 1; seed <= test_support::Rounds(1'000); ++seed) {
        const std::string fault = Session(seed).run();
        ASSERT_EQ(fault, "") << "seed " << seed;
    }
}

}  // namespace
