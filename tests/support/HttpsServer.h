#pragma once

#include <string>
#include <string_view>

#include "support/ChildProcess.h"
#include "support/ScopedEnvironment.h"
#include "support/TemporaryFolder.h"

namespace test_support {

/// A key and a certificate that it signed itself for the host "localhost".
struct SelfSigned {
    /// Makes both in a folder, with the program openssl.
    SelfSigned(const TemporaryFolder& folder, const std::string& name);

    // Paths of PEM files; empty ones when there is no openssl.
    std::string key;
    std::string certificate;
    /// Of the key, "sha256//BASE64".
    std::string pin;
};

/// A local server, which tests/peers/https_server.py describes, and an environment without
/// proxies. It is stopped with this. While no other thread runs.
class HttpsServer {
 public:
    /// False when python3 or openssl is missing, and then the test is to be skipped.
    [[nodiscard]] bool start();

    /// "https://localhost:PORT" and the path.
    [[nodiscard]] std::string secure(std::string_view path = "") const;
    /// The same server by the other name, which its certificate does not have.
    [[nodiscard]] std::string secureByNumber(std::string_view path = "") const;
    /// "http://127.0.0.1:PORT" and the path.
    [[nodiscard]] std::string plain(std::string_view path = "") const;
    [[nodiscard]] const SelfSigned& identity() const { return identity_; }
    [[nodiscard]] const TemporaryFolder& folder() const { return folder_; }

 private:
    TemporaryFolder folder_;
    SelfSigned identity_{folder_, "server"};
    ScopedEnvironment noProxy_{"no_proxy", "*"};
    ChildProcess process_;
    std::string securePort_;
    std::string plainPort_;
};

}  // namespace test_support
