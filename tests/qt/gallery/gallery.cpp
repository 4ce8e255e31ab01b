// Takes pictures of every window with sample values: gallery FOLDER [--longer]
// With --longer in a language whose texts are longer. With --first-paint it ends when the main
// window has been painted.

#include <QApplication>
#include <QDir>
#include <QMessageBox>
#include <QTimer>
#include <clocale>
#include <iostream>
#include <optional>

#include "foundation/system/ApplicationBundle.h"
#include "qt/LongerTexts.h"
#include "qt/SampleOutlets.h"
#include "qt/binding/FrameUpdates.h"
#include "qt/desktop/QtAlerts.h"
#include "qt/desktop/Screenshots.h"
#include "qt/looks/Icons.h"
#include "qt/looks/Theme.h"
#include "qt/texts/LocalizedTranslator.h"
#include "qt/windows/AdvancedSettingsWindow.h"
#include "qt/windows/ExcludeFiltersWindow.h"
#include "qt/windows/LeftOutWindow.h"
#include "qt/windows/MainWindow.h"
#include "qt/windows/OnlinePasswordWindow.h"
#include "qt/windows/SharingWindow.h"

namespace {

class EndAtPaint final : public QObject {
 protected:
    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        if (event->type() == QEvent::Paint) QTimer::singleShot(0, qApp, &QCoreApplication::quit);
        return false;
    }
};

QString suffix(orv::Appearance appearance) {
    return QString::fromLatin1(appearance == orv::Appearance::Dark ? "-dark" : "-light") +
           QStringLiteral("@%1").arg(qApp->devicePixelRatio());
}

QStringList alertPictures(const orv::WindowContext& context, QWidget& window, const QString& folder,
                          const QString& end) {
    orv::QtAlerts alerts(context.icons, &window);
    alerts.show(
        {"Tidewell Backup Settings",
         "WARNING",
         "All backup locations and settings will be lost by enabling the “Let the policy of "
         "my team choose what is backed up” option. Are you sure you want to continue?",
         {"Yes", "No"},
         orv::AlertStyle::Critical,
         1},
        {});
    alerts.show({"Tidewell Backup Settings", "Unable to run Account Setup.", {}, {"OK"}}, {});
    QStringList taken;
    for (QWidget* top : QApplication::topLevelWidgets())
        if (qobject_cast<QMessageBox*>(top))
            taken += orv::TakeScreenshots(*top, folder,
                                          QStringLiteral("alert%1").arg(taken.size()) + end);
    return taken;
}

QStringList sharingPictures(const orv::WindowContext& context, const QString& folder,
                            const QString& end) {
    test_support::SampleOutlets outlets;
    orv::SharingOutlets& shown = outlets.sharing;
    orv::SharingWindow sharing(context, shown, nullptr);
    orv::ExcludeFiltersWindow exclude(context, shown.exclude, &sharing);
    orv::LeftOutWindow leftOut(context, shown.leftOut, &sharing);
    for (orv::DialogWindow* window :
         {&shown._sharingWindow, &shown.exclude._excludeWindow, &shown.leftOut._leftOutWindow})
        window->orderFront();
    context.updates.flush();
    QStringList taken = orv::TakeScreenshots(sharing, folder, QStringLiteral("sharing") + end);
    taken += orv::TakeScreenshots(exclude, folder, QStringLiteral("exclude") + end);
    taken += orv::TakeScreenshots(leftOut, folder, QStringLiteral("left-out") + end);

    // as small as it gets, while nothing is computed and there is something to say
    shown._notice.setHidden(false);
    shown._notice.setStringValue("2 folders cannot be read. They are left out of the backup.");
    shown._spinner.stopAnimation();
    shown._progressText.setHidden(true);
    shown._onlyTheseButton.setOn(false);
    shown._allFilesButton.setOn(true);
    for (orv::CheckBox* box : {&shown._documentsButton, &shown._financialButton,
                               &shown._imagesButton, &shown._archivesButton,
                               &shown._databasesButton, &shown._musicButton, &shown._videoButton})
        box->setEnabled(false);
    shown._folderTree.selectItem(outlets.tree.root.children.front());
    shown.exclude._filterField.setStringValue("");
    shown.exclude._previewInfo.setHidden(true);
    shown.exclude._previewTable.setHidden(true);
    shown.exclude._addFilterButton.setEnabled(false);
    outlets.patterns.rows.clear();
    shown.exclude._excludeFiltersTable.reloadData();
    outlets.leftOut.rows.clear();
    shown.leftOut._leftOutTable.reloadData();
    shown.leftOut._indicator.startAnimation();
    context.updates.flush();
    for (QWidget* window : std::initializer_list<QWidget*>{&sharing, &exclude, &leftOut})
        window->resize(window->minimumSize());
    taken += orv::TakeScreenshots(sharing, folder, QStringLiteral("small-sharing") + end);
    taken += orv::TakeScreenshots(exclude, folder, QStringLiteral("small-exclude") + end);
    taken += orv::TakeScreenshots(leftOut, folder, QStringLiteral("small-left-out") + end);
    return taken;
}

