#include "support/HttpsServer.h"

#include <sstream>

namespace test_support {

namespace {

constexpr const char* python = "/usr/bin/python3";
constexpr const char* openssl = "/usr/bin/openssl";

std::string withPath(std::string origin, std::string_view path) {
    return origin.append(path);
}

std::string printedBy(const TemporaryFolder& folder, const std::string& shellCommand) {
    const std::string output = folder / "printed";
    const int status = RunProgram({.words = {"/bin/sh", "-c", shellCommand}, .outputFile = output});
    return status == 0 ? ContentOf(output) : "";
}

}  // namespace

SelfSigned::SelfSigned(const TemporaryFolder& folder, const std::string& name)
    : key(folder / name + ".key"), certificate(folder / name + ".pem") {
    const int status = RunProgram(
        {.words = {openssl, "req", "-x509", "-newkey", "ec", "-pkeyopt", "ec_paramgen_curve:P-256",
                   "-nodes", "-keyout", key, "-out", certificate, "-days", "2", "-subj",
                   "/CN=localhost", "-addext", "subjectAltName=DNS:localhost"}});
    if (status != 0) return;
    pin = "sha256//" + printedBy(folder, "openssl pkey -in '" + key +
                                             "' -pubout -outform der | openssl dgst -sha256 "
                                             "-binary | openssl base64 -A");
}

bool HttpsServer::start() {
    const std::string output = folder_ / "ports";
    if (identity_.pin.empty() ||
        !process_.start({.words = {python, HTTPS_SERVER, identity_.certificate, identity_.key},
                         .outputFile = output})) {
        return false;
    }
    const auto hasLine = [&] { return ContentOf(output).ends_with('\n'); };
    if (!WaitUntil([&] { return hasLine() || process_.ended(); }) || !hasLine()) return false;
    std::istringstream(ContentOf(output)) >> securePort_ >> plainPort_;
    return !plainPort_.empty();
}

std::string HttpsServer::secure(std::string_view path) const {
    return withPath("https://localhost:" + securePort_, path);
}

std::string HttpsServer::secureByNumber(std::string_view path) const {
    return withPath("https://127.0.0.1:" + securePort_, path);
}

std::string HttpsServer::plain(std::string_view path) const {
    return withPath("http://127.0.0.1:" + plainPort_, path);
}

}  // namespace test_support
