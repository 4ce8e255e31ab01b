#include "pane/password/OnlinePasswordController.h"

#include <utility>

#include "agentlink/AgentNotifications.h"
#include "agentlink/AgentVocabulary.h"
#include "config/ConfigurationPath.h"
#include "config/UpdateSettings.h"
#include "foundation/system/LocalizedString.h"
#include "foundation/system/Log.h"
#include "pane/password/PasswordCheck.h"
#include "support/ApplicationNames.h"
#include "support/web/HttpParameter.h"
#include "support/web/WebApiResponse.h"

namespace orv {

using quelm::GetLocalizedString;

namespace {

constexpr int succeeded = 1;
constexpr int cancelled = 0;

orvAgentSettings& settingsOf(Account* account, AccountList& accounts) {
    return account ? account->agentSettings() : accounts.defaultConfig();
}

Alert invalidResponse() {
    return {.title = GetLocalizedString("WebApiResponse.FatalError", "Fatal error"),
            .message = GetLocalizedString("WebApiResponse.InvalidResponse",
                                          "Invalid response from server."),
            .informativeText = {},
            .buttons = {GetLocalizedString("WebApiResponse.OK", "OK")},
            .style = AlertStyle::Critical};
}

Alert connectionError() {
    return {.title = {},
            .message = GetLocalizedString("OnlinePassword.ConnectionError", "Connection error."),
            .informativeText = GetLocalizedString("OnlinePassword.ConnectionErrorDetail",
                                                  "Please check your connection and retry."),
            .buttons = {GetLocalizedString("PrefPane.OK", "OK")}};
}

Alert notRemembered() {
    return {.title = {},
            .message = GetLocalizedString("OnlinePassword.NotRemembered",
                                          "The password is right, but the settings cannot be "
                                          "stored: you will be asked for it again."),
            .informativeText = {},
            .buttons = {GetLocalizedString("PrefPane.OK", "OK")}};
}

}  // namespace

OnlinePasswordController::OnlinePasswordController(const Environment& environment, Account* account)
    : environment_(environment), _settings(settingsOf(account, environment.accounts)) {
    outlets_._okButton.setAction([this] { okButtonPressed(); });
    outlets_._cancelButton.setAction([this] { cancelButtonPressed(); });
    outlets_._enterPasswordWindow.setCloseAction([this] { cancelButtonPressed(); });
    awakeFromNib();
}

OnlinePasswordController::~OnlinePasswordController() {
    endWith(cancelled);
    environment_.windows.release(outlets_);
}

void OnlinePasswordController::awakeFromNib() {
    outlets_._firstLine.setStringValue(quelm::FormatLocalizedString(
        "OnlinePassword.EnterPassword", "Enter your %@ password:", {ApplicationLongName}));
    outlets_._rememberPassword.setEnabled(!_settings.agentConfigLockedEnabled());
    outlets_._message.setHidden(true);
    if (!_disableRememberPassword) return;
    outlets_._rememberPassword.setOn(true);
    outlets_._rememberPassword.setEnabled(false);
}

void OnlinePasswordController::disableRememberPassword() {
    _disableRememberPassword = true;
    awakeFromNib();
}

bool OnlinePasswordController::checkPassword() {
    if (!_settings.askForPassword()) return true;
    isOpen_ = true;
    environment_.windows.activate();
    environment_.windows.showOnlinePassword(outlets_);
    outlets_._enterPasswordWindow.orderFront();
    const std::weak_ptr life(life_);
    const bool isAccepted = environment_.runLoop.runModal() == succeeded;
    if (!life.expired()) isOpen_ = false;  // also when the whole program ends
    return isAccepted;
}

void OnlinePasswordController::okButtonPressed() {
    if (!isOpen_ || outlets_._indicator.isAnimating()) return;
    setBusy(true);
    verifyPassword(outlets_._password.stringValue());
}

void OnlinePasswordController::setBusy(bool isBusy) {
    if (isBusy) {
        outlets_._indicator.startAnimation();
        outlets_._message.setHidden(true);
    } else {
        outlets_._indicator.stopAnimation();
    }
    outlets_._okButton.setEnabled(!isBusy);
    outlets_._password.setEnabled(!isBusy);
}

/// The server's name is in a file.
void OnlinePasswordController::verifyPassword(const std::string& password) {
    auto url = std::make_shared<std::string>();
    environment_.background.perform(
        [url, file = GetConfigurationPath(orvUpdateSettings::defaultFilename)] {
            orvUpdateSettings servers;
            static_cast<void>(servers.loadSettingsFromFile(file));
            *url = BaseUrlOf(servers.apiServerName());
        },
        [this, life = std::weak_ptr(life_), url, password] {
            if (!life.expired() && isOpen_) send(*url, password);
        });
}

void OnlinePasswordController::send(const std::string& baseUrl, const std::string& password) {
    _connection =
        std::make_unique<HTTPConnection>(environment_.runLoop, baseUrl, environment_.http);
    _connection->sendCommand(
        VerifyAccountCommand(_settings, password),
        [this](const std::string& data) { passwordCheckDone(std::string(data)); },
        [this](const std::optional<HttpError>&) { receiveError(); });
}

void OnlinePasswordController::passwordCheckDone(const std::string& data) {
    _connection.reset();
    setBusy(false);
    const auto response = QuelmWebApiResponse::responseWithData(data);
    if (!response) return environment_.alerts.show(invalidResponse(), {});
    if (response->responseCode() == 0) return accept();
    outlets_._message.setStringValue(QuelmWebApiResponse::errorMessageForCode(
        response->responseCode(),
        GetLocalizedString("OnlinePassword.Refused", "The password was not accepted.")));
    outlets_._message.setHidden(false);
    outlets_._enterPasswordWindow.shakeWindow();
    outlets_._password.selectText();
}

void OnlinePasswordController::accept() {
    if (outlets_._rememberPassword.isOn() && outlets_._rememberPassword.isEnabled())
        storeRemembered();
    endWith(succeeded);
}

/// The account and the alerts outlive the window that is closing.
void OnlinePasswordController::storeRemembered() {
    _settings.setAskForPassword(false);
    auto settings = std::make_shared<orvAgentSettings>(_settings);
    auto isStored = std::make_shared<bool>(false);
    environment_.background.perform(
        [settings, isStored] {
            static_cast<void>(settings->load());  // what others wrote meanwhile stays
            settings->setAskForPassword(false);
            *isStored = settings->store();
        },
        [isStored, &shown = _settings, &alerts = environment_.alerts] {
            if (*isStored) return NotifyAgentSettingsChanged("1", HintAgentSettings);
            shown.setAskForPassword(true);
            alerts.show(notRemembered(), {});
        });
}

void OnlinePasswordController::receiveError() {
    _connection.reset();
    setBusy(false);
    environment_.alerts.show(connectionError(), {});
}

void OnlinePasswordController::cancelButtonPressed() {
    if (_connection) _connection->cancel();
    _connection.reset();
    endWith(cancelled);
}

void OnlinePasswordController::endWith(int result) {
    if (!std::exchange(isOpen_, false)) return;
    outlets_._enterPasswordWindow.close();
    environment_.runLoop.stopModal(result);
}

}  // namespace orv
