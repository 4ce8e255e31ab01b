#pragma once

#include <memory>
#include <string>

#include "support/web/CurlLoop.h"
#include "support/web/HttpTypes.h"

namespace orv {

/// One request to one address, redirects not followed. A new one for each: nothing of one, such as
/// a password in an address, goes to the next server.
class HttpHop {
 public:
    HttpHop(const CurlLibrary& curl, const HttpOptions& options);
    HttpHop(const HttpHop&) = delete;
    HttpHop& operator=(const HttpHop&) = delete;

    /// Of the schemes that curl is given as "http,https".
    [[nodiscard]] CURLcode perform(CurlLoop& loop, const std::string& address, const char* schemes,
                                   std::chrono::milliseconds limit,
                                   const std::atomic<bool>& isCancelled);

    [[nodiscard]] int status() const;
    /// Where the reply sends to, absolute; "" for nowhere.
    [[nodiscard]] std::string redirect() const;
    [[nodiscard]] bool wasSecure() const;
    [[nodiscard]] std::string& body() { return body_; }

 private:
    struct Cleanup {
        const CurlLibrary* curl;
        void operator()(CURL* easy) const { curl->curl_easy_cleanup(easy); }
    };
    template <class Value>
    void set(CURLoption option, Value value) {
        isComplete_ &= curl_->curl_easy_setopt(easy_.get(), option, value) == CURLE_OK;
    }
    [[nodiscard]] std::string info(CURLINFO which) const;
    void setCallbacks();
    void setCertificateRules(const CertificateRules& rules);
    [[nodiscard]] static std::size_t takeHeader(char* bytes, std::size_t one, std::size_t count,
                                                void* hop);
    [[nodiscard]] static std::size_t takeBody(char* bytes, std::size_t one, std::size_t count,
                                              void* hop);

    const CurlLibrary* curl_;
    const HttpOptions* options_;
    std::unique_ptr<CURL, Cleanup> easy_;
    /// Whether libcurl took every option.
    bool isComplete_ = true;
    bool isTooBig_ = false;
    std::size_t headerBytes_ = 0;
    std::string body_;
};

}  // namespace orv
