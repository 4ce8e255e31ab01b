#pragma once

#include <memory>

#include "pane/PaneWindows.h"
#include "qt/binding/WindowContext.h"

class QWidget;

namespace orv {

class AdvancedSettingsWindow;
class OnlinePasswordWindow;

/// The windows beside the panel's own, as children of it.
class QtPaneWindows final : public PaneWindows {
 public:
    /// Both outlive it.
    QtPaneWindows(const WindowContext& context, QWidget& mainWindow);
    ~QtPaneWindows() override;

    void showOnlinePassword(OnlinePasswordOutlets& outlets) override;
    void showAdvancedSettings(AdvancedSettingsOutlets& outlets) override;
    void release(OnlinePasswordOutlets& outlets) override;
    void release(AdvancedSettingsOutlets& outlets) override;
    void activate() override;

 private:
    const WindowContext& context_;
    QWidget& mainWindow_;
    std::unique_ptr<OnlinePasswordWindow> password_;
    std::unique_ptr<AdvancedSettingsWindow> advanced_;
};

}  // namespace orv
