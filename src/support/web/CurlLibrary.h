#pragma once

#include <curl/curl.h>

namespace orv {

/// The functions of libcurl that are called. The library is loaded when it is first used and stays:
/// it brings some thirty others with it, which would hold up the start of every program.
struct CurlLibrary {
    decltype(&::curl_global_init) curl_global_init;
    decltype(&::curl_easy_init) curl_easy_init;
    decltype(&::curl_easy_setopt) curl_easy_setopt;
    decltype(&::curl_easy_getinfo) curl_easy_getinfo;
    decltype(&::curl_easy_strerror) curl_easy_strerror;
    decltype(&::curl_easy_cleanup) curl_easy_cleanup;
    decltype(&::curl_multi_init) curl_multi_init;
    decltype(&::curl_multi_add_handle) curl_multi_add_handle;
    decltype(&::curl_multi_perform) curl_multi_perform;
    decltype(&::curl_multi_poll) curl_multi_poll;
    decltype(&::curl_multi_wakeup) curl_multi_wakeup;
    decltype(&::curl_multi_info_read) curl_multi_info_read;
    decltype(&::curl_multi_remove_handle) curl_multi_remove_handle;
    decltype(&::curl_multi_cleanup) curl_multi_cleanup;
};

/// Null where it is not installed. Any thread; the first call takes some milliseconds.
[[nodiscard]] const CurlLibrary* LoadCurl();

}  // namespace orv
