#include <filesystem>

#include "backup/SharingFixture.h"

namespace {

using orv::OutlineCheck;
using orv::OutlineItem;
using quelm::Array;
using test_support::ContentOf;

using TheSharingWindow = test_support::SharingFixture;

TEST_F(TheSharingWindow, ShowsTheSizesOfWhatIsTicked) {
    open();
    const OutlineItem documents = row({"Documents"});
    EXPECT_EQ(title(documents), "Documents");
    click(documents);
    EXPECT_EQ(title(documents), "Documents  (124 B)");
    const OutlineItem taxes = row({"Documents", "taxes"});
    settle();
    title(taxes);  // shown, its size is computed
    settle();
    EXPECT_EQ(title(taxes), "taxes  (20 B)");
    click(taxes);
    EXPECT_EQ(title(documents), "Documents  (104 B)");
    EXPECT_EQ(check(taxes), OutlineCheck::Unchecked);
    EXPECT_EQ(outlets()._pieChartView.model().thisComputer, 104);
    EXPECT_EQ(outlets()._pieChartView.model().quota, 5'368'709'120);
    // hidden.txt, the link, and what is in the hidden folder
    EXPECT_NE(outlets()._leftOutInfo.stringValue().find("The selection has 3 of them (1007 B)"),
              std::string::npos)
        << outlets()._leftOutInfo.stringValue();
}

TEST_F(TheSharingWindow, TicksAShortcutAndItsFolderTogetherAndMarksThoseAbove) {
    open();
    click(row({"Desktop"}));
    const std::string home = std::filesystem::path(anna_.path()).filename();
    EXPECT_EQ(check(row({home})), OutlineCheck::Partly);
    EXPECT_EQ(check(row({home, "Desktop"})), OutlineCheck::Checked);
    // one folder, two rows, each below what it is shown under
    const OutlineItem below = row({home, "Desktop"});
    EXPECT_NE(below, row({"Desktop"}));
    EXPECT_EQ(rows().parentOfItem(below), row({home}));
    EXPECT_EQ(rows().parentOfItem(row({"Desktop"})), nullptr);
    click(below);
    EXPECT_EQ(check(row({"Desktop"})), OutlineCheck::Unchecked);
    EXPECT_EQ(check(row({home})), OutlineCheck::Unchecked);
}

TEST_F(TheSharingWindow, StoresWithOkWhatWasChosenAndSaysSoOnce) {
    open();
    click(row({"Documents"}));
    click(row({"Documents", "taxes"}));
    outlets()._okButton.performClick();
    EXPECT_EQ(stored("storage_info.plist"),
              quelm::Value(Array{Array{anna_ / "Documents", true},
                                 Array{anna_ / "Documents/taxes", false}}));
    EXPECT_EQ(hints(), std::vector<std::int64_t>{2});
    EXPECT_FALSE(std::filesystem::exists(folder_ / "excluded_files.plist"));
    EXPECT_EQ(opener_.heard, std::vector<std::string>{"finished 104 1"});
    EXPECT_FALSE(outlets()._sharingWindow.isOpen());

    // and shows it again
    open();
    const OutlineItem documents = row({"Documents"});
    EXPECT_EQ(check(documents), OutlineCheck::Checked);
    EXPECT_EQ(title(documents), "Documents  (104 B)");
    EXPECT_EQ(check(row({"Documents", "taxes"})), OutlineCheck::Unchecked);
}

TEST_F(TheSharingWindow, LeavesEveryFileAloneWhenItIsCancelled) {
    ASSERT_TRUE(orv::StoreArrayToFile(folder_ / "storage_info.plist",
                                      Array{Array{anna_ / "Documents", true}, Array{"odd"}}));
    accounts_->load();
    const auto before = filesOfAccount();
    open();
    click(row({"Documents"}));
    click(row({"Desktop"}));
    outlets()._onlyTheseButton.performClick();
    outlets()._excludeButton.performClick();
    outlets().exclude._filterField.enterText("*.mp3");
    outlets().exclude._addFilterButton.performClick();
    panels_.chosen = {anna_ / "Documents/letter.txt"};
    outlets().exclude._addFileButton.performClick();
    outlets().exclude._okButton.performClick();
    settle();
    outlets()._cancelButton.performClick();
    EXPECT_EQ(filesOfAccount(), before);
    EXPECT_EQ(hints(), std::vector<std::int64_t>());
    EXPECT_EQ(opener_.heard, std::vector<std::string>{"cancelled"});
}

TEST_F(TheSharingWindow, CountsTheChosenKindsOfFilesOnly) {
    open();
    click(row({"Documents"}));
    EXPECT_TRUE(outlets()._allFilesButton.isOn());
    EXPECT_FALSE(outlets()._musicButton.isEnabled());
    outlets()._onlyTheseButton.performClick();
    settle();
    for (orv::CheckBox* box :
         {&outlets()._documentsButton, &outlets()._financialButton, &outlets()._imagesButton,
          &outlets()._archivesButton, &outlets()._databasesButton, &outlets()._videoButton}) {
        box->setOn(false);
    }
    outlets()._musicButton.setOn(false);
    outlets()._musicButton.performClick();
    settle();
    EXPECT_FALSE(outlets()._allFilesButton.isOn());
    EXPECT_EQ(title(row({"Documents"})), "Documents  (100 B)");
    outlets()._okButton.performClick();
    const auto filters = stored("filter_info.plist");
    ASSERT_NE(filters.asDictionary(), nullptr);
    EXPECT_EQ(*filters.asDictionary()->find("all"), quelm::Value(false));
}

TEST_F(TheSharingWindow, ShowsWhatAPatternWouldLeaveOutWhileItIsTyped) {
    open();
    click(row({"Documents"}));
    outlets()._excludeButton.performClick();
    orv::ExcludeOutlets& sheet = outlets().exclude;
    EXPECT_TRUE(sheet._previewInfo.isHidden());
    EXPECT_FALSE(sheet._addFilterButton.isEnabled());
    sheet._filterField.enterText("  \n");
    EXPECT_FALSE(sheet._addFilterButton.isEnabled());
    sheet._filterField.enterText(" *.mp3 ");
    EXPECT_EQ(sheet._previewInfo.stringValue(),
              "It would leave out 1 of the selected files (100 B).");
    EXPECT_EQ(sheet._previewTable.textAt("name", 0), "song.mp3");
    EXPECT_EQ(sheet._previewTable.textAt("folder", 0), anna_ / "Documents");
    // the next key takes the answer's place
    scans_.held = true;
    sheet._filterField.enterText("*.t");
    sheet._filterField.enterText("*.pdf");
    scans_.release();
    EXPECT_EQ(sheet._previewTable.textAt("name", 0), "2025.pdf");
    sheet._filterField.enterText("*.mp3");
    sheet._addFilterButton.performClick();
    EXPECT_EQ(sheet._filterField.stringValue(), "");
    EXPECT_TRUE(sheet._previewInfo.isHidden());
    sheet._filterField.enterText("*.mp3");
    sheet._addFilterButton.performClick();
    EXPECT_EQ(sheet._excludeFiltersTable.numberOfRows(), 1U);
    sheet._okButton.performClick();
    settle();
    EXPECT_EQ(outlets()._excludeInfo.stringValue(), "1 active exclude filter");
    EXPECT_EQ(title(row({"Documents"})), "Documents  (24 B)");
}

TEST_F(TheSharingWindow, ExcludesFilesOneByOne) {
    open();
    outlets()._excludeButton.performClick();
    orv::ExcludeOutlets& sheet = outlets().exclude;
    panels_.chosen = {"/b", "/A", "/a", "/c"};
    sheet._addFileButton.performClick();
    ASSERT_EQ(panels_.shown.size(), 1U);
    EXPECT_EQ(panels_.shown[0].title, "Choose Files");
    EXPECT_EQ(panels_.shown[0].prompt, "Exclude");
    EXPECT_EQ(sheet._excludedFilesTable.numberOfRows(), 3U);
    sheet._excludedFilesTable.selectRows({1});
    sheet._removeFileButton.performClick();
    sheet._okButton.performClick();
    EXPECT_EQ(outlets()._excludeInfo.stringValue(), "2 active exclude filters");
    outlets()._okButton.performClick();
    EXPECT_EQ(stored("excluded_files.plist"), quelm::Value(Array{"/A", "/c"}));
    EXPECT_EQ(hints(), (std::vector<std::int64_t>{4096, 2}));
}

TEST_F(TheSharingWindow, SaysWhyAFileIsNotCounted) {
    open();
    outlets()._folderTree.selectItem(row({"Documents"}));
    outlets()._leftOutButton.performClick();
    orv::TableView& table = outlets().leftOut._leftOutTable;
    std::vector<std::string> names;
    for (std::size_t i = 0; i < table.numberOfRows(); ++i)
        names.push_back(table.textAt("name", i));
    EXPECT_EQ(names, (std::vector<std::string>{".cache", ".hidden", "link"}));
    EXPECT_NE(table.textAt("reason", 2).find("link"), std::string::npos);
}

TEST_F(TheSharingWindow, DoesNotReplaceASelectionThatItCannotRead) {
    folder_.makeFile("storage_info.plist", "no property list");
    open();
    EXPECT_FALSE(outlets()._notice.isHidden());
    click(row({"Documents"}));
    EXPECT_FALSE(outlets()._okButton.isEnabled());
    outlets()._cancelButton.performClick();
    EXPECT_EQ(ContentOf(folder_ / "storage_info.plist"), "no property list");
}

TEST_F(TheSharingWindow, AllowsNoMoreThanTheQuotaUnlessItIsLessThanBefore) {
    folder_.makeFile("storage_quota.xml",
                     "<request><parameters><total-quota>50</total-quota></parameters></request>");
    ASSERT_TRUE(orv::StoreArrayToFile(folder_ / "storage_info.plist",
                                      Array(1, Array{anna_ / "Documents", true})));
    open();
    ASSERT_EQ(outlets()._pieChartView.model().quota, 50);
    EXPECT_TRUE(outlets()._okButton.isEnabled());
    click(row({"Desktop"}));
    EXPECT_FALSE(outlets()._okButton.isEnabled());
    EXPECT_NE(outlets()._summaryLabel.stringValue().find("more than the storage holds"),
              std::string::npos);
    click(row({"Desktop"}));
    EXPECT_TRUE(outlets()._okButton.isEnabled());
}

TEST_F(TheSharingWindow, AllowsNoMoreThanTheQuotaWhenNothingWasSelectedBefore) {
    folder_.makeFile("storage_quota.xml",
                     "<request><parameters><total-quota>50</total-quota></parameters></request>");
    open();
    click(row({"Documents"}));
    EXPECT_FALSE(outlets()._okButton.isEnabled());
}

TEST_F(TheSharingWindow, WaitsForChangedFiltersBeforeItStores) {
    open();
    click(row({"Documents"}));
    files_.held = true;
    rows().toggleItem(row({"Desktop"}));  // its scan is given up by what follows
    outlets()._onlyTheseButton.performClick();
    for (int i = 0; i < 20; ++i)
        loop_.advance(std::chrono::milliseconds(10));
    EXPECT_TRUE(controller_->computationInProgress());
    EXPECT_FALSE(outlets()._okButton.isEnabled());
    files_.release();
    settle();
    EXPECT_TRUE(outlets()._okButton.isEnabled());
}

TEST_F(TheSharingWindow, KeepsWhatIsBeingStoredFromChanging) {
    open();
    click(row({"Documents"}));
    files_.held = true;
    outlets()._okButton.performClick();
    EXPECT_FALSE(outlets()._excludeButton.isEnabled());
    EXPECT_FALSE(outlets()._allFilesButton.isEnabled());
    controller_->onlyTheseButtonPressed();
    files_.release();
    const auto filters = stored("filter_info.plist");
    ASSERT_NE(filters.asDictionary(), nullptr);
    EXPECT_EQ(*filters.asDictionary()->find("all"), quelm::Value(true));
    EXPECT_FALSE(outlets()._sharingWindow.isOpen());
}

TEST_F(TheSharingWindow, SaysThatAVolumeIsNotBackedUpAndDoesNotWaitForItsSize) {
    anna_.makeFile("Documents/portal/file", "12345");
    ASSERT_TRUE(
        orv::ChangePropertiesInFile(folder_ / "user_info.plist", {{"network_drive_share", false}}));
    auto volumes = std::make_unique<test_support::FakeVolumes>();
    volumes->volumes = {{.mountPoint = anna_ / "Documents/portal",
                         .device = "server:/portal",
                         .fileSystem = "nfs",
                         .local = false}};
    platform::ProcessServices().volumes = std::move(volumes);
    open();
    const auto portal = row({"Documents", "portal"});
    click(portal);
    ASSERT_EQ(alerts_.shown.size(), 1U);
    EXPECT_EQ(check(portal), OutlineCheck::Unchecked);
    click(row({"Documents"}));
    platform::ProcessServices().volumes.reset();
    EXPECT_EQ(title(portal), "portal  (0 B)");
    EXPECT_EQ(title(row({"Documents"})), "Documents  (124 B)");
}

TEST_F(TheSharingWindow, RaisesWhatIsOpenAndClosesAtOnceWhileADiskHangs) {
    folders_.held = true;
    open();
    EXPECT_FALSE(outlets()._okButton.isEnabled());
    controller_->openSharingWindowWithDelegate(&opener_);
    EXPECT_EQ(outlets()._sharingWindow.raises(), 2U);
    EXPECT_EQ(windows_.shown, 1);
    outlets()._cancelButton.performClick();
    EXPECT_EQ(opener_.heard, std::vector<std::string>{"cancelled"});
    folders_.release();
    EXPECT_FALSE(outlets()._sharingWindow.isOpen());
}

TEST_F(TheSharingWindow, StaysOpenWithWhatWasChosenWhenItCannotBeStored) {
    open();
    click(row({"Documents"}));
    std::filesystem::remove_all(folder_.path());
    outlets()._okButton.performClick();
    ASSERT_EQ(alerts_.shown.size(), 1U);
    EXPECT_TRUE(outlets()._sharingWindow.isOpen());
    EXPECT_TRUE(outlets()._okButton.isEnabled());
    EXPECT_EQ(check(row({"Documents"})), OutlineCheck::Checked);
    EXPECT_EQ(hints(), std::vector<std::int64_t>());
}

}  // namespace
