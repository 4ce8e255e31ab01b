#include "cli/ReadableFile.h"

#include <cerrno>
#include <fmt/format.h>
#include <fmt/ostream.h>
#include <ostream>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

#include "cli/Complaint.h"
#include "foundation/propertylist/PropertyList.h"
#include "foundation/system/LocalizedString.h"

namespace orv::cli {

namespace {

/// Why the file's list is of no use; empty when it is.
std::string faultOf(const std::string& path, quelm::Value::Type type) {
    const auto list = quelm::ReadPropertyListFile(path);
    if (!list.value) return list.error;
    if (list.value->type() == type) return {};
    return quelm::FormatLocalizedString("Cli.WrongRoot", "it is a property list, but no %@",
                                        {quelm::TypeName(type)});
}

}  // namespace

bool IsAbsentOrReadable(const std::string& path, quelm::Value::Type type, Console& console) {
    struct stat info = {};
    const bool isThere = stat(path.c_str(), &info) == 0;
    if (isThere ? info.st_size == 0 : errno == ENOENT) return true;
    const std::string fault = faultOf(path, type);
    if (!fault.empty()) {
        Say(console, quelm::FormatLocalizedString(
                         "Cli.DamagedFile",
                         "%@ cannot be read: %@. It was left as it is; move it away to begin anew.",
                         {path, fault}));
        return false;
    }
    if (access(path.c_str(), R_OK | W_OK) == 0) return true;
    Say(console,
        quelm::FormatLocalizedString("Cli.NotWritable",
                                     "%@ cannot be opened for reading and writing: %@. Files that "
                                     "are shared with the agent need both.",
                                     {path, std::generic_category().message(errno)}));
    return false;
}

}  // namespace orv::cli
