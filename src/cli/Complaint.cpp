#include "cli/Complaint.h"

#include <fmt/ostream.h>
#include <ostream>

namespace orv::cli {

void Say(Console& console, std::string_view message) {
    fmt::print(console.err, "orvctl: {}\n", message);
}

ExitCode Fail(Console& console, ExitCode code, std::string_view message) {
    Say(console, message);
    return code;
}

}  // namespace orv::cli
