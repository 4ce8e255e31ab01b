#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "agentlink/AgentEventQueue.h"
#include "foundation/threads/WatchedBackground.h"
#include "pane/PreferencePane.h"
#include "pane/agent/LocalAgentApplication.h"
#include "qt/binding/FrameUpdates.h"
#include "qt/binding/WindowContext.h"
#include "qt/desktop/QtAlerts.h"
#include "qt/desktop/QtClipboard.h"
#include "qt/desktop/QtFilePanels.h"
#include "qt/host/QtPaneWindows.h"
#include "qt/looks/Icons.h"
#include "qt/windows/MainWindow.h"

namespace orv {

/// Violations are listed nowhere yet.
class NoViolations final : public ViolationCount {
 public:
    [[nodiscard]] std::int64_t numberOfViolations() const override { return 0; }
};

/// The panel with its window, and all that both work with. The application object exists, with
/// theme and texts, and so do the process's services. Main thread only.
class PanelHost {
 public:
    /// The bundle outlives it.
    PanelHost(const quelm::Bundle& bundle, Appearance appearance);
    PanelHost(const PanelHost&) = delete;
    PanelHost& operator=(const PanelHost&) = delete;
    /// Stores what was changed, for at most ten seconds.
    ~PanelHost();

    /// Called with the window before it is shown.
    void setWindowMade(std::function<void(QWidget& window)> made) { windowMade_ = std::move(made); }
    /// Reads the accounts, then makes the panel, shows its window and calls `started`. While
    /// another program holds the settings the person is told so.
    void start(std::function<void()> started);
    /// Brings the window to the front and goes where the link leads; empty for nowhere.
    void open(const std::string& address);

    [[nodiscard]] MainWindow& window() { return *window_; }
    [[nodiscard]] PaneOutlets& outlets() { return outlets_; }
    [[nodiscard]] orvPreferencePane& pane() { return *pane_; }
    [[nodiscard]] const WindowContext& context() const { return context_; }

 private:
    void makePanel(AccountList::Accounts accounts);
    void endWithoutThreads(bool isStored);
    void protectAccounts(const AccountList& accounts) const;

    const quelm::Bundle& bundle_;
    platform::Services& services_;
    AgentEventSession session_;
    quelm::BackgroundThread files_;
    quelm::WatchedBackground watchedFiles_;
    quelm::BackgroundThread busAndKeychain_;
    quelm::BackgroundThread folders_;
    quelm::BackgroundThread scans_;
    quelm::BackgroundThread hidden_;
    FrameUpdates updates_;
    Icons icons_;
    WindowContext context_;
    PaneOutlets outlets_;
    QtClipboard clipboard_;
    NoViolations violations_;
    std::optional<LocalAgentApplication> application_;
    std::unique_ptr<MainWindow> window_;
    std::optional<QtAlerts> alerts_;
    std::optional<QtFilePanels> filePanels_;
    std::optional<QtPaneWindows> windows_;
    std::unique_ptr<orvPreferencePane> pane_;
    std::function<void(QWidget& window)> windowMade_;
    /// What is to be opened as soon as there is a panel.
    std::string waitingAddress_;
};

}  // namespace orv
