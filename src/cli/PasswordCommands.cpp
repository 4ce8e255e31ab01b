#include <fmt/ostream.h>
#include <ostream>

#include "accounts/AccountList.h"
#include "cli/Commands.h"
#include "cli/Complaint.h"
#include "cli/HiddenInput.h"
#include "cli/ValueText.h"
#include "foundation/system/LocalizedString.h"
#include "pane/password/PasswordCheck.h"
#include "platform/Services.h"
#include "support/ApplicationNames.h"
#include "support/web/WebApiResponse.h"

namespace orv::cli {

namespace {

using quelm::GetLocalizedString;

struct Outcome {
    bool isAccepted = false;
    std::string message;
};

Outcome outcomeOf(const std::string& data) {
    const auto response = QuelmWebApiResponse::responseWithData(data);
    if (!response) {
        return {false, GetLocalizedString("WebApiResponse.InvalidResponse",
                                          "Invalid response from server.")};
    }
    if (response->responseCode() == 0)
        return {true, GetLocalizedString("Password.Right", "The password is right.")};
    return {false,
            QuelmWebApiResponse::errorMessageForCode(
                response->responseCode(),
                GetLocalizedString("OnlinePassword.Refused", "The password was not accepted."))};
}

Outcome check(const std::string& password) {
    HTTPConnection connection(*platform::ProcessServices().runLoop, HTTPConnection::apiBaseUrl());
    connection.setSynchronous(true);
    Outcome outcome;
    connection.sendCommand(
        VerifyAccountCommand(AccountList::defaultAccountList().defaultConfig(), password),
        [&](const std::string& data) { outcome = outcomeOf(data); },
        [&](const std::optional<HttpError>&) {
            outcome.message =
                GetLocalizedString("OnlinePassword.ConnectionError", "Connection error.") + " " +
                GetLocalizedString("OnlinePassword.ConnectionErrorDetail",
                                   "Please check your connection and retry.");
        });
    return outcome;
}

}  // namespace

ExitCode CheckPassword(const Arguments&, Console& console) {
    const auto password = ReadHiddenLine(
        console, quelm::FormatLocalizedString("OnlinePassword.EnterPassword",
                                              "Enter your %@ password:", {ApplicationLongName}));
    if (!password) {
        return Fail(console, ExitCode::Failed,
                    GetLocalizedString("Password.None", "No password was entered."));
    }
    const Outcome outcome = check(*password);
    if (console.json) {
        fmt::print(console.out, "{}\n",
                   ValueAsJson(quelm::Dictionary{{"accepted", outcome.isAccepted},
                                                 {"message", outcome.message}}));
    } else {
        Say(console, outcome.message);
    }
    return outcome.isAccepted ? ExitCode::Done : ExitCode::Failed;
}

}  // namespace orv::cli
