#include <gtest/gtest.h>
#include <unistd.h>

#include "backup/tree/DiskCatalogue.h"
#include "backup/tree/TreeRootsOfComputer.h"
#include "support/FakeVolumes.h"
#include "support/FakeWorkspace.h"
#include "support/TemporaryFolder.h"

namespace {

platform::Volume mountedAt(const std::string& path, bool isPseudo = false) {
    platform::Volume volume;
    volume.mountPoint = path;
    volume.pseudo = isPseudo;
    return volume;
}

std::vector<std::string> namesOf(const orv::FolderListing& listing) {
    std::vector<std::string> names;
    for (const auto& entry : listing.folders)
        names.push_back(entry.name);
    return names;
}

TEST(TheDiskCatalogue, ListsFoldersAndNothingElseByName) {
    const test_support::TemporaryFolder folder;
    for (const char* name :
         {"beta", "Alpha", "alpha", "Gamma", ".dot", "proc", "twice", "Tool.app"})
        folder.makeFolder(name);
    folder.makeFile("file");
    folder.makeLink("link", "beta");
    test_support::FakeVolumes volumes;
    volumes.volumes = {mountedAt("/"), mountedAt(folder / "proc", true),
                       mountedAt(folder / "twice", true), mountedAt(folder / "twice")};
    test_support::FakeWorkspace workspace;
    workspace.hidden[folder.path()] = {"beta", "absent"};
    workspace.flags["Tool.app"] = 14;
    orv::DiskCatalogue catalogue(workspace, volumes);

    const auto listing = catalogue.list(folder.path());
    EXPECT_TRUE(listing.isReadable);
    EXPECT_EQ(namesOf(listing),
              (std::vector<std::string>{"Alpha", "alpha", "beta", "Gamma", "Tool.app", "twice"}));
    EXPECT_EQ(listing.folders[0].flags, platform::ContainerItem);
    EXPECT_EQ(listing.folders[2].flags, platform::ContainerItem | platform::InvisibleItem);
    EXPECT_EQ(listing.folders[4].flags, 14U);
    EXPECT_TRUE(catalogue.isSymlink(folder / "link"));
    EXPECT_FALSE(catalogue.isSymlink(folder / "beta") || catalogue.isSymlink(folder / "absent"));
}

TEST(TheDiskCatalogue, SaysWhatCannotBeRead) {
    const test_support::TemporaryFolder folder;
    ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
    folder.makeFile("file");
    test_support::FakeVolumes volumes;
    test_support::FakeWorkspace workspace;
    orv::DiskCatalogue catalogue(workspace, volumes);
    for (const char* name : {"absent", "file", "pipe"})
        EXPECT_FALSE(catalogue.list(folder / name).isReadable) << name;
    EXPECT_TRUE(catalogue.list(folder.path()).isReadable);
}

TEST(TheRootsOfTheComputer, AreItsVolumesAndTheFoldersOfThePerson) {
    const test_support::TemporaryFolder home;
    home.makeFolder("Desktop");
    home.makeLink("Documents", "Real");
    home.makeFolder("Real");
    test_support::FakeVolumes volumes;
    volumes.volumes = {mountedAt("/"),
                       mountedAt("/home"),
                       mountedAt("/media/anna/Disk", true),
                       mountedAt("/media/anna/Disk"),
                       mountedAt("/media/anna/Disk/below"),
                       mountedAt("/media/anna/State", true),
                       mountedAt("/Volumes/Music"),
                       mountedAt("/media/direct"),
                       mountedAt("/run/media/anna/Stick")};
    const auto roots = orv::RootsOfComputer(volumes, home.path() + "/");
    EXPECT_EQ(roots.volumes, (std::vector<orv::TreeRoot>{{"/", "Computer"},
                                                         {"/media/anna/Disk", "Disk"},
                                                         {"/Volumes/Music", "Music"},
                                                         {"/run/media/anna/Stick", "Stick"}}));
    const std::string name(home.path().substr(home.path().rfind('/') + 1));
    EXPECT_EQ(roots.shortcuts, (std::vector<orv::TreeRoot>{{home / "Desktop", "Desktop"},
                                                           {home.path(), name},
                                                           {home / "Real", "Documents"}}));
    for (const std::string none : {"", "/", "relative", "/absent/folder"})
        EXPECT_TRUE(orv::RootsOfComputer(volumes, none).shortcuts.empty()) << none;
}

}  // namespace
