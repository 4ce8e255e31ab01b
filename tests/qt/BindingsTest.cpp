#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include "qt/WindowFixture.h"
#include "qt/binding/Bindings.h"
#include "qt/elements/BusyIndicator.h"
#include "qt/elements/ImageLabel.h"
#include "qt/elements/NoticeStrip.h"
#include "qt/elements/TextLabel.h"

namespace {

using namespace orv;

class Counter final : public Binding {
 public:
    explicit Counter(FrameUpdates& updates) : Binding(updates) {}
    void apply() override {
        ++applied;
        if (onApply) onApply();
    }
    using Binding::mark;

    int applied = 0;
    std::function<void()> onApply;
};

TEST(FrameUpdates, AppliesManyChangesOnceAFrame) {
    FrameUpdates updates;
    Counter counter(updates);
    for (int i = 0; i < 10'000; ++i)
        counter.mark();
    EXPECT_EQ(counter.applied, 0);
    QCoreApplication::processEvents();
    EXPECT_EQ(counter.applied, 1) << "after a quiet time it does not wait for a frame";

    counter.mark();
    EXPECT_TRUE(QTest::qWaitFor([&] { return counter.applied == 2; }));
}

TEST(FrameUpdates, SurvivesBindingsThatComeAndGoWhileItApplies) {
    FrameUpdates updates;
    auto leaving = std::make_unique<Counter>(updates);
    Counter first(updates);
    Counter last(updates);
    first.onApply = [&] {
        leaving.reset();
        last.mark();
    };
    last.onApply = [&] { last.mark(); };  // for ever
    first.mark();
    leaving->mark();
    updates.flush();
    EXPECT_EQ(first.applied, 1);
    EXPECT_GE(last.applied, 1);
    EXPECT_LT(last.applied, 10);
}

class BindingsTest : public test_support::WindowTest {
 protected:
    QWidget window_;
};

TEST_F(BindingsTest, WidgetsAreHiddenEnabledAndExplainedAsTheirOutlets) {
    QPushButton button(&window_);
    Button outlet;
    outlet.setTitle("Go");
    outlet.setHidden(true);
    Bindings bindings(context, window_);
    bindings.bind(outlet, &button);
    EXPECT_TRUE(button.isHidden());
    outlet.setHidden(false);
    outlet.setEnabled(false);
    outlet.setToolTip("<b>locked</b>");
    EXPECT_TRUE(button.isHidden()) << "not before the frame";
    updates.flush();
    EXPECT_FALSE(button.isHidden());
    EXPECT_FALSE(button.isEnabled());
    EXPECT_TRUE(button.toolTip().contains(QStringLiteral("&lt;b&gt;locked"))) << "no markup";
}

TEST_F(BindingsTest, TextsAreShownAsTheyAre) {
    QLabel label(&window_);
    TextField outlet;
    Bindings bindings(context, window_);
    bindings.bind(outlet, &label);
    for (const std::string text : {"<b>Q&A</b> &amp; <img src='file:///etc/passwd'>", "a\nb", ""}) {
        outlet.setStringValue(text);
        updates.flush();
        EXPECT_EQ(label.text().toStdString(), text);
        EXPECT_EQ(label.textFormat(), Qt::PlainText);
        EXPECT_EQ(label.focusPolicy(), Qt::NoFocus);
    }
    outlet.setStringValue(std::string(1'000'000, 'x'));
    updates.flush();
    EXPECT_LE(label.text().size(), 2000) << "no layout of a megabyte";
}

TEST_F(BindingsTest, LinksAreFollowedByMouseAndKeyboard) {
    QLineEdit before(&window_);
    TextLabel label(&window_);
    TextField outlet;
    Bindings bindings(context, window_);
    bindings.bind(outlet, &label);
    outlet.setText({"<b>2</b> & (1 violation)", {{14, 9, "orv:fix?a=1&b=<\">", "#e51937"}}});
    updates.flush();
    EXPECT_TRUE(label.text().contains(QStringLiteral("&lt;b&gt;2&lt;/b&gt; &amp; (")));
    EXPECT_TRUE(label.text().contains(QStringLiteral(">violation</a>)")));
    label.adjustSize();
    window_.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window_));
    before.setFocus();
    QTest::keyClick(&before, Qt::Key_Tab);
    QTest::keyClick(&label, Qt::Key_Return);
    EXPECT_EQ(opened, (std::vector<std::string>{"orv:fix?a=1&b=<\">"}));
    QTest::mouseClick(&label, Qt::LeftButton, {}, {label.width() - 20, label.height() / 2});
    EXPECT_EQ(opened.size(), 2U);
    outlet.setStringValue("no link any more");
    updates.flush();
    EXPECT_FALSE(label.hasFocus());
}

