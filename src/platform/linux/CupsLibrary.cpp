#include "platform/linux/CupsLibrary.h"

#include <dlfcn.h>
#include <optional>

namespace platform {

namespace {

template <class Function>
bool find(void* handle, const char* name, Function& function) {
    function = reinterpret_cast<Function>(::dlsym(handle, name));
    return function != nullptr;
}

std::optional<CupsLibrary> load() {
    void* const handle = ::dlopen("libcups.so.2", RTLD_NOW | RTLD_LOCAL);
    if (handle == nullptr) return std::nullopt;
    CupsLibrary cups = {};
    const bool complete = find(handle, "cupsServer", cups.cupsServer) &&
                          find(handle, "cupsEncryption", cups.cupsEncryption) &&
                          find(handle, "cupsDoRequest", cups.cupsDoRequest) &&
                          find(handle, "cupsGetDefault2", cups.cupsGetDefault2) &&
                          find(handle, "cupsLastError", cups.cupsLastError) &&
                          find(handle, "cupsLastErrorString", cups.cupsLastErrorString) &&
                          find(handle, "httpConnect2", cups.httpConnect2) &&
                          find(handle, "httpSetTimeout", cups.httpSetTimeout) &&
                          find(handle, "httpClose", cups.httpClose) &&
                          find(handle, "ippPort", cups.ippPort) &&
                          find(handle, "ippNewRequest", cups.ippNewRequest) &&
                          find(handle, "ippAddStrings", cups.ippAddStrings) &&
                          find(handle, "ippDelete", cups.ippDelete) &&
                          find(handle, "ippFirstAttribute", cups.ippFirstAttribute) &&
                          find(handle, "ippNextAttribute", cups.ippNextAttribute) &&
                          find(handle, "ippGetGroupTag", cups.ippGetGroupTag) &&
                          find(handle, "ippGetName", cups.ippGetName) &&
                          find(handle, "ippGetInteger", cups.ippGetInteger) &&
                          find(handle, "ippGetString", cups.ippGetString) &&
                          find(handle, "ippGetStatusCode", cups.ippGetStatusCode);
    return complete ? std::optional(cups) : std::nullopt;
}

}  // namespace

const CupsLibrary* LoadCups() {
    static const std::optional<CupsLibrary> library = load();
    return library ? &*library : nullptr;
}

}  // namespace platform
