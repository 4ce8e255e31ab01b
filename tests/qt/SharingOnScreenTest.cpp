#include <QAbstractButton>
#include <QStyleOptionViewItem>
#include <QTest>

#include "backup/SharingFixture.h"
#include "foundation/system/ApplicationBundle.h"
#include "qt/binding/FrameUpdates.h"
#include "qt/binding/WindowContext.h"
#include "qt/elements/OutlineTree.h"
#include "qt/looks/Icons.h"
#include "qt/windows/SharingWindow.h"

namespace {

using namespace orv;
using quelm::Array;

/// The window itself, clicked as the person does.
class SharingOnScreen : public test_support::SharingFixture, public SharingWindows {
 protected:
    ~SharingOnScreen() override {
        controller_.reset();
        window_.reset();
    }
    SharingWindows& windows() override { return *this; }
    void showSharing(SharingOutlets& outlets) override {
        window_ = std::make_unique<SharingWindow>(context_, outlets, nullptr);
    }
    void release(SharingOutlets&) override { window_.reset(); }

    void draw() {
        settle();
        updates_.flush();
        QCoreApplication::processEvents();
        settle();
        updates_.flush();
    }
    QTreeView& tree() { return *window_->findChild<QTreeView*>(QStringLiteral("_folderTree")); }
    /// The top row, or the row below another, whose title begins so.
    QModelIndex rowNamed(const std::string& name, const QModelIndex& below = {}) {
        const auto* const model = tree().model();
        for (int i = 0; i < model->rowCount(below); ++i) {
            const QModelIndex row = model->index(i, 0, below);
            const std::string title = row.data().toString().toStdString();
            if (title == name || title.starts_with(name + " (") || title.starts_with(name + "  ("))
                return row;
        }
        ADD_FAILURE() << "no row " << name;
        return {};
    }
    void clickCheckBox(const QModelIndex& row) {
        tree().scrollTo(row);
        QCoreApplication::processEvents();
        // left of the middle, where the branch has ended
        const QRect place = tree().visualRect(row);
        const int side = place.height();
        QTest::mouseClick(tree().viewport(), Qt::LeftButton, {},
                          {place.left() + side / 2, place.center().y()});
        draw();
    }
    Qt::CheckState checkState(const QModelIndex& row) {
        return static_cast<Qt::CheckState>(row.data(Qt::CheckStateRole).toInt());
    }
    void press(const char* button) {
        auto* const found = window_->findChild<QAbstractButton*>(QString::fromLatin1(button));
        ASSERT_TRUE(found && found->isEnabled()) << button;
        QTest::mouseClick(found, Qt::LeftButton);
    }

    FrameUpdates updates_;
    const Icons icons_{QString::fromStdString(quelm::FindResourcesFolder()), Appearance::Light};
    const WindowContext context_{updates_, icons_, [](const std::string&) {}};
    std::unique_ptr<SharingWindow> window_;
};

TEST_F(SharingOnScreen, IsTickedAndStoredWithOk) {
    open();
    draw();
    clickCheckBox(rowNamed("Documents"));
    const std::string home = std::filesystem::path(anna_.path()).filename();
    EXPECT_EQ(checkState(rowNamed("Documents")), Qt::Checked);
    EXPECT_EQ(checkState(rowNamed(home)), Qt::PartiallyChecked);
    EXPECT_EQ(rowNamed("Documents").data().toString().toStdString(), "Documents  (124 B)");

    // the shortcut's folder in the home folder is the same one
    tree().expand(rowNamed(home));
    draw();
    const QModelIndex below = rowNamed("Documents", rowNamed(home));
    EXPECT_EQ(checkState(below), Qt::Checked);
    tree().expand(below);
    draw();
    clickCheckBox(rowNamed("taxes", rowNamed("Documents", rowNamed(home))));
    EXPECT_EQ(rowNamed("Documents").data().toString().toStdString(), "Documents  (104 B)");

    press("_okButton");
    settle();
    EXPECT_EQ(stored("storage_info.plist"),
              quelm::Value(Array{Array{anna_ / "Documents", true},
                                 Array{anna_ / "Documents/taxes", false}}));
    EXPECT_EQ(hints(), std::vector<std::int64_t>{2});
}

TEST_F(SharingOnScreen, LeavesEveryFileAloneWithCancelAndWhenItIsClosed) {
    const auto before = filesOfAccount();
    for (const bool isClosed : {false, true}) {
        open();
        draw();
        clickCheckBox(rowNamed("Documents"));
        press("_onlyTheseButton");
        draw();
        if (isClosed) {
            window_->close();
        } else {
            press("_cancelButton");
        }
        EXPECT_EQ(filesOfAccount(), before);
    }
    EXPECT_EQ(hints(), std::vector<std::int64_t>());
    EXPECT_EQ(opener_.heard, (std::vector<std::string>{"cancelled", "cancelled"}));
}

}  // namespace
