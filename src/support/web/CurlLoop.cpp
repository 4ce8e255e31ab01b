#include "support/web/CurlLoop.h"

namespace orv {

CurlLoop::CurlLoop(const CurlLibrary& curl)
    : curl_(&curl), multi_(curl.curl_multi_init(), Cleanup{&curl}) {}

CURLcode CurlLoop::perform(CURL* easy, const std::atomic<bool>& isCancelled) {
    if (!multi_ || curl_->curl_multi_add_handle(multi_.get(), easy) != CURLM_OK) {
        return CURLE_FAILED_INIT;
    }
    const CURLcode code = drive(isCancelled);
    curl_->curl_multi_remove_handle(multi_.get(), easy);
    return code;
}

void CurlLoop::wake() {
    if (multi_) curl_->curl_multi_wakeup(multi_.get());
}

CURLcode CurlLoop::drive(const std::atomic<bool>& isCancelled) {
    constexpr int longestWait = 1'000;  // milliseconds; libcurl's own timers end it earlier
    for (int running = 1; running > 0;) {
        if (isCancelled) return CURLE_ABORTED_BY_CALLBACK;
        if (curl_->curl_multi_perform(multi_.get(), &running) != CURLM_OK ||
            (running > 0 &&
             curl_->curl_multi_poll(multi_.get(), nullptr, 0, longestWait, nullptr) != CURLM_OK)) {
            return CURLE_OUT_OF_MEMORY;
        }
    }
    return result();
}

CURLcode CurlLoop::result() {
    int left = 0;
    const CURLMsg* const message = curl_->curl_multi_info_read(multi_.get(), &left);
    return message != nullptr ? message->data.result : CURLE_FAILED_INIT;
}

}  // namespace orv
