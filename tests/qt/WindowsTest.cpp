#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QScrollArea>
#include <QScrollBar>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>
#include <map>
#include <optional>
#include <set>

#include "qt/LongerTexts.h"
#include "qt/SampleOutlets.h"
#include "qt/WindowFixture.h"
#include "qt/desktop/Screenshots.h"
#include "qt/elements/ImageLabel.h"
#include "qt/windows/AdvancedSettingsWindow.h"
#include "qt/windows/ExcludeFiltersWindow.h"
#include "qt/windows/LeftOutWindow.h"
#include "qt/windows/MainWindow.h"
#include "qt/windows/OnlinePasswordWindow.h"
#include "qt/windows/SharingWindow.h"

namespace {

using namespace orv;
using test_support::Longer;

class WindowsTest : public test_support::WindowTest {
 protected:
    /// Does it for every tab of the window, or once.
    static void onEachPage(QWidget& window, const std::function<void(const std::string&)>& check) {
        auto* tabs = window.findChild<QTabWidget*>();
        for (int i = 0; i < (tabs ? tabs->count() : 1); ++i) {
            if (tabs) tabs->setCurrentIndex(i);
            QCoreApplication::processEvents();
            check(tabs ? tabs->currentWidget()->objectName().toStdString() : "dialog");
        }
    }

    void openDialogs() {
        outlets.password._enterPasswordWindow.orderFront();
        outlets.advanced._advancedSettingsWindow.orderFront();
        updates.flush();
    }

    test_support::SampleOutlets outlets;
};

/// The window in which the person chooses what to back up, and its dialogs.
class SharingWindowsTest : public WindowsTest {
 protected:
    void make() {
        SharingOutlets& shown = outlets.sharing;
        leftOut.reset();
        exclude.reset();
        sharing.emplace(context, shown, nullptr);
        exclude.emplace(context, shown.exclude, &*sharing);
        leftOut.emplace(context, shown.leftOut, &*sharing);
    }
    void open() {
        make();
        for (DialogWindow* window : dialogs())
            window->orderFront();
        updates.flush();
        QCoreApplication::processEvents();
    }
    [[nodiscard]] std::vector<DialogWindow*> dialogs() {
        SharingOutlets& shown = outlets.sharing;
        return {&shown._sharingWindow, &shown.exclude._excludeWindow,
                &shown.leftOut._leftOutWindow};
    }
    [[nodiscard]] std::vector<QWidget*> windows() { return {&*sharing, &*exclude, &*leftOut}; }

