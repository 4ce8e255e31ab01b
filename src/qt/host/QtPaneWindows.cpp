#include "qt/host/QtPaneWindows.h"

#include <QWidget>

#include "backup/sharing/SharingOutlets.h"
#include "qt/windows/AdvancedSettingsWindow.h"
#include "qt/windows/ExcludeFiltersWindow.h"
#include "qt/windows/LeftOutWindow.h"
#include "qt/windows/OnlinePasswordWindow.h"
#include "qt/windows/SharingWindow.h"

namespace orv {

QtPaneWindows::QtPaneWindows(const WindowContext& context, QWidget& mainWindow)
    : context_(context), mainWindow_(mainWindow) {}
QtPaneWindows::~QtPaneWindows() = default;

void QtPaneWindows::showOnlinePassword(OnlinePasswordOutlets& outlets) {
    password_ = std::make_unique<OnlinePasswordWindow>(context_, outlets, &mainWindow_);
}

void QtPaneWindows::showAdvancedSettings(AdvancedSettingsOutlets& outlets) {
    if (!advanced_)
        advanced_ = std::make_unique<AdvancedSettingsWindow>(context_, outlets, &mainWindow_);
}

void QtPaneWindows::showSharing(SharingOutlets& outlets) {
    release(outlets);
    sharing_ = std::make_unique<SharingWindow>(context_, outlets, &mainWindow_);
    exclude_ = std::make_unique<ExcludeFiltersWindow>(context_, outlets.exclude, sharing_.get());
    leftOut_ = std::make_unique<LeftOutWindow>(context_, outlets.leftOut, sharing_.get());
}

void QtPaneWindows::release(OnlinePasswordOutlets& /*outlets*/) {
    password_.reset();
}

void QtPaneWindows::release(AdvancedSettingsOutlets& /*outlets*/) {
    advanced_.reset();
}

void QtPaneWindows::release(SharingOutlets& /*outlets*/) {
    leftOut_.reset();
    exclude_.reset();
    sharing_.reset();
}

void QtPaneWindows::activate() {
    if (mainWindow_.isMinimized()) mainWindow_.showNormal();
    mainWindow_.show();
    mainWindow_.raise();
    mainWindow_.activateWindow();
}

}  // namespace orv
