#include "support/web/CurlLibrary.h"

#include <dlfcn.h>
#include <optional>

namespace orv {

namespace {

template <class Function>
bool find(void* handle, const char* name, Function& function) {
    function = reinterpret_cast<Function>(::dlsym(handle, name));
    return function != nullptr;
}

std::optional<CurlLibrary> load() {
    void* const handle = ::dlopen("libcurl.so.4", RTLD_NOW | RTLD_LOCAL);
    if (handle == nullptr) return std::nullopt;
    CurlLibrary curl = {};
    const bool complete = find(handle, "curl_global_init", curl.curl_global_init) &&
                          find(handle, "curl_easy_init", curl.curl_easy_init) &&
                          find(handle, "curl_easy_setopt", curl.curl_easy_setopt) &&
                          find(handle, "curl_easy_getinfo", curl.curl_easy_getinfo) &&
                          find(handle, "curl_easy_strerror", curl.curl_easy_strerror) &&
                          find(handle, "curl_easy_cleanup", curl.curl_easy_cleanup) &&
                          find(handle, "curl_multi_init", curl.curl_multi_init) &&
                          find(handle, "curl_multi_add_handle", curl.curl_multi_add_handle) &&
                          find(handle, "curl_multi_perform", curl.curl_multi_perform) &&
                          find(handle, "curl_multi_poll", curl.curl_multi_poll) &&
                          find(handle, "curl_multi_wakeup", curl.curl_multi_wakeup) &&
                          find(handle, "curl_multi_info_read", curl.curl_multi_info_read) &&
                          find(handle, "curl_multi_remove_handle", curl.curl_multi_remove_handle) &&
                          find(handle, "curl_multi_cleanup", curl.curl_multi_cleanup);
    if (!complete || curl.curl_global_init(CURL_GLOBAL_DEFAULT) != CURLE_OK) return std::nullopt;
    return curl;
}

}  // namespace

const CurlLibrary* LoadCurl() {
    static const std::optional<CurlLibrary> library = load();
    return library ? &*library : nullptr;
}

}  // namespace orv
