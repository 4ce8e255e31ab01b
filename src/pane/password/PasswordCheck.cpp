#include "pane/password/PasswordCheck.h"

#include "support/web/HttpParameter.h"

namespace orv {

HTTPConnection::Parameters VerifyAccountCommand(const orvAgentSettings& settings,
                                                const std::string& password) {
    return {{"command", "verifyAccount"},
            {"username", EncodeHttpParameter(settings.email())},
            {"password", EncodeHttpParameter(password)}};
}

}  // namespace orv