    std::optional<SharingWindow> sharing;
    std::optional<ExcludeFiltersWindow> exclude;
    std::optional<LeftOutWindow> leftOut;
};

template <class Widget>
std::vector<Widget*> shownIn(QWidget& window) {
    std::vector<Widget*> shown;
    for (Widget* widget : window.findChildren<Widget*>())
        if (widget->isVisible() && widget->window() == &window) shown.push_back(widget);
    return shown;
}

std::string described(const QWidget& widget) {
    return widget.objectName().toStdString() + " (" + widget.metaObject()->className() + ")";
}

bool holdsItsText(const QLabel& label) {
    if (!label.wordWrap()) return label.width() >= label.sizeHint().width();
    return label.height() >= label.heightForWidth(label.width());
}

void expectNothingIsCut(QWidget& window, const std::string& page) {
    for (const QLabel* label : shownIn<QLabel>(window))
        EXPECT_TRUE(label->text().isEmpty() || holdsItsText(*label))
            << page << ": " << described(*label);
    for (const QAbstractButton* button : shownIn<QAbstractButton>(window))
        EXPECT_GE(button->width(), button->sizeHint().width())
            << page << ": " << described(*button);
    for (const QScrollArea* area : shownIn<QScrollArea>(window))
        EXPECT_EQ(area->horizontalScrollBar()->maximum(), 0) << page;
    for (const QTabBar* bar : shownIn<QTabBar>(window))
        EXPECT_GE(bar->width(), bar->sizeHint().width()) << page;
}

TEST_F(WindowsTest, NoTextIsCutInALanguageWithLongerWords) {
    const test_support::LongerTexts language;
    PaneOutlets& pane = outlets.pane;
    for (TextField* field :
         {&pane._headline, &pane._lastBackup, &pane._connectionStatus, &pane._connectionInfo,
          &pane._connectedFSA, &pane._backupStatus1, &pane._backupStatus2, &pane._spaceUsageLabel,
          &pane._projectsStatus1, &pane._speedText})
        field->setStringValue(Longer(field->stringValue()));
    pane._connectButton.setTitle(Longer(pane._connectButton.title()));
    for (View* view : std::initializer_list<View*>{
             &pane._restoreProgressButton, &pane._allowRemoteAccess, &pane._verifyPasswordButton,
             &pane._resetDontShow, &pane._settingsNotice, &outlets.advanced._lockedNotice})
        view->setHidden(false);
    outlets.advanced._lockedNotice.setStringValue(Longer("Locked by your administrator."));
    MainWindow window(context, pane);
    OnlinePasswordWindow password(context, outlets.password, &window);
    AdvancedSettingsWindow advanced(context, outlets.advanced, &window);
    window.show();
    openDialogs();
    outlets.password._message.setStringValue(Longer("Invalid credentials."));
    outlets.password._message.setHidden(false);
    updates.flush();
    ASSERT_EQ(window.findChild<QLabel*>(QStringLiteral("computerTitle"))->text().toStdString(),
              Longer("This computer"));
    EXPECT_EQ(window.size(), QSize(860, 620));
    for (QWidget* each : std::initializer_list<QWidget*>{&window, &password, &advanced})
        onEachPage(*each, [&](const std::string& page) { expectNothingIsCut(*each, page); });
}

TEST_F(WindowsTest, NoTextIsCutInTheSmallestWindow) {
    MainWindow window(context, outlets.pane);
    window.resize(window.minimumSize());
    window.show();
    onEachPage(window, [&](const std::string& page) { expectNothingIsCut(window, page); });
}

void expectTabReachesAll(QWidget& window, const std::string& page) {
    std::set<const QWidget*> wanted;
    for (const QWidget* widget : shownIn<QWidget>(window)) {
        const bool takesTab = (widget->focusPolicy() & Qt::TabFocus) != 0;
        if (takesTab && widget->isEnabled() && !widget->focusProxy()) wanted.insert(widget);
    }
    std::vector<const QWidget*> reached;
    window.setFocus();
    while (reached.size() <= wanted.size()) {
        QTest::keyClick(&window, Qt::Key_Tab);
        const QWidget* at = QApplication::focusWidget();
        if (!at || (!reached.empty() && at == reached.front())) break;
        reached.push_back(at);
    }
    EXPECT_EQ(std::set<const QWidget*>(reached.begin(), reached.end()), wanted) << page;
    EXPECT_GE(reached.size(), 2U) << page;
    for (std::size_t i = 1; i < reached.size(); ++i) {
        const QRect before(reached[i - 1]->mapTo(&window, QPoint()), reached[i - 1]->size());
        const QPoint next = reached[i]->mapTo(&window, QPoint());
        const bool isBelowOrRight = next.y() > before.top() || next.x() > before.right();
        EXPECT_TRUE(isBelowOrRight)
            << page << ": " << described(*reached[i - 1]) << " > " << described(*reached[i]);
    }
}

TEST_F(WindowsTest, TabReachesEveryControlInReadingOrder) {
    MainWindow window(context, outlets.pane);
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    onEachPage(window, [&](const std::string& page) { expectTabReachesAll(window, page); });
}

TEST_F(SharingWindowsTest, TabReachesEveryControlInReadingOrder) {
    make();
    for (std::size_t i = 0; i < windows().size(); ++i) {
        QWidget* window = windows()[i];
        dialogs()[i]->orderFront();
        updates.flush();
        ASSERT_TRUE(QTest::qWaitFor([&] { return QApplication::activeWindow() == window; }));
        expectTabReachesAll(*window, described(*window));
        if (window != &*sharing) dialogs()[i]->close();
    }
}

TEST_F(SharingWindowsTest, NoTextIsCut) {
    for (const bool isLonger : {false, true}) {
        std::optional<test_support::LongerTexts> language;
        if (isLonger) language.emplace();
        open();
        EXPECT_EQ(sharing->size(), QSize(900, 640));
        for (QWidget* window : windows())
            expectNothingIsCut(*window, described(*window));
        outlets.sharing._progressText.setHidden(true);  // which may be cut
        updates.flush();
        for (QWidget* window : windows()) {
            window->resize(window->minimumSize());
            QCoreApplication::processEvents();
            expectNothingIsCut(*window, described(*window));
        }
        EXPECT_LE(sharing->width(), 760);
        EXPECT_LE(sharing->height(), 520);
        outlets.sharing._progressText.setHidden(false);
    }
}

TEST_F(SharingWindowsTest, TheOutletsKeepTheGroupOfRadioButtons) {
    open();
    SharingOutlets& shown = outlets.sharing;
    auto* all = sharing->findChild<QAbstractButton*>(QStringLiteral("_allFilesButton"));
    auto* only = sharing->findChild<QAbstractButton*>(QStringLiteral("_onlyTheseButton"));
    shown._allFilesButton.setAction([&] {
        shown._allFilesButton.setOn(true);
        shown._onlyTheseButton.setOn(false);
    });
    for (int click = 0; click < 2; ++click) {
        all->click();
        updates.flush();
        EXPECT_TRUE(all->isChecked());
        EXPECT_FALSE(only->isChecked());
    }
}

TEST_F(SharingWindowsTest, EnterAddsThePatternThatIsTyped) {
    open();
    ExcludeOutlets& shown = outlets.sharing.exclude;
    std::string done;
    shown._filterField.setTextDidChange([&] { done += shown._filterField.stringValue() + ' '; });
    shown._addFilterButton.setAction([&] { done += "added "; });
    shown._okButton.setAction([&] { done += "ok "; });
    auto* field = exclude->findChild<QWidget*>(QStringLiteral("_filterField"));
    QTest::keyClick(field, Qt::Key_Backspace);
    QTest::keyClick(field, Qt::Key_Return);
    EXPECT_EQ(done, "*.tm added ");
}

void expectNames(QWidget& window, const std::string& page) {
    for (QWidget* widget : shownIn<QWidget>(window)) {
        const bool isControl = (widget->focusPolicy() & Qt::TabFocus) != 0;
        if (!isControl || widget->focusProxy() || qobject_cast<QTabBar*>(widget)) continue;
        const QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(widget);
        ASSERT_TRUE(accessible);
        EXPECT_FALSE(accessible->text(QAccessible::Name).isEmpty())
            << page << ": " << described(*widget);
    }
}

void expectUniqueMnemonics(QWidget& window, const std::string& page) {
    std::map<std::string, std::string> seen;
    for (const QAbstractButton* button : shownIn<QAbstractButton>(window)) {
        if (button->text().isEmpty() || !button->accessibleName().isEmpty()) continue;
        const std::string key = button->shortcut().toString().toStdString();
        EXPECT_FALSE(key.empty()) << page << ": " << described(*button);
        EXPECT_TRUE(seen.emplace(key, button->text().toStdString()).second)
            << page << ": " << key << " of " << described(*button) << " and " << seen[key];
    }
    for (const QTabBar* bar : shownIn<QTabBar>(window))
        for (int i = 0; i < bar->count(); ++i) {
            const auto key = QKeySequence::mnemonic(bar->tabText(i)).toString().toStdString();
            EXPECT_TRUE(seen.emplace(key, "tab").second) << key << " of a tab and " << seen[key];
        }
}

TEST_F(WindowsTest, EveryControlHasANameAndAMnemonicOfItsOwn) {
    for (View* view : std::initializer_list<View*>{
             &outlets.pane._restoreProgressButton, &outlets.pane._allowRemoteAccess,
             &outlets.pane._verifyPasswordButton, &outlets.pane._resetDontShow})
        view->setHidden(false);
    MainWindow window(context, outlets.pane);
    OnlinePasswordWindow password(context, outlets.password, &window);
    AdvancedSettingsWindow advanced(context, outlets.advanced, &window);
    window.show();
    openDialogs();
    for (QWidget* each : std::initializer_list<QWidget*>{&window, &password, &advanced})
        onEachPage(*each, [&](const std::string& page) {
            expectNames(*each, page);
            expectUniqueMnemonics(*each, page);
        });
}

TEST_F(SharingWindowsTest, EveryControlHasANameAndAMnemonicOfItsOwn) {
    open();
    for (QWidget* window : windows()) {
        expectNames(*window, described(*window));
        expectUniqueMnemonics(*window, described(*window));
    }
}

TEST_F(WindowsTest, TheMainWindowTellsWhenItIsShown) {
    std::vector<bool> told;
    {
        MainWindow window(context, outlets.pane);
        window.setShownChanged([&](bool shown) { told.push_back(shown); });
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
        QTest::keySequence(&window, QKeySequence::Close);
    }
    EXPECT_EQ(told, (std::vector<bool>{true, false}));
}

TEST_F(WindowsTest, HiddenFieldsHideTheirLabels) {
    MainWindow window(context, outlets.pane);
    const auto* title = window.findChild<QLabel*>(QStringLiteral("agentIDTitle"));
    EXPECT_FALSE(title->isHidden());
    outlets.pane._agentID.setHidden(true);
    updates.flush();
    EXPECT_TRUE(title->isHidden());
}

TEST_F(WindowsTest, AHeadingGoesWithTheLastOfWhatItHeads) {
    MainWindow window(context, outlets.pane);
    const auto* section = window.findChild<QWidget*>(QStringLiteral("accountSection"));
    Button* const buttons[] = {&outlets.pane._newAccountButton, &outlets.pane._deleteAccountButton};
    for (Button* button : buttons) {
        updates.flush();
        EXPECT_FALSE(section->isHidden());
        button->setHidden(true);
    }
    updates.flush();
    EXPECT_TRUE(section->isHidden());
    buttons[0]->setHidden(false);
    updates.flush();
    EXPECT_FALSE(section->isHidden());
}

TEST_F(WindowsTest, PicturesAreTakenOfEveryTab) {
    MainWindow window(context, outlets.pane);
    window.show();
    const QStringList taken = TakeScreenshots(window, QString::fromStdString(configuration.path()),
                                              QStringLiteral("main"));
    ASSERT_EQ(taken.size(), 5);
    for (const QString& path : taken)
        EXPECT_GE(QImage(path).width(), 860) << path.toStdString();
}

}  // namespace
