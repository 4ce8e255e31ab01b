#pragma once

#include <chrono>
#include <cstddef>
#include <optional>
#include <string>

#include "config/Deployment.h"

namespace orv {

/// Why there is no reply. Neither holds the request's address.
struct HttpError {
    /// As libcurl numbers it (CURLcode).
    int code = 0;
    /// In English, for the log.
    std::string description;
};

struct HttpOptions {
    /// For the whole request: name look-up, redirects and the last byte of the reply.
    std::chrono::milliseconds timeLimit = std::chrono::seconds(30);
    std::size_t mostBodyBytes = std::size_t{1} << 20U;
    std::size_t mostHeaderBytes = std::size_t{64} << 10U;
    int mostRedirects = 10;
    CertificateRules certificates = CurrentDeployment().certificates;
};

/// What became of a request.
struct HttpReply {
    /// None for every reply of a server, whatever its status.
    std::optional<HttpError> error = {};
    /// HTTP status code, 0 before one came.
    int status = 0;
    std::string body = {};
    /// The last one asked.
    std::string address = {};
};

}  // namespace orv
