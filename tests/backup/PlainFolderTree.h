#pragma once

#include <algorithm>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace test_support {

/// A folder, one for all places where it is shown.
struct PlainFolder {
    std::string path;
    PlainFolder* parent = nullptr;
    /// By name; none while they are not loaded.
    std::optional<std::vector<PlainFolder*>> children;
    bool isChecked = false;
    bool isMissing = false;
    std::uint64_t size = 0;
    std::uint64_t sizeWithSubtree = 0;
    /// None: to be computed.
    std::optional<std::uint64_t> visual;
    unsigned state = 0;

    [[nodiscard]] std::string name() const { return path.substr(path.rfind('/') + 1); }
    [[nodiscard]] std::vector<PlainFolder*> loaded() const {
        return children.value_or(std::vector<PlainFolder*>());
    }
};

/// The tree of folders as plainly as it can be said, to compare the real one with: what can be
/// derived is derived by looking at everything. Names are lower case.
class PlainFolderTree {
 public:
    using Row = std::pair<std::string, bool>;
    using Root = std::pair<std::string, PlainFolder*>;

    /// `folders` are on the disk, `locked` of them cannot be read.
    PlainFolderTree(std::set<std::string> folders, std::set<std::string> locked,
                    const std::vector<std::string>& volumes,
                    const std::vector<std::string>& shortcuts)
        : folders_(std::move(folders)), locked_(std::move(locked)) {
        for (const std::string& path : volumes)
            this->volumes.push_back(&make(path));
        for (const std::string& path : volumes)
            find(path, true);
        for (const std::string& path : shortcuts) {
            PlainFolder* const folder = find(path, true);
            this->shortcuts.push_back(folder ? folder : &make(path));
        }
    }

    std::vector<PlainFolder*> volumes;
    std::vector<PlainFolder*> shortcuts;

    [[nodiscard]] PlainFolder& computer() const {
        return **std::ranges::find(volumes, "/", &PlainFolder::path);
    }

    void load(PlainFolder& folder) {
        if (folder.children) return;
        folder.children.emplace();
        if (locked_.contains(folder.path)) return;
        for (const std::string& path : folders_) {
            if (path == "/" || parentOf(path) != folder.path) continue;
            const auto volume = std::ranges::find(volumes, path, &PlainFolder::path);
            PlainFolder& child = volume == volumes.end() ? make(path) : **volume;
            if (volume == volumes.end()) child.isChecked = folder.isChecked;
            child.parent = &folder;
            folder.children->push_back(&child);
        }
    }

    /// From the computer on; null when it is not there, or not loaded.
    PlainFolder* find(const std::string& path, bool mayLoad) {
        PlainFolder* const deepest = &findDeepest(computer(), path, mayLoad);
        return deepest->path == path ? deepest : nullptr;
    }
    PlainFolder& findDeepest(PlainFolder& start, const std::string& path, bool mayLoad) {
        PlainFolder* folder = &start;
        while (folder->path != path) {
            if (mayLoad) load(*folder);
            PlainFolder* next = nullptr;
            for (PlainFolder* child : folder->loaded()) {
                if (isWithin(path, child->path)) next = child;
            }
            if (!next) break;
            folder = next;
        }
        return *folder;
    }

    void click(PlainFolder& folder, bool flag) {
        if (folder.isChecked == flag) return;
        forEach(folder, [flag](PlainFolder& each) {
            each.isChecked = flag;
            each.visual.reset();
        });
        for (auto* above = folder.parent; above; above = above->parent)
            above->visual.reset();
    }

    void insertRow(const std::string& path, bool flag) {
        PlainFolder* folder = rootOf(path);
        if (folder == &computer()) {
            if (PlainFolder* const volume = unmountedVolumeOf(path)) folder = volume;
        }
        while (folder->path != path) {
            load(*folder);
            const std::size_t from = folder->path == "/" ? 1 : folder->path.size() + 1;
            const std::string next = path.substr(0, path.find('/', from));
            auto& children = *folder->children;
            auto at = std::ranges::lower_bound(children, next, {}, &PlainFolder::path);
            if (at == children.end() || (*at)->path != next) {
                PlainFolder& made = make(next);
                made.parent = folder;
                made.isMissing = true;
                made.isChecked = folder->isChecked;
                made.children.emplace();
                at = children.insert(at, &made);
            }
            folder = *at;
        }
        click(*folder, flag);
    }

    [[nodiscard]] static bool isPathChecked(const PlainFolder& folder) {
        for (const auto* each = &folder; each; each = each->parent) {
            if (each->isChecked) return true;
        }
        return false;
    }
    /// Something below is checked, and neither this nor anything above.
    [[nodiscard]] static bool isMarked(const PlainFolder& folder) {
        return !isPathChecked(folder) && holdsChecked(folder);
    }
    [[nodiscard]] static bool holdsChecked(const PlainFolder& folder) {
        return std::ranges::any_of(folder.loaded(), [](const PlainFolder* child) {
            return child->isChecked || holdsChecked(*child);
        });
    }

    [[nodiscard]] std::vector<Row> rows() const {
        std::vector<Row> rows;
        for (const PlainFolder* root : outermost())
            addRows(*root, false, rows);
        for (const PlainFolder* root : shortcuts)
            addRows(*root, false, rows);
        return rows;
    }
    [[nodiscard]] std::vector<std::string> tops() const {
        std::vector<std::string> paths;
        for (const PlainFolder* root : outermost())
            addTops(*root, paths);
        return paths;
    }

