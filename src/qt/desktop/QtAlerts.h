#pragma once

#include <QPointer>
#include <QWidget>

#include "widgets/Alerts.h"

namespace orv {

class Icons;

/// Message boxes on the window that the person works in, else on the main window. One whose window
/// is destroyed is not answered any more.
class QtAlerts final : public Alerts {
 public:
    /// The icons outlive it; the window may be null.
    QtAlerts(const Icons& icons, QWidget* mainWindow) : icons_(&icons), mainWindow_(mainWindow) {}

    void show(const Alert& alert, std::function<void(int button)> answered) override;

 private:
    const Icons* icons_;
    QPointer<QWidget> mainWindow_;
};

}  // namespace orv
