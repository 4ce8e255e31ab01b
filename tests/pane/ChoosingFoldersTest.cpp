#include "PaneFixture.h"
#include "config/PersistentFlag.h"

namespace {

using orv::orv_PersistentFlag;
using quelm::Dictionary;

/// The panel's part in choosing folders.
class ChoosingFolders : public test_support::PaneFixture {
 protected:
    explicit ChoosingFolders(const Dictionary& record = {{"full_name", "Anna"},
                                                         {"policy_backup", 0}})
        : PaneFixture(record) {}

    [[nodiscard]] bool isOpen() const {
        return windows_.sharing && windows_.sharing->_sharingWindow.isOpen();
    }
    void settle() {
        ASSERT_TRUE(test_support::WaitUntil([this] {
            loop_.advance(std::chrono::milliseconds(10));
            return !pane_->sharing() || !pane_->sharing()->computationInProgress();
        }));
    }
};

TEST_F(ChoosingFolders, OpensOneWindowAndMakesANewOneNextTime) {
    start();
    EXPECT_FALSE(isOpen());
    outlets_._manageBackupsButton.performClick();
    settle();
    ASSERT_TRUE(isOpen());
    auto* const first = pane_->sharing();
    pane_->openLink("orv:backup_config+1");
    EXPECT_EQ(pane_->sharing(), first);
    EXPECT_EQ(windows_.sharing->_sharingWindow.raises(), 2U);
    windows_.sharing->_cancelButton.performClick();
    EXPECT_EQ(pane_->sharing(), nullptr);
    loop_.processPending();
    EXPECT_EQ(windows_.sharing, nullptr);
    own("storage_window", {});
    EXPECT_TRUE(isOpen());
}

TEST_F(ChoosingFolders, FlagsAskForItAndTheFirstChoiceConnects) {
    orv_PersistentFlag::set(orv_PersistentFlag::openSharingWindow, "1");
    orv_PersistentFlag::set(orv_PersistentFlag::scanShareInfo, "1");
    start();
    settle();
    ASSERT_TRUE(isOpen());
    EXPECT_FALSE(orv_PersistentFlag::isSet(orv_PersistentFlag::openSharingWindow, "1"));
    windows_.sharing->_cancelButton.performClick();
    EXPECT_TRUE(orv_PersistentFlag::isSet(orv_PersistentFlag::scanShareInfo, "1"));
    EXPECT_TRUE(application_.launched.empty());
    outlets_._manageBackupsButton.performClick();
    settle();
    windows_.sharing->_okButton.performClick();
    loop_.processPending();
    EXPECT_FALSE(orv_PersistentFlag::isSet(orv_PersistentFlag::scanShareInfo, "1"));
    EXPECT_EQ(application_.launched, std::vector<std::string>{"1"});
    EXPECT_EQ(pane_->sharing(), nullptr);
}

class FoldersOfAPolicy : public ChoosingFolders {
 protected:
    FoldersOfAPolicy() : ChoosingFolders({{"full_name", "Anna"}, {"policy_backup", 1}}) {}
};

TEST_F(FoldersOfAPolicy, AreNotChosen) {
    start();
    EXPECT_FALSE(outlets_._manageBackupsButton.isEnabled());
    pane_->openLink("orv:backup_config+1");
    EXPECT_EQ(outlets_._tabs.selectedIdentifier(), "Folders");
    EXPECT_EQ(pane_->sharing(), nullptr);
}

}  // namespace
