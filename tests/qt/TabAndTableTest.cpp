#include <QClipboard>
#include <QGuiApplication>
#include <QLineEdit>
#include <QPointer>
#include <QScrollBar>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>

#include "qt/SampleOutlets.h"
#include "qt/WindowFixture.h"
#include "qt/binding/Bindings.h"
#include "qt/elements/RowTable.h"

namespace {

using namespace orv;

class TabBindingTest : public test_support::WindowTest {
 protected:
    TabBindingTest() {
        for (const char* const name : {"A", "B", "C"}) {
            auto* page = new QWidget;  // the tab widget's
            page->setProperty("identifier", QLatin1String(name));
            tabs_.addTab(page, QLatin1String(name) + QStringLiteral(" & co"));
        }
        window_.show();
    }

    [[nodiscard]] std::string shown() const {
        std::string names;
        for (int i = 0; i < tabs_.count(); ++i)
            names += tabs_.widget(i)->property("identifier").toString().toStdString();
        return names;
    }
    [[nodiscard]] std::string current() const {
        const QWidget* page = tabs_.currentWidget();
        return page ? page->property("identifier").toString().toStdString() : "";
    }

    QWidget window_;
    QTabWidget tabs_{&window_};
    TabView outlet_;
    Bindings bindings_{context, window_};
};

TEST_F(TabBindingTest, FollowsTheOutletsOrderAndKeepsPagesThatAreAway) {
    QPointer<QWidget> page = tabs_.widget(1);
    auto* edit = new QLineEdit(page);
    bindings_.bind(outlet_, &tabs_);
    EXPECT_EQ(outlet_.items().size(), 3U) << "those of the interface file";
    edit->setText(QStringLiteral("kept"));

    outlet_.remove("B");
    updates.flush();
    EXPECT_EQ(shown(), "AC");
    EXPECT_TRUE(page && !page->isVisible());
    outlet_.insert({"B"}, 0);
    outlet_.insert({"no page"}, 1);
    outlet_.select("B");
    updates.flush();
    EXPECT_EQ(shown(), "BAC");
    EXPECT_EQ(current(), "B");
    EXPECT_EQ(tabs_.tabText(0).remove(QChar(u'&')), QStringLiteral("B  co"));
    EXPECT_TRUE(page->isVisible());
    EXPECT_EQ(edit->text(), QStringLiteral("kept"));
    for (const char* const name : {"A", "B", "C", "no page"})
        outlet_.remove(name);
    updates.flush();
    EXPECT_EQ(shown(), "");
}

TEST_F(TabBindingTest, TellsTheOutletOnlyWhatThePersonChooses) {
    bindings_.bind(outlet_, &tabs_);
    std::vector<std::string> told;
    outlet_.setDelegate([&](const TabViewItem& item) { told.push_back(item.identifier); });
    QTest::mouseClick(tabs_.tabBar(), Qt::LeftButton, {}, tabs_.tabBar()->tabRect(2).center());
    EXPECT_EQ(told, (std::vector<std::string>{"C"}));
    outlet_.remove("C");  // tells of B, its neighbour
    updates.flush();
    EXPECT_EQ(told, (std::vector<std::string>{"C", "B"}));
    EXPECT_EQ(current(), "B");
}

class TableBindingTest : public test_support::WindowTest {
 protected:
    TableBindingTest() {
        rows_.rows = {{{"name", "one"}}, {{"name", "two\nlines"}}, {{"name", "three"}}};
        outlet_.setDataSource(&rows_);
        table_.setColumns({{"name", QStringLiteral("Name")},
                           {"size", QStringLiteral("Size"), ColumnWidth::Rest}});
        table_.resize(400, 300);
        bindings_.bind(outlet_, &table_);
        outlet_.setSelectionDidChange([this] { ++changes_; });
    }

    test_support::SampleRows rows_;
    TableView outlet_;
    RowTable table_;
    Bindings bindings_{context, table_};
    int changes_ = 0;
};

TEST_F(TableBindingTest, ReadsTheDataSourceWhenItDraws) {
    const QAbstractItemModel& model = *table_.model();
    EXPECT_EQ(model.rowCount(), 3);
    EXPECT_EQ(model.index(1, 0).data().toString(), QStringLiteral("two lines"));
    EXPECT_EQ(model.index(1, 1).data().toString(), QString());
    rows_.rows.resize(1);
    EXPECT_EQ(model.index(2, 0).data().toString(), QString()) << "gone before it was told";
    outlet_.reloadData();
    updates.flush();
    EXPECT_EQ(model.rowCount(), 1);
    table_.setEmptyText(QStringLiteral("Nothing yet"));
    EXPECT_EQ(table_.accessibleDescription(), QString());
    outlet_.setDataSource(nullptr);
    updates.flush();
    EXPECT_EQ(model.rowCount(), 0);
    EXPECT_EQ(table_.accessibleDescription(), QStringLiteral("Nothing yet"));
}

TEST_F(TableBindingTest, SelectsFromBothSides) {
    table_.selectRow(1);
    EXPECT_EQ(outlet_.selectedRows(), (std::set<std::size_t>{1}));
    EXPECT_EQ(changes_, 1);
    outlet_.selectRows({0, 2});
    updates.flush();
    EXPECT_EQ(table_.selectionModel()->selectedRows().size(), 2);
    EXPECT_EQ(changes_, 2) << "showing it is no choice";
    rows_.rows.resize(1);
    outlet_.reloadData();
    updates.flush();
    EXPECT_EQ(outlet_.selectedRows(), (std::set<std::size_t>{0}));
    EXPECT_EQ(table_.selectionModel()->selectedRows().size(), 1);
}

TEST_F(TableBindingTest, KeepsThePersonsPlaceWhenRowsChange) {
    for (int i = 0; i < 200; ++i)
        rows_.rows.push_back({{"name", "row " + std::to_string(i)}});
    outlet_.reloadData();
    updates.flush();
    table_.show();
    table_.scrollToBottom();
    table_.verticalScrollBar()->setValue(500);
    rows_.rows.push_back({{"name", "one more"}});
    outlet_.reloadData();
    updates.flush();
    EXPECT_EQ(table_.verticalScrollBar()->value(), 500);
}

TEST_F(TableBindingTest, CopiesTheSelectedRowsAsText) {
    outlet_.selectRows({0, 2});
    updates.flush();
    QTest::keySequence(&table_, QKeySequence::Copy);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("one\t\nthree\t\n"));
}

}  // namespace
