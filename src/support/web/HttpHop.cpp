#include "support/web/HttpHop.h"

#include "foundation/texts/CaseFolding.h"

namespace orv {

HttpHop::HttpHop(const CurlLibrary& curl, const HttpOptions& options)
    : curl_(&curl), options_(&options), easy_(curl.curl_easy_init(), Cleanup{&curl}) {
    if (!easy_) return;
    setCallbacks();
    setCertificateRules(options.certificates);
    set(CURLOPT_NOSIGNAL, 1L);
    set(CURLOPT_QUICK_EXIT, 1L);  // else the end of a request waits for a name that is looked up
    set(CURLOPT_NETRC, static_cast<long>(CURL_NETRC_IGNORED));
    set(CURLOPT_DEFAULT_PROTOCOL, "https");
    body_.reserve(256);
}

void HttpHop::setCallbacks() {
    set(CURLOPT_HEADERFUNCTION, &HttpHop::takeHeader);
    set(CURLOPT_HEADERDATA, static_cast<void*>(this));
    set(CURLOPT_WRITEFUNCTION, &HttpHop::takeBody);
    set(CURLOPT_WRITEDATA, static_cast<void*>(this));
}

void HttpHop::setCertificateRules(const CertificateRules& rules) {
    const bool verifies = !rules.authorities.empty();
    set(CURLOPT_SSL_VERIFYPEER, verifies ? 1L : 0L);
    set(CURLOPT_SSL_VERIFYHOST, verifies ? 2L : 0L);
    // the system's own authorities are neither asked nor, when nobody is asked, read
    set(CURLOPT_CAPATH, static_cast<const char*>(nullptr));
    set(CURLOPT_CAINFO, verifies ? rules.authorities.c_str() : nullptr);
    if (!rules.pin.empty()) set(CURLOPT_PINNEDPUBLICKEY, rules.pin.c_str());
}

CURLcode HttpHop::perform(CurlLoop& loop, const std::string& address, const char* schemes,
                          std::chrono::milliseconds limit, const std::atomic<bool>& isCancelled) {
    if (!easy_) return CURLE_FAILED_INIT;
    if (limit.count() <= 0) return CURLE_OPERATION_TIMEDOUT;
    set(CURLOPT_URL, address.c_str());
    set(CURLOPT_PROTOCOLS_STR, schemes);
    set(CURLOPT_TIMEOUT_MS, static_cast<long>(limit.count()));
    if (!isComplete_) return CURLE_BAD_FUNCTION_ARGUMENT;
    const CURLcode code = loop.perform(easy_.get(), isCancelled);
    return isTooBig_ ? CURLE_FILESIZE_EXCEEDED : code;
}

int HttpHop::status() const {
    long status = 0;
    if (easy_) curl_->curl_easy_getinfo(easy_.get(), CURLINFO_RESPONSE_CODE, &status);
    return static_cast<int>(status);
}

std::string HttpHop::info(CURLINFO which) const {
    const char* text = nullptr;
    if (easy_) curl_->curl_easy_getinfo(easy_.get(), which, &text);
    return text != nullptr ? text : "";
}

std::string HttpHop::redirect() const {
    return info(CURLINFO_REDIRECT_URL);
}

bool HttpHop::wasSecure() const {
    return quelm::EqualsWithoutCase(info(CURLINFO_SCHEME), "https");
}

std::size_t HttpHop::takeHeader(char* /*bytes*/, std::size_t /*one*/, std::size_t count,
                                void* hop) {
    auto& self = *static_cast<HttpHop*>(hop);
    self.headerBytes_ += count;
    self.isTooBig_ |= self.headerBytes_ > self.options_->mostHeaderBytes;
    return self.isTooBig_ ? 0 : count;
}

std::size_t HttpHop::takeBody(char* bytes, std::size_t /*one*/, std::size_t count, void* hop) {
    auto& self = *static_cast<HttpHop*>(hop);
    self.isTooBig_ |= count > self.options_->mostBodyBytes - self.body_.size();
    if (self.isTooBig_) return 0;
    self.body_.append(bytes, count);
    return count;
}

}  // namespace orv
