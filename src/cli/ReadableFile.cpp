#include "cli/ReadableFile.h"

#include <cerrno>
#include <fmt/format.h>
#include <fmt/ostream.h>
#include <ostream>
#include <sys/stat.h>

#include "cli/Complaint.h"
#include "foundation/propertylist/PropertyList.h"
#include "foundation/system/LocalizedString.h"

namespace orv::cli {

bool IsAbsentOrReadable(const std::string& path, Console& console) {
    struct stat info = {};
    const bool isThere = stat(path.c_str(), &info) == 0;
    if (isThere ? info.st_size == 0 : errno == ENOENT) return true;
    const auto list = quelm::ReadPropertyListFile(path);
    if (list.value) return true;
    Say(console, quelm::FormatLocalizedString(
                     "Cli.DamagedFile",
                     "%@ cannot be read: %@. It was left as it is; move it away to begin anew.",
                     {path, list.error}));
    return false;
}

}  // namespace orv::cli