TEST_F(BindingsTest, ALineIsEditedFromBothSides) {
    QLineEdit edit(&window_);
    TextField outlet;
    outlet.setStringValue("old");
    Bindings bindings(context, window_);
    bindings.bind(outlet, &edit);
    EXPECT_EQ(edit.text(), QStringLiteral("old"));
    QTest::keyClicks(&edit, QStringLiteral("er"));
    EXPECT_EQ(outlet.stringValue(), "older");
    edit.setCursorPosition(1);
    updates.flush();
    EXPECT_EQ(edit.cursorPosition(), 1) << "what was typed is not set again";
    outlet.setStringValue("new");
    outlet.selectText();
    updates.flush();
    EXPECT_EQ(edit.selectedText(), QStringLiteral("new"));
}

TEST_F(BindingsTest, AClickPerformsTheActionAndTheOutletHasTheLastWord) {
    QCheckBox box(QStringLiteral("Team & policy"), &window_);
    CheckBox outlet;
    Bindings bindings(context, window_);
    bindings.bind(outlet, &box);
    EXPECT_EQ(outlet.title(), "Team & policy") << "of the interface file";
    int clicks = 0;
    outlet.setAction([&] { ++clicks; });
    box.click();
    EXPECT_TRUE(outlet.isOn());

    outlet.setAction([&] { outlet.setOn(true); });  // refuses
    box.click();
    updates.flush();
    EXPECT_TRUE(box.isChecked());

    outlet.setAction({});
    outlet.setOn(false);  // not shown yet, so the click means "off" too
    box.click();
    updates.flush();
    EXPECT_FALSE(outlet.isOn());
    EXPECT_FALSE(box.isChecked());
    EXPECT_EQ(clicks, 1);
}

TEST_F(BindingsTest, APopUpIsChosenFromBothSidesAndHidesWithoutAChoice) {
    QComboBox box(&window_);
    box.setProperty("hiddenWithOneItem", true);
    PopUpButton outlet;
    outlet.setTitles({"A & B"});
    Bindings bindings(context, window_);
    bindings.bind(outlet, &box);
    EXPECT_TRUE(box.isHidden());
    outlet.setTitles({"A & B", "C"});
    outlet.selectItemAtIndex(1);
    updates.flush();
    EXPECT_FALSE(box.isHidden());
    EXPECT_EQ(box.currentText(), QStringLiteral("C"));
    std::vector<std::size_t> chosen;
    outlet.setAction([&] { chosen.push_back(outlet.indexOfSelectedItem()); });
    QTest::keyClick(&box, Qt::Key_Up);
    EXPECT_EQ(chosen, (std::vector<std::size_t>{0}));
    updates.flush();
    EXPECT_EQ(chosen.size(), 1U) << "showing it is no choice";
}

TEST_F(BindingsTest, ImagesSayWhatTheyShow) {
    ImageLabel label(&window_);
    label.setMinimumSize(16, 16);
    ImageView outlet;
    Bindings bindings(context, window_);
    bindings.bind(outlet, &label);
    outlet.setImageName("in-sync");
    outlet.setDescription("Up to date");
    updates.flush();
    EXPECT_EQ(label.pixmap().size(), QSize(16, 16) * label.devicePixelRatio());
    EXPECT_EQ(label.accessibleDescription(), QStringLiteral("Up to date"));
    for (const char* const name : {"no-such-image", "../../../etc/passwd", ""}) {
        outlet.setImageName(name);
        updates.flush();
        EXPECT_TRUE(label.pixmap().isNull()) << name;
    }
}

TEST_F(BindingsTest, ANoticeStaysAwayUntilItSaysSomethingElse) {
    NoticeStrip strip(&window_);
    TextField outlet;
    Bindings bindings(context, window_);
    bindings.bind(outlet, &strip);
    EXPECT_TRUE(strip.isHidden());
    outlet.setStringValue("damaged");
    updates.flush();
    EXPECT_FALSE(strip.isHidden());
    Q_EMIT strip.dismissed();
    outlet.setToolTip("the same notice");
    updates.flush();
    EXPECT_TRUE(strip.isHidden());
    outlet.setStringValue("damaged more");
    updates.flush();
    EXPECT_FALSE(strip.isHidden());
}

TEST_F(BindingsTest, WidgetsLetGoOfTheirOutlets) {
    TextField text;
    Button button;
    button.setTitle("Go");
    ProgressIndicator progress;
    int clicks = 0;
    button.setAction([&] { ++clicks; });
    QPushButton pushed(&window_);
    {
        QLabel label;
        BusyIndicator indicator;
        Bindings bindings(context, label);
        bindings.bind(text, &label);
        bindings.bind(progress, &indicator);
        bindings.bind(button, &pushed);
        text.setStringValue("due when it goes");
        progress.startAnimation();
    }
    updates.flush();
    text.setStringValue("after it went");
    updates.flush();
    pushed.click();
    EXPECT_EQ(clicks, 0);
}

}  // namespace
