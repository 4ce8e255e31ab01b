#pragma once

#include <atomic>
#include <memory>

#include "support/web/CurlLibrary.h"

namespace orv {

/// Runs one transfer after the other on the thread that made it.
class CurlLoop {
 public:
    explicit CurlLoop(const CurlLibrary& curl);

    /// Until the transfer ends, or with CURLE_ABORTED_BY_CALLBACK soon after `isCancelled` holds
    /// and `wake` was called.
    [[nodiscard]] CURLcode perform(CURL* easy, const std::atomic<bool>& isCancelled);
    /// Any thread, while this lives.
    void wake();

 private:
    struct Cleanup {
        const CurlLibrary* curl;
        void operator()(CURLM* multi) const { curl->curl_multi_cleanup(multi); }
    };

    [[nodiscard]] CURLcode drive(const std::atomic<bool>& isCancelled);
    [[nodiscard]] CURLcode result();

    const CurlLibrary* curl_;
    std::unique_ptr<CURLM, Cleanup> multi_;
};

}  // namespace orv
