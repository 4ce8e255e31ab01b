#pragma once

#include <cups/cups.h>

namespace platform {

/// The functions of libcups that are called. The library is loaded when it is first used and stays:
/// it brings twenty others with it, which would hold up the start of every program.
struct CupsLibrary {
    decltype(&::cupsServer) cupsServer;
    decltype(&::cupsEncryption) cupsEncryption;
    decltype(&::cupsDoRequest) cupsDoRequest;
    decltype(&::cupsGetDefault2) cupsGetDefault2;
    decltype(&::cupsLastError) cupsLastError;
    decltype(&::cupsLastErrorString) cupsLastErrorString;
    decltype(&::httpConnect2) httpConnect2;
    decltype(&::httpSetTimeout) httpSetTimeout;
    decltype(&::httpClose) httpClose;
    decltype(&::ippPort) ippPort;
    decltype(&::ippNewRequest) ippNewRequest;
    decltype(&::ippAddStrings) ippAddStrings;
    decltype(&::ippDelete) ippDelete;
    decltype(&::ippFirstAttribute) ippFirstAttribute;
    decltype(&::ippNextAttribute) ippNextAttribute;
    decltype(&::ippGetGroupTag) ippGetGroupTag;
    decltype(&::ippGetName) ippGetName;
    decltype(&::ippGetInteger) ippGetInteger;
    decltype(&::ippGetString) ippGetString;
    decltype(&::ippGetStatusCode) ippGetStatusCode;
};

/// Null where it is not installed. Any thread.
[[nodiscard]] const CupsLibrary* LoadCups();

}  // namespace platform
