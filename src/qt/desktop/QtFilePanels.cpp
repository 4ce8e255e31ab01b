#include "qt/desktop/QtFilePanels.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <utility>

#include "qt/binding/ShownText.h"
#include "qt/elements/MakeChild.h"

namespace orv {

namespace {

std::vector<std::string> pathsOf(const QStringList& files) {
    std::vector<std::string> paths;
    for (const QString& file : files)
        paths.push_back(QFile::encodeName(file).toStdString());
    return paths;
}

}  // namespace

void QtFilePanels::chooseFiles(const OpenPanel& panel,
                               std::function<void(std::vector<std::string> paths)> chosen) {
    QWidget* active = QApplication::activeWindow();
    auto* dialog = MakeChild<QFileDialog>(active ? active : mainWindow_.data());
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setWindowTitle(ShownLine(panel.title));
    dialog->setLabelText(QFileDialog::Accept, ShownLine(panel.prompt));
    dialog->setFileMode(panel.allowsSeveral ? QFileDialog::ExistingFiles
                                            : QFileDialog::ExistingFile);
    dialog->setOption(QFileDialog::DontResolveSymlinks);
    dialog->setDirectory(QDir::home());
    QObject::connect(
        dialog, &QDialog::finished, dialog, [dialog, chosen = std::move(chosen)](int result) {
            const bool isChosen = result == QDialog::Accepted;
            chosen(isChosen ? pathsOf(dialog->selectedFiles()) : std::vector<std::string>());
        });
    dialog->open();
}

}  // namespace orv
