#include <algorithm>
#include <array>

#include "foundation/system/LocalizedString.h"
#include "support/web/WebApiResponse.h"

// What the service's response codes mean to the person.

namespace orv {

namespace {

struct Message {
    std::int32_t code;
    quelm::LocalizedText text;
};

constexpr quelm::LocalizedText invalidCredentials{"WebApiResponse.InvalidCredentials",
                                                  "Invalid credentials."};
constexpr std::array messages = {
    Message{1, {"WebApiResponse.UnknownCommand", "Unknown command."}},
    Message{2, invalidCredentials},
    Message{3, {"WebApiResponse.ParameterMissing", "Parameter missing."}},
    Message{4, {"WebApiResponse.AccountExists", "Account exists."}},
    Message{5, {"WebApiResponse.UnableToCreateAccount", "Unable to create account."}},
    Message{6, {"WebApiResponse.PhoneNumberInvalid", "Phone number format invalid."}},
    Message{7, invalidCredentials},
    Message{8, invalidCredentials},
    Message{9, {"WebApiResponse.InvalidFormat", "Invalid format for signup ID"}},
    Message{10, {"WebApiResponse.FailedToCreate", "Failed to create new account."}},
    Message{11, {"WebApiResponse.InvalidSignupID", "Invalid signup ID"}},
    Message{12, {"WebApiResponse.InvalidTimeZone", "Invalid timezone entered"}},
    Message{13, {"WebApiResponse.NoSkypeAccount", "No Skype account name was entered."}},
    Message{14,
            {"WebApiResponse.TheSignUpIDdoesntMatch", "The signup ID doesn't match the username."}},
    Message{20, {"WebApiResponse.ErrorOccuredSMS", "Error occurred while sending SMS message."}},
    Message{30, {"WebApiResponse.UnknownError", "An unknown error has occurred."}},
    Message{37,
            {"WebApiResponse.LockedAccount",
             "Your account has been locked for several minutes because of too many failed login "
             "attempts."}},
    Message{44, {"WebApiResponse.CaptchaError", "Server CAPTCHA error."}},
    Message{45, {"WebApiResponse.IncorrectCode", "Code entered incorrectly, please try again."}},
    Message{79, {"WebApiResponse.ComputerQuotaReached", "Your computer quota reached"}},
    Message{116,
            {"WebApiResponse.AccountPasswordLocked",
             "Account is password locked. Contact your administrator."}},
    Message{123,
            {"WebApiResponse.FSAComputerQuotaReached",
             "Loftmere Server count exceeded. Your account does not allow for the creation of more "
             "Loftmere Servers. Contact your team administrator"}},
};

}  // namespace

std::string QuelmWebApiResponse::errorMessageForCode(std::int32_t code,
                                                     const std::string& defaultMessage) {
    if (code == 0) return {};
    const auto found = std::ranges::find(messages, code, &Message::code);
    return found != messages.end()
               ? quelm::GetLocalizedString(found->text.key, found->text.defaultText)
               : defaultMessage;
}

}  // namespace orv
