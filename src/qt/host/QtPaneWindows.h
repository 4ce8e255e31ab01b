#pragma once

#include <memory>

#include "pane/PaneWindows.h"
#include "qt/binding/WindowContext.h"

class QWidget;

namespace orv {

class AdvancedSettingsWindow;
class ExcludeFiltersWindow;
class LeftOutWindow;
class OnlinePasswordWindow;
class SharingWindow;

/// The windows beside the panel's own, as children of it.
class QtPaneWindows final : public PaneWindows {
 public:
    /// Both outlive it.
    QtPaneWindows(const WindowContext& context, QWidget& mainWindow);
    ~QtPaneWindows() override;

    void showOnlinePassword(OnlinePasswordOutlets& outlets) override;
    void showAdvancedSettings(AdvancedSettingsOutlets& outlets) override;
    void showSharing(SharingOutlets& outlets) override;
    void release(OnlinePasswordOutlets& outlets) override;
    void release(AdvancedSettingsOutlets& outlets) override;
    void release(SharingOutlets& outlets) override;
    void activate() override;

 private:
    const WindowContext& context_;
    QWidget& mainWindow_;
    std::unique_ptr<OnlinePasswordWindow> password_;
    std::unique_ptr<AdvancedSettingsWindow> advanced_;
    std::unique_ptr<SharingWindow> sharing_;
    // on it, so they go first
    std::unique_ptr<ExcludeFiltersWindow> exclude_;
    std::unique_ptr<LeftOutWindow> leftOut_;
};

}  // namespace orv
