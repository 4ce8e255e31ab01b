#include <QAbstractAnimation>
#include <QApplication>
#include <QCheckBox>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>

#include "qt/SampleOutlets.h"
#include "qt/WindowFixture.h"
#include "qt/desktop/QtAlerts.h"
#include "qt/desktop/QtFilePanels.h"
#include "qt/elements/BusyIndicator.h"
#include "qt/elements/Shake.h"
#include "qt/windows/OnlinePasswordWindow.h"

namespace {

using namespace orv;

class PasswordWindowTest : public test_support::WindowTest {
 protected:
    PasswordWindowTest() {
        outlets_._okButton.setAction([this] { done_ += "ok "; });
        outlets_._cancelButton.setAction([this] { done_ += "cancel "; });
        outlets_._enterPasswordWindow.setCloseAction([this] { done_ += "close "; });
    }
    void open() {
        outlets_._enterPasswordWindow.orderFront();
        updates.flush();
    }

    std::string done_;
    OnlinePasswordOutlets outlets_;
    OnlinePasswordWindow window_{context, outlets_, nullptr};
};

TEST_F(PasswordWindowTest, OpensAndClosesWithItsOutlet) {
    updates.flush();
    EXPECT_FALSE(window_.isVisible());
    open();
    EXPECT_TRUE(window_.isVisible());
    window_.close();
    updates.flush();
    EXPECT_TRUE(window_.isVisible()) << "the controller decides";
    EXPECT_EQ(done_, "close ");
    outlets_._enterPasswordWindow.close();
    updates.flush();
    EXPECT_FALSE(window_.isVisible());
    open();
    EXPECT_TRUE(window_.isVisible());
}

TEST_F(PasswordWindowTest, EnterAcceptsAndEscapeAsksToClose) {
    open();
    auto* edit = window_.findChild<QLineEdit*>(QStringLiteral("_password"));
    EXPECT_EQ(edit->echoMode(), QLineEdit::Password);
    QTest::keyClicks(edit, QStringLiteral("pa<&"));
    EXPECT_EQ(outlets_._password.stringValue(), "pa<&");
    QTest::keyClick(edit, Qt::Key_Return);
    QTest::keyClick(edit, Qt::Key_Escape);
    EXPECT_EQ(done_, "ok close ");

    outlets_._okButton.setEnabled(false);
    outlets_._indicator.startAnimation();
    updates.flush();
    EXPECT_TRUE(window_.findChild<BusyIndicator*>()->isAnimating());
    QTest::keyClick(edit, Qt::Key_Return);
    EXPECT_EQ(done_, "ok close ") << "while it is being checked";
}

TEST_F(PasswordWindowTest, ShakesAndEndsWhereItWas) {
    open();
    window_.move(200, 100);
    outlets_._enterPasswordWindow.shakeWindow();
    updates.flush();
    QPoint farthest = window_.pos();
    EXPECT_TRUE(QTest::qWaitFor([&] {
        farthest = std::min(farthest, window_.pos(),
                            [](const QPoint& a, const QPoint& b) { return a.x() < b.x(); });
        return !window_.findChild<QAbstractAnimation*>(QStringLiteral("shake"));
    }));
    EXPECT_LT(farthest.x(), 200);
    EXPECT_EQ(window_.pos(), QPoint(200, 100));
}

TEST(Shake, GoesFourTimesToEachSide) {
    EXPECT_EQ(ShakeOffset(0), 0);
    EXPECT_EQ(ShakeOffset(1), 0);
    for (int swing = 0; swing < 4; ++swing) {
        EXPECT_NEAR(ShakeOffset((2 * swing + 1) / 9.0), -0.06, 1e-9);
        EXPECT_NEAR(ShakeOffset((2 * swing + 2) / 9.0), 0.06, 1e-9);
    }
    EXPECT_NEAR(ShakeOffset(1.5 / 9), 0, 1e-9);
}

class AlertsTest : public test_support::WindowTest {
 protected:
    QMessageBox& show(const Alert& alert) {
        QtAlerts(icons, &window_).show(alert, [this](int button) { answers_.push_back(button); });
        return *window_.findChildren<QMessageBox*>().last();
    }
    static QAbstractButton* named(const QMessageBox& box, const QString& title) {
        for (QAbstractButton* button : box.buttons())
            if (button->text().remove(u'&') == title) return button;
        return nullptr;
    }

    QWidget window_;
    std::vector<int> answers_;
    const Alert question_{"Settings",    "Remove <b>these</b> & those?", "It's <i>final</i>.",
                          {"No", "Yes"}, AlertStyle::Critical,           0};
};

TEST_F(AlertsTest, AreAnsweredByTheIndexOfTheButton) {
    named(show(question_), QStringLiteral("Yes"))->click();
    named(show(question_), QStringLiteral("No"))->click();
    QTest::keyClick(&show(question_), Qt::Key_Escape);
    show(question_).close();
    Alert other = question_;
    other.cancelButton = 1;
    QTest::keyClick(&show(other), Qt::Key_Return);
    QTest::keyClick(&show(other), Qt::Key_Escape);
    EXPECT_EQ(answers_, (std::vector<int>{1, 0, 0, 0, 0, 1}));
    QtAlerts(icons, &window_).show({"t", "m", {}, {"OK"}}, {});
    window_.findChildren<QMessageBox*>().last()->close();
}

TEST_F(AlertsTest, ShowTextsAsTheyAre) {
    QMessageBox& box = show(question_);
    EXPECT_EQ(box.windowModality(), Qt::WindowModal);
    EXPECT_FALSE(box.iconPixmap().isNull());
    int plain = 0;
    for (const QLabel* label : box.findChildren<QLabel*>()) {
        if (!label->text().contains(u'<')) continue;
        EXPECT_EQ(label->textFormat(), Qt::PlainText);
        ++plain;
    }
    EXPECT_EQ(plain, 2);
    box.close();
}

using FilePanelsTest = test_support::WindowTest;

TEST_F(FilePanelsTest, AnswerWithWhatIsChosenAndNothingWhenCancelled) {
    const std::string one = configuration.makeFile("one & <two>.txt", "1");
    QWidget window;
    std::vector<std::vector<std::string>> answers;
    for (const bool isChosen : {true, false}) {
        QtFilePanels(&window).chooseFiles({"Choose Files", "Exclude", true},
                                          [&](auto paths) { answers.push_back(std::move(paths)); });
        auto* dialog = window.findChildren<QFileDialog*>().last();
        EXPECT_EQ(dialog->windowTitle(), QStringLiteral("Choose Files"));
        EXPECT_EQ(dialog->labelText(QFileDialog::Accept), QStringLiteral("Exclude"));
        EXPECT_EQ(dialog->fileMode(), QFileDialog::ExistingFiles);
        dialog->selectFile(QString::fromStdString(one));
        static_cast<QDialog*>(dialog)->done(isChosen ? QDialog::Accepted : QDialog::Rejected);
    }
    EXPECT_EQ(answers, (std::vector<std::vector<std::string>>{{one}, {}}));
}

}  // namespace