    // Sizes.
    std::uint64_t visual(PlainFolder& folder) {
        if (folder.visual) return *folder.visual;
        std::uint64_t bytes = folder.isChecked ? folder.sizeWithSubtree : 0;
        if (folder.state == 3) {
            forEach(folder, [&](const PlainFolder& each) {
                if (&each == &folder || each.isChecked == each.parent->isChecked) return;
                bytes += each.isChecked ? each.sizeWithSubtree : 0 - each.sizeWithSubtree;
            });
        } else if (folder.children) {
            bytes = folder.isChecked ? folder.size : 0;
            for (PlainFolder* child : *folder.children)
                bytes += visual(*child);
        }
        folder.visual = bytes;
        return bytes;
    }
    std::uint64_t selected(PlainFolder& folder) {
        if (folder.isChecked) return visual(folder);
        std::uint64_t bytes = 0;
        for (PlainFolder* child : folder.loaded())
            bytes += selected(*child);
        return bytes;
    }
    std::uint64_t selected() {
        std::uint64_t bytes = 0;
        for (PlainFolder* root : outermost())
            bytes += selected(*root);
        return bytes;
    }

    // The scan.
    static void reset(PlainFolder& folder, unsigned state) {
        forEach(folder, [state](PlainFolder& each) {
            each.size = each.sizeWithSubtree = 0;
            each.visual.reset();
            each.state = state;
        });
    }
    void scanned(PlainFolder& start, const std::string& path, std::uint64_t size) {
        PlainFolder& found = findDeepest(start, path, false);
        const std::uint64_t selected = found.isChecked ? size : 0;
        if (found.path == path) {
            found.size = found.sizeWithSubtree = size;
            found.visual = selected;
            found.state = 2;
        } else if (found.state == 2) {
            found.sizeWithSubtree += size;
            if (found.visual) *found.visual += selected;
        }
        for (auto* above = found.parent; above && above->state == 2; above = above->parent) {
            above->sizeWithSubtree += size;
            above->visual.reset();
        }
    }
    [[nodiscard]] static bool needsScan(PlainFolder& folder) {
        bool needs = false;
        forEach(folder, [&](const PlainFolder& each) {
            needs = needs || (each.isChecked && each.state != 3);
        });
        return needs;
    }
    [[nodiscard]] static bool mayCancel(const PlainFolder& folder) {
        for (const auto* each = &folder; each; each = each->parent) {
            if (each->isChecked && each->state != 3) return false;
        }
        return !holdsChecked(folder);
    }

    template <class Do>
    static void forEach(PlainFolder& folder, Do perform) {
        perform(folder);
        for (PlainFolder* child : folder.loaded())
            forEach(*child, perform);
    }

 private:
    static bool isWithin(const std::string& path, const std::string& folder) {
        return folder == "/" || path == folder || path.starts_with(folder + "/");
    }
    static std::string parentOf(const std::string& path) {
        const std::size_t slash = path.rfind('/');
        return slash == 0 ? "/" : path.substr(0, slash);
    }
    PlainFolder& make(const std::string& path) {
        made_.push_back(std::make_unique<PlainFolder>());
        made_.back()->path = path;
        return *made_.back();
    }
    [[nodiscard]] std::vector<PlainFolder*> outermost() const {
        std::vector<PlainFolder*> found;
        for (PlainFolder* volume : volumes) {
            if (!volume->parent) found.push_back(volume);
        }
        return found;
    }
    [[nodiscard]] PlainFolder* rootOf(const std::string& path) const {
        PlainFolder* longest = nullptr;
        for (const auto* list : {&volumes, &shortcuts}) {
            for (PlainFolder* root : *list) {
                if (isWithin(path, root->path) &&
                    (!longest || root->path.size() > longest->path.size()))
                    longest = root;
            }
        }
        return longest;
    }
    /// Volumes are mounted at "/media/USER/NAME".
    PlainFolder* unmountedVolumeOf(const std::string& path) {
        if (!path.starts_with("/media/") || std::ranges::count(path, '/') < 3) return nullptr;
        const std::size_t name = path.find('/', path.find('/', 1) + 1) + 1;
        const std::string volume = path.substr(0, path.find('/', name));
        if (findDeepest(computer(), volume, false).isChecked) return nullptr;
        PlainFolder* root = find(volume, true);
        if (!root) root = &make(volume);
        const auto nameOf = [](const PlainFolder* each) {
            return each->path == "/" ? "Computer" : each->name();
        };
        const auto place = std::ranges::find_if(
            volumes, [&](const PlainFolder* other) { return nameOf(other) > root->name(); });
        volumes.insert(place, root);
        return root;
    }
    void addRows(const PlainFolder& folder, bool inherited, std::vector<Row>& rows) const {
        const Row row(folder.path, folder.isChecked);
        if (folder.isChecked != inherited && std::ranges::count(rows, row) == 0)
            rows.push_back(row);
        for (const PlainFolder* child : folder.loaded())
            addRows(*child, folder.isChecked, rows);
    }
    static void addTops(const PlainFolder& folder, std::vector<std::string>& paths) {
        if (folder.isChecked) return paths.push_back(folder.path);
        for (const PlainFolder* child : folder.loaded())
            addTops(*child, paths);
    }

    std::set<std::string> folders_;
    std::set<std::string> locked_;
    std::vector<std::unique_ptr<PlainFolder>> made_;
};

}  // namespace test_support