void takeAll(const orv::WindowContext& context, const QString& folder, const QString& end) {
    test_support::SampleOutlets outlets;
    orv::MainWindow window(context, outlets.pane);
    orv::OnlinePasswordWindow password(context, outlets.password, &window);
    orv::AdvancedSettingsWindow advanced(context, outlets.advanced, &window);
    window.show();
    outlets.password._enterPasswordWindow.orderFront();
    outlets.advanced._advancedSettingsWindow.orderFront();
    outlets.password._indicator.startAnimation();
    context.updates.flush();
    QStringList taken = orv::TakeScreenshots(window, folder, QStringLiteral("main") + end);
    taken += orv::TakeScreenshots(password, folder, QStringLiteral("password") + end);
    taken += orv::TakeScreenshots(advanced, folder, QStringLiteral("advanced") + end);

    // a bad day
    outlets.pane._settingsNotice.setText(
        {"The settings file of account “Workshop” is damaged. Its defaults are used. Show it",
         {{79, 7, "orv:settings", ""}}});
    outlets.pane._settingsNotice.setHidden(false);
    outlets.pane._headline.setText(
        {"Backup stopped: the storage is full. Get more storage", {{37, 16, "orv:dashboard", ""}}});
    outlets.pane._headlineImage.setImageName("permissionViolation");
    outlets.pane._connectButton.setTitle("Connect");
    outlets.pane._connectionStatus.setStringValue("Anna Weber disconnected");
    outlets.pane._connectionInfo.setStringValue("The server cannot be reached.");
    outlets.pane._connectedFSA.setHidden(true);
    outlets.pane._accountsButton.setTitles({"Default"});
    outlets.folders.rows.clear();
    outlets.pane._foldersList.reloadData();
    outlets.pane._manageBackupsButton.setEnabled(false);
    outlets.pane._removeFolderButton.setEnabled(false);
    outlets.pane._backupPolicyButton.setOn(true);
    outlets.pane._backupPolicyButton.setEnabled(false);
    outlets.pane._restoreProgressButton.setHidden(false);
    outlets.advanced._lockedNotice.setHidden(false);
    outlets.advanced._lockedNotice.setStringValue("Your administrator has locked these settings.");
    outlets.pane._keychainNotice.setHidden(false);
    outlets.pane._keychainNotice.setStringValue(
        "Passwords cannot be kept: no program of this session keeps them. Install gnome-keyring.");
    outlets.password._message.setHidden(false);
    outlets.password._message.setStringValue("Invalid credentials.");
    outlets.password._indicator.stopAnimation();
    for (auto* box : {&outlets.advanced._showNotifications, &outlets.advanced._smartLocking})
        box->setEnabled(false);
    context.updates.flush();
    taken += orv::TakeScreenshots(window, folder, QStringLiteral("bad-main") + end);
    taken += orv::TakeScreenshots(advanced, folder, QStringLiteral("bad-advanced") + end);
    taken += orv::TakeScreenshots(password, folder, QStringLiteral("bad-password") + end);
    taken += sharingPictures(context, folder, end);
    taken += alertPictures(context, window, folder, end);
    for (const QString& path : taken)
        std::cout << path.toStdString() << '\n';
}

int showUntilPainted(const orv::WindowContext& context) {
    test_support::SampleOutlets outlets;
    orv::MainWindow window(context, outlets.pane);
    EndAtPaint end;
    window.installEventFilter(&end);
    window.show();
    return QApplication::exec();
}

}  // namespace

int main(int argc, char** argv) {
    const quelm::Bundle bundle(quelm::FindResourcesFolder(), quelm::PreferredLanguages());
    quelm::SetApplicationBundle(&bundle);
    QApplication application(argc, argv);
    std::setlocale(LC_NUMERIC, "C");
    const orv::Appearance appearance = orv::PreferredAppearance(QApplication::palette());
    orv::ApplyTheme(application, appearance);
    orv::LocalizedTranslator texts;
    QCoreApplication::installTranslator(&texts);
    orv::FrameUpdates updates;
    const orv::Icons icons(QString::fromStdString(bundle.resourcesFolder()), appearance);
    const orv::WindowContext context{updates, icons, [](const std::string& address) {
                                         std::cout << "link " << address << '\n';
                                     }};
    const QStringList words = QCoreApplication::arguments();
    const bool isLonger = words.size() == 3 && words[2] == QLatin1String("--longer");
    if (words.size() != 2 && !isLonger) {
        std::cerr << "usage: gallery FOLDER [--longer] | --first-paint\n";
        return 2;
    }
    std::optional<test_support::LongerTexts> language;
    if (isLonger) language.emplace();
    if (words[1] == QLatin1String("--first-paint")) return showUntilPainted(context);
    QDir().mkpath(words[1]);
    takeAll(context, words[1], suffix(appearance));
    return 0;
}
