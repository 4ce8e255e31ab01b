#include <QAccessible>
#include <QScrollBar>
#include <QTest>
#include <QToolTip>

#include "qt/SampleOutline.h"
#include "qt/WindowFixture.h"
#include "qt/binding/Bindings.h"
#include "qt/elements/OutlineTree.h"
#include "qt/looks/Contrast.h"

namespace {

using namespace orv;
using test_support::SampleOutline;
using Node = SampleOutline::Node;

class OutlineTest : public test_support::WindowTest {
 protected:
    OutlineTest() {
        tree_.resize(400, 300);
        disk_ = &add("disk");
        home_ = &add("home", disk_, OutlineCheck::Partly);
        docs_ = &add("docs", home_, OutlineCheck::Checked);
        other_ = &add("other");
    }

    Node& add(const std::string& name, Node* parent = nullptr,
              OutlineCheck check = OutlineCheck::Unchecked) {
        return source_.add({"        " + name, "folder", {}, check}, parent);
    }
    void addMany(std::size_t count, Node& parent) {
        for (std::size_t i = 0; i < count; ++i)
            add("row " + std::to_string(i), &parent);
    }
    void open() {
        outlet_.setDataSource(&source_);
        bindings_.emplace(context, tree_);
        bindings_->bind(outlet_, &tree_);
        outlet_.setSelectionDidChange([this] { selections_.push_back(outlet_.selectedItem()); });
        tree_.show();
        QCoreApplication::processEvents();
    }
    void structureDidChange() {
        outlet_.structureDidChange();
        updates.flush();
        QCoreApplication::processEvents();
    }
    [[nodiscard]] QModelIndex indexOf(const Node& node) const {
        return static_cast<OutlineModel*>(tree_.model())->indexOfItem(&node);
    }
    /// The titles from the top, with a "+" behind what is open.
    [[nodiscard]] std::string shown() const {
        std::string titles;
        for (QModelIndex at = tree_.model()->index(0, 0); at.isValid(); at = tree_.indexBelow(at))
            titles += at.data().toString().toStdString() + (tree_.isExpanded(at) ? "+ " : " ");
        return titles;
    }
    void clickCheckBox(const Node& node) {
        QStyleOptionViewItem option;
        option.initFrom(&tree_);
        option.widget = &tree_;
        option.rect = tree_.visualRect(indexOf(node));
        option.features = QStyleOptionViewItem::HasCheckIndicator;
        const QRect box =
            tree_.style()->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &option, &tree_);
        QTest::mouseClick(tree_.viewport(), Qt::LeftButton, {}, box.center());
    }

    SampleOutline source_;
    Node* disk_;
    Node* home_;
    Node* docs_;
    Node* other_;
    OutlineView outlet_;
    OutlineTree tree_;
    std::optional<Bindings> bindings_;
    std::vector<OutlineItem> selections_;
};

TEST_F(OutlineTest, ACheckBoxAsksTheDataSourceAndShowsItsAnswer) {
    open();
    clickCheckBox(*other_);
    EXPECT_EQ(source_.toggled, (std::vector<const Node*>{other_}));
    const auto state = [this] { return indexOf(*other_).data(Qt::CheckStateRole).toInt(); };
    EXPECT_EQ(state(), Qt::Unchecked) << "it was refused";
    QTest::keyClick(&tree_, Qt::Key_Space);
    EXPECT_EQ(source_.toggled, (std::vector<const Node*>{other_, other_}));
    other_->cell.check = OutlineCheck::Partly;
    outlet_.reloadData();
    updates.flush();
    EXPECT_EQ(state(), Qt::PartiallyChecked);

    other_->cell.check = OutlineCheck::None;
    outlet_.reloadData();
    updates.flush();
    clickCheckBox(*other_);
    QTest::keyClick(&tree_, Qt::Key_Space);
    EXPECT_EQ(source_.toggled.size(), 2U) << "there is no check box";
}

TEST_F(OutlineTest, RowsSayNameAndStateAndLookAsTheyAre) {
    home_->cell.isFaint = true;
    disk_->shouldExpand = true;
    open();
    const QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(&tree_);
    ASSERT_TRUE(accessible && accessible->childCount() >= 4);
    // behind that of the column
    EXPECT_EQ(accessible->child(1)->text(QAccessible::Name).toStdString(), "disk, not checked");
    EXPECT_EQ(accessible->child(2)->text(QAccessible::Name).toStdString(), "home, partly checked");
    EXPECT_EQ(indexOf(*disk_).data().toString().toStdString(), "disk") << "no leading blanks";

    const QImage picture = tree_.viewport()->grab().toImage();
    const auto darkest = [&](const Node& node) {
        const QRect row = tree_.visualRect(indexOf(node));
        double most = 1;
        for (int x = row.right() - 200; x < row.right(); ++x)
            for (int y = row.top(); y < row.bottom(); ++y)
                most = std::max(most, ContrastRatio(picture.pixelColor(x, y), Qt::white));
        return most;
    };
    EXPECT_LT(darkest(*home_), darkest(*disk_)) << "fainter";
}

TEST_F(OutlineTest, RowsThatWantToBeOpenAreOpenedWhenTheyAreSeen) {
    disk_->shouldExpand = true;
    home_->shouldExpand = true;
    open();
    EXPECT_EQ(shown(), "disk+ home+ docs other ");
    EXPECT_EQ(source_.expanded, (std::vector<const Node*>{disk_, home_}));

    Node& late = add("late", other_);
    add("inside", &late);
    late.shouldExpand = true;
    structureDidChange();
    EXPECT_TRUE(late.shouldExpand) << "nobody has seen it";
    tree_.expand(indexOf(*other_));
    QCoreApplication::processEvents();
    EXPECT_EQ(shown(), "disk+ home+ docs other+ late+ inside ");
    tree_.collapse(indexOf(late));
    outlet_.reloadData();
    updates.flush();
    EXPECT_FALSE(tree_.isExpanded(indexOf(late))) << "it was asked once";
}

