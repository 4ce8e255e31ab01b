#pragma once

#include <QPointer>
#include <QWidget>

#include "widgets/FilePanels.h"

namespace orv {

/// The desktop's file dialogs on the window that the person works in, else on the main window. One
/// whose window is destroyed is not answered any more.
class QtFilePanels final : public FilePanels {
 public:
    /// The window may be null.
    explicit QtFilePanels(QWidget* mainWindow) : mainWindow_(mainWindow) {}

    void chooseFiles(const OpenPanel& panel,
                     std::function<void(std::vector<std::string> paths)> chosen) override;

 private:
    QPointer<QWidget> mainWindow_;
};

}  // namespace orv
