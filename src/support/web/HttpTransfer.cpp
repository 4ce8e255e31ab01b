#include "support/web/HttpTransfer.h"

#include <utility>

namespace orv {

namespace {

constexpr const char* secureOnly = "https";

HttpReply failure(CURLcode code, std::string description, const std::string& address,
                  int status = 0) {
    return {.error = HttpError{static_cast<int>(code), std::move(description)},
            .status = status,
            .address = address};
}

std::string descriptionOf(const CurlLibrary& curl, CURLcode code) {
    if (code == CURLE_SSL_CACERT_BADFILE) {
        return "The file of the deployment's \"certificate_authorities\" cannot be used.";
    }
    return curl.curl_easy_strerror(code);
}

}  // namespace

HttpTransfer::HttpTransfer(std::string address, HttpOptions options)
    : address_(std::move(address)),
      options_(std::move(options)),
      deadline_(std::chrono::steady_clock::now() + options_.timeLimit) {}

HttpReply HttpTransfer::run() {
    if (options_.certificates.areMalformed) {
        return failure(CURLE_PEER_FAILED_VERIFICATION,
                       "The deployment's rules for certificates are malformed.", address_);
    }
    const CurlLibrary* const curl = LoadCurl();
    if (curl == nullptr) {
        return failure(CURLE_FAILED_INIT,
                       "libcurl.so.4 cannot be used. Install the package libcurl4.", address_);
    }
    CurlLoop loop(*curl);
    setRunning(&loop);
    HttpReply reply = follow(*curl, loop);
    setRunning(nullptr);
    return reply;
}

HttpReply HttpTransfer::follow(const CurlLibrary& curl, CurlLoop& loop) {
    std::string address = address_;
    const char* schemes = firstSchemes();
    for (int redirects = 0; redirects <= options_.mostRedirects; ++redirects) {
        HttpHop hop(curl, options_);
        const CURLcode code = hop.perform(loop, address, schemes, left(), isCancelled_);
        if (code != CURLE_OK) {
            return failure(code, descriptionOf(curl, code), address, hop.status());
        }
        std::string next = hop.redirect();
        if (next.empty()) {
            return {.status = hop.status(), .body = std::move(hop.body()), .address = address};
        }
        if (hop.wasSecure()) schemes = secureOnly;
        address = std::move(next);
    }
    return failure(CURLE_TOO_MANY_REDIRECTS, descriptionOf(curl, CURLE_TOO_MANY_REDIRECTS),
                   address);
}

/// A server without a certificate has nothing that a rule could check.
const char* HttpTransfer::firstSchemes() const {
    return options_.certificates.areSet() ? secureOnly : "http,https";
}

std::chrono::milliseconds HttpTransfer::left() const {
    return std::chrono::ceil<std::chrono::milliseconds>(deadline_ -
                                                        std::chrono::steady_clock::now());
}

void HttpTransfer::cancel() {
    const std::lock_guard lock(mutex_);
    isCancelled_ = true;
    if (running_ != nullptr) running_->wake();
}

void HttpTransfer::unlessCancelled(const std::function<void()>& task) {
    const std::lock_guard lock(mutex_);
    if (!isCancelled_) task();
}

void HttpTransfer::setRunning(CurlLoop* loop) {
    const std::lock_guard lock(mutex_);
    running_ = loop;
}

}  // namespace orv