TEST_F(OutlineTest, ChildrenMayComeAfterTheirFolderWasOpened) {
    other_->isExpandable = true;
    open();
    tree_.expand(indexOf(*other_));
    EXPECT_EQ(source_.expanded, (std::vector<const Node*>{other_}));
    addMany(2, *other_);
    structureDidChange();
    EXPECT_EQ(shown(), "disk other+ row 0 row 1 ");
}

TEST_F(OutlineTest, WhatIsOpenSelectedAndSeenStaysWhenRowsComeGoAndMove) {
    addMany(100, *other_);
    open();
    for (const Node* node : {disk_, home_, other_})
        tree_.expand(indexOf(*node));
    Node& selected = *other_->children[50];
    tree_.setCurrentIndex(indexOf(selected));
    tree_.verticalScrollBar()->setValue(tree_.verticalScrollBar()->value() + 7);
    const QRect place = tree_.visualRect(indexOf(selected));
    selections_.clear();

    source_.remove(*docs_);
    source_.remove(*other_->children[1]);
    for (int i = 0; i < 30; ++i)
        add("new", home_);
    std::swap(source_.root.children[0], source_.root.children[1]);
    std::swap(source_.root.children[0], source_.root.children[1]);
    std::rotate(other_->children.begin(), other_->children.begin() + 1, other_->children.end());
    structureDidChange();
    EXPECT_TRUE(tree_.isExpanded(indexOf(*home_)));
    EXPECT_EQ(tree_.selectionModel()->selectedRows(), (QModelIndexList{indexOf(selected)}));
    EXPECT_EQ(tree_.visualRect(indexOf(selected)).top() - place.top(), 0);
    EXPECT_EQ(selections_, std::vector<OutlineItem>{});

    source_.remove(selected);
    structureDidChange();
    EXPECT_EQ(selections_, (std::vector<OutlineItem>{nullptr}));
    EXPECT_EQ(outlet_.selectedItem(), nullptr);
}

// the sample throws when somebody does
TEST_F(OutlineTest, NobodyAsksAboutRowsThatHaveGone) {
    disk_->shouldExpand = true;
    open();
    tree_.setCurrentIndex(indexOf(*home_));
    source_.remove(*home_);
    outlet_.structureDidChange();  // not flushed
    tree_.viewport()->grab();
    QTest::keyClick(&tree_, Qt::Key_Space);
    QTest::mouseClick(tree_.viewport(), Qt::LeftButton, {}, {60, 30});
    EXPECT_EQ(source_.toggled.size(), 0U);
    EXPECT_EQ(shown(), "disk+ other ");
    outlet_.setDataSource(nullptr);
    tree_.viewport()->grab();
    EXPECT_EQ(shown(), "");
}

TEST_F(OutlineTest, SelectsFromBothSides) {
    open();
    tree_.setCurrentIndex(indexOf(*other_));
    EXPECT_EQ(selections_, (std::vector<OutlineItem>{other_}));
    outlet_.selectItem(docs_);
    updates.flush();
    EXPECT_EQ(tree_.selectedItem(), docs_);
    EXPECT_EQ(shown(), "disk+ home+ docs other ") << "what it is in was opened";
    EXPECT_EQ(source_.expanded, (std::vector<const Node*>{disk_, home_}));
    outlet_.selectItem(nullptr);
    updates.flush();
    EXPECT_EQ(tree_.selectedItem(), nullptr);
    EXPECT_EQ(selections_, (std::vector<OutlineItem>{other_, docs_, nullptr}));
}

TEST_F(OutlineTest, AMillionRowsAreReadInBlocksAndOnlyWhatIsSeenIsDrawn) {
    constexpr std::size_t most = 1'000'000;
    addMany(most, *disk_);
    open();
    source_.childrenAsked = 0;
    source_.cellsAsked = 0;
    tree_.expand(indexOf(*disk_));
    QCoreApplication::processEvents();
    EXPECT_EQ(source_.childrenAsked, OutlineModel::block);
    const std::size_t drawn = source_.cellsAsked;
    EXPECT_LT(drawn, 1000U);

    outlet_.reloadData();
    updates.flush();
    EXPECT_LT(source_.cellsAsked - drawn, 100U) << "a new revision asks about what is seen";
    EXPECT_EQ(source_.childrenAsked, OutlineModel::block);

    // where its last row is, more come, although another folder stands below it
    tree_.scrollTo(tree_.model()->index(OutlineModel::block - 1, 0, indexOf(*disk_)));
    QCoreApplication::processEvents();
    EXPECT_EQ(tree_.model()->rowCount(indexOf(*disk_)), int(2 * OutlineModel::block));
    EXPECT_EQ(source_.childrenAsked, 2 * OutlineModel::block);
}

TEST_F(OutlineTest, TellsAssistiveToolsOnlyWhatHasChanged) {
    addMany(500, *other_);
    open();
    tree_.expand(indexOf(*other_));
    outlet_.reloadData();
    updates.flush();
    std::vector<const void*> told;
    QObject::connect(tree_.model(), &QAbstractItemModel::dataChanged, &tree_,
                     [&](const QModelIndex& index) {
                         told.push_back(static_cast<OutlineModel*>(tree_.model())->itemAt(index));
                     });
    for (Node* node : {disk_, other_->children[400]})
        node->cell.title += " (1 KB)";
    outlet_.reloadData();
    updates.flush();
    EXPECT_EQ(told, (std::vector<const void*>{disk_}));
}

}  // namespace
