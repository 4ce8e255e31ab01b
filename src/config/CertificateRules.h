#pragma once

#include <string>

#include "platform/Value.h"

namespace orv {

/// Which servers the program talks to by their certificates. As it stands: any.
struct CertificateRules {
    /// Absolute path of a PEM bundle that vouches for the server and its name; "" for no such rule.
    std::string authorities = {};
    /// "sha256//BASE64" of the server's public key, several with ";" between; "" for no such rule.
    std::string pin = {};
    /// A rule was meant and cannot be told: then there is no server to talk to.
    bool areMalformed = false;

    /// Whether a server has to prove anything.
    [[nodiscard]] bool areSet() const {
        return areMalformed || !authorities.empty() || !pin.empty();
    }
};

/// From the keys "certificate_authorities" and "certificate_pin", with a line in the log for a
/// value that is malformed.
[[nodiscard]] CertificateRules ReadCertificateRules(const quelm::Dictionary& values);

}  // namespace orv
