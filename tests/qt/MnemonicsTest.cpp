#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>

#include "qt/WindowFixture.h"
#include "qt/binding/Bindings.h"
#include "qt/binding/Mnemonics.h"

namespace {

using namespace orv;

TEST(Mnemonics, AreTheFirstFreeBeginningOfAWord) {
    const auto pick = [](const char* title, const char* taken) {
        return QString(PickMnemonic(QString::fromUtf8(title), QString::fromUtf8(taken)));
    };
    EXPECT_EQ(pick("Show in Folder", ""), QStringLiteral("S"));
    EXPECT_EQ(pick("Show in Folder", "SI"), QStringLiteral("F"));
    EXPECT_EQ(pick("Show in Folder", "SIF"), QStringLiteral("H"));
    EXPECT_EQ(pick("“Éa”…", ""), QStringLiteral("É"));
    EXPECT_TRUE(PickMnemonic(QStringLiteral("Ok!"), QStringLiteral("OK")).isNull());
}

TEST(Mnemonics, LeaveAnAmpersandInATitle) {
    const QString title = QStringLiteral("Q&A & more");
    EXPECT_EQ(TitleWithMnemonic(title, u'M'), QStringLiteral("Q&&A && &more"));
    EXPECT_EQ(TitleWithMnemonic(title, QChar()), QStringLiteral("Q&&A && more"));
}

class AssignMnemonicsTest : public test_support::WindowTest {
 protected:
    static QString mnemonicOf(const QAbstractButton& button) {
        return button.shortcut().toString();
    }
    QWidget window_;
};

TEST_F(AssignMnemonicsTest, PagesMayShareLettersButNotWithWhatIsAlwaysSeen) {
    QPushButton always(QStringLiteral("Save"), &window_);
    QTabWidget tabs(&window_);
    auto* one = new QWidget;  // the tab widget's
    auto* two = new QWidget;
    tabs.addTab(one, QStringLiteral("Folders"));
    tabs.addTab(two, QStringLiteral("Files"));
    QPushButton first(QStringLiteral("Search"), one);
    QPushButton second(QStringLiteral("Erase"), two);
    QLineEdit edit(two);
    QLabel label(QStringLiteral("Fast"), two);
    label.setBuddy(&edit);
    QLabel value(QStringLiteral("1 & 2"), two);
    QLabel name(QStringLiteral("A & B"), two);
    name.setBuddy(&value);
    AssignMnemonics(window_);
    EXPECT_EQ(tabs.tabText(0), QStringLiteral("&Folders"));
    EXPECT_EQ(tabs.tabText(1), QStringLiteral("F&iles"));
    EXPECT_EQ(mnemonicOf(always), QStringLiteral("Alt+S"));
    EXPECT_EQ(mnemonicOf(first), QStringLiteral("Alt+E"));
    EXPECT_EQ(mnemonicOf(second), QStringLiteral("Alt+E"));
    EXPECT_EQ(label.text(), QStringLiteral("F&ast"));
    EXPECT_EQ(name.text(), QStringLiteral("A && B")) << "leads to nothing that is edited";
}

TEST_F(AssignMnemonicsTest, StayWithTheirTitles) {
    QPushButton connect(&window_);
    QPushButton close(QStringLiteral("Close"), &window_);
    Button outlet;
    outlet.setTitle("Open & connect");
    Bindings bindings(context, window_);
    bindings.bind(outlet, &connect);
    updates.flush();
    EXPECT_EQ(mnemonicOf(connect), QStringLiteral("Alt+O"));
    EXPECT_EQ(mnemonicOf(close), QStringLiteral("Alt+C"));

    outlet.setTitle("Disconnect");
    updates.flush();
    EXPECT_EQ(mnemonicOf(connect), QStringLiteral("Alt+O")) << "it still occurs";
    outlet.setTitle("Cut");
    updates.flush();
    EXPECT_EQ(mnemonicOf(connect), QStringLiteral("Alt+U"));
    EXPECT_EQ(mnemonicOf(close), QStringLiteral("Alt+C"));
}

}  // namespace
