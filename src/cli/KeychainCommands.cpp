#include <fmt/format.h>
#include <fmt/ostream.h>
#include <ostream>
#include <random>

#include "cli/Commands.h"
#include "cli/ValueText.h"
#include "config/KeychainRemedy.h"
#include "foundation/system/LocalizedString.h"
#include "platform/Services.h"

namespace orv::cli {

namespace {

using quelm::GetLocalizedString;
using Keychain = platform::Keychain;
using Status = Keychain::Status;

struct Findings {
    bool service = false;
    bool unlocked = false;
    bool writable = false;
    /// What to do, or that there is nothing to do.
    std::string message;
};

/// A name that no item has, so that nothing of the user's is touched.
platform::GenericPasswordItem probeItem() {
    std::random_device random;
    return {"com.corvanta.orv.probe", fmt::format("{:08x}{:08x}", random(), random())};
}

/// Writes, reads and removes an item, without asking the user.
bool canKeepItem(Keychain& keychain) {
    constexpr auto interaction = Keychain::Interaction::Forbidden;
    const auto item = probeItem();
    const std::string written = "orvctl keychain check";
    if (keychain.create(item, item.service, {}, written, interaction) != Status::Done) return false;
    std::string secret;
    const bool kept = keychain.read(item, secret, interaction) == Status::Done && secret == written;
    return keychain.remove(item, interaction) == Status::Done && kept;
}

Findings check() {
    Findings findings;
    Keychain* const keychain = platform::ProcessServices().keychain.get();
    const Status state = keychain != nullptr ? keychain->state() : Status::Unavailable;
    findings.service = state != Status::Unavailable;
    findings.unlocked = state == Status::Done;
    findings.writable = findings.unlocked && canKeepItem(*keychain);
    findings.message = findings.writable
                           ? GetLocalizedString("Keychain.Works", "Passwords can be kept.")
                           : KeychainRemedy(findings.unlocked ? Status::Failed : state);
    return findings;
}

std::string yesOrNo(bool holds) {
    return holds ? GetLocalizedString("Cli.Yes", "yes") : GetLocalizedString("Cli.No", "no");
}

void printLines(std::ostream& out, const Findings& findings) {
    fmt::print(out, "{}: {}\n{}: {}\n{}: {}\n{}\n",
               GetLocalizedString("Keychain.Service", "Secret Service answers"),
               yesOrNo(findings.service), GetLocalizedString("Keychain.Unlocked", "Unlocked"),
               yesOrNo(findings.unlocked),
               GetLocalizedString("Keychain.Writable", "Items can be written and read back"),
               yesOrNo(findings.writable), findings.message);
}

}  // namespace

ExitCode CheckKeychain(const Arguments&, Console& console) {
    const Findings findings = check();
    if (console.json) {
        fmt::print(console.out, "{}\n",
                   ValueAsJson(quelm::Dictionary{{"service", findings.service},
                                                 {"unlocked", findings.unlocked},
                                                 {"writable", findings.writable},
                                                 {"message", findings.message}}));
    } else {
        printLines(console.out, findings);
    }
    return findings.writable ? ExitCode::Done : ExitCode::Failed;
}

}  // namespace orv::cli
