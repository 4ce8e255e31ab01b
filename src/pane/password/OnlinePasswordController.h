#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "accounts/AccountList.h"
#include "foundation/threads/Background.h"
#include "pane/PaneWindows.h"
#include "platform/RunLoop.h"
#include "support/web/HTTPConnection.h"
#include "widgets/Alerts.h"

namespace orv {

/// Asks for the account's password and has the service check it. Lives for one check. Main thread
/// only.
class OnlinePasswordController {
 public:
    /// What it works with; all outlive it.
    struct Environment {
        platform::RunLoop& runLoop;
        quelm::Background& background;
        Alerts& alerts;
        PaneWindows& windows;
        AccountList& accounts;
        HttpOptions http = {};
    };

    /// Without an account the default configuration's settings decide.
    OnlinePasswordController(const Environment& environment, Account* account);
    OnlinePasswordController(const OnlinePasswordController&) = delete;
    OnlinePasswordController& operator=(const OnlinePasswordController&) = delete;
    /// A check that is under way ends as if it was cancelled.
    ~OnlinePasswordController();

    /// The check always asks again next time.
    void disableRememberPassword();
    /// Whether the person knows the password, or need not know it. Runs the run loop until the
    /// window is closed; timers and events go on.
    [[nodiscard]] bool checkPassword();

    // What the window's buttons do.
    void okButtonPressed();
    void cancelButtonPressed();

    [[nodiscard]] OnlinePasswordOutlets& outlets() { return outlets_; }

 private:
    void awakeFromNib();
    void verifyPassword(const std::string& password);
    void send(const std::string& baseUrl, const std::string& password);
    void passwordCheckDone(const std::string& data);
    void receiveError();
    void setBusy(bool isBusy);
    void accept();
    void storeRemembered();
    void endWith(int result);

    Environment environment_;
    OnlinePasswordOutlets outlets_;
    orvAgentSettings& _settings;
    std::unique_ptr<HTTPConnection> _connection;
    bool _disableRememberPassword = false;
    bool isOpen_ = false;
    std::shared_ptr<bool> life_ = std::make_shared<bool>(true);
};

}  // namespace orv
