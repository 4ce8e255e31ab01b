#pragma once

#include <algorithm>
#include <cstdlib>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "FakeCatalogue.h"
#include "backup/tree/FileSystemTree.h"

namespace test_support {

/// How many random cases to try; TIDEWELL_ROUNDS in the environment makes it as many as one likes.
inline unsigned Rounds(unsigned usual) {
    const char* const given = std::getenv("TIDEWELL_ROUNDS");
    return given ? static_cast<unsigned>(std::atoi(given)) : usual;
}

/// A random computer, of which all else follows.
struct RandomComputer {
    explicit RandomComputer(std::mt19937& random) {
        const auto chance = [&](std::size_t oneOf) { return random() % oneOf == 0; };
        for (const char* path : {"/home/u/desktop", "/home/u/documents", "/media/u/disk",
                                 "/media/u/stick", "/media/u/away"}) {
            if (!chance(4)) add(path);
        }
        for (const char* volume : {"/media/u/disk", "/media/u/stick"}) {
            if (!folders.contains(volume) || chance(3)) continue;
            volumes.emplace_back(volume);
        }
        for (auto i = random() % 20; i > 0; --i) {
            auto above = folders.begin();
            std::advance(above, random() % folders.size());
            add((*above == "/" ? "" : *above) + "/" + std::string(1, "abcdefgh"[random() % 8]));
        }
        for (const std::string& path : folders) {
            if (path != "/" && chance(15)) locked.insert(path);
        }
        std::shuffle(volumes.begin(), volumes.end(), random);
    }

    void add(const std::string& path) {
        for (std::size_t slash = 0; slash != path.npos; slash = path.find('/', slash + 1))
            folders.insert(slash == 0 ? "/" : path.substr(0, slash));
        folders.insert(path);
    }
    /// Otherwise a folder can stand among the roots alone, because it is not there or a folder
    /// above it cannot be read; then what is said of those above does not reach it.
    void showRootsInTheTree() {
        std::erase_if(shortcuts, [this](const auto& path) { return !folders.contains(path); });
        for (const char* path : {"/home", "/home/u", "/media", "/media/u"})
            locked.erase(path);
    }
    void fill(FakeCatalogue& catalogue) const {
        for (const std::string& path : folders)
            if (path != "/") catalogue.add(path);
        for (const std::string& path : locked)
            catalogue.lock(path);
    }
    [[nodiscard]] orv::TreeRoots roots() const {
        orv::TreeRoots roots;
        for (const std::string& path : volumes)
            roots.volumes.push_back({path, path == "/" ? "Computer" : nameOf(path)});
        for (const std::string& path : shortcuts)
            roots.shortcuts.push_back({path, nameOf(path)});
        return roots;
    }
    static std::string nameOf(const std::string& path) { return path.substr(path.rfind('/') + 1); }

    std::set<std::string> folders{"/"};
    std::set<std::string> locked;
    std::vector<std::string> volumes{"/"};
    std::vector<std::string> shortcuts{"/home/u/desktop", "/home/u", "/home/u/documents"};
};

}  // namespace test_support
