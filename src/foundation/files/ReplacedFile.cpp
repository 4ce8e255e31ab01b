#include "foundation/files/ReplacedFile.h"

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <unistd.h>

#include "foundation/files/FileIo.h"

namespace quelm {

bool ReplaceFile(const std::string& path, std::string_view content) {
    std::string temporary = path + ".XXXXXX";
    const FileDescriptor fd(mkostemp(temporary.data(), O_CLOEXEC));
    if (!fd) return false;
    errno = 0;
    if (WriteExact(fd.get(), content.data(), content.size()) == content.size() &&
        rename(temporary.c_str(), path.c_str()) == 0) {
        return true;
    }
    const int error = errno != 0 ? errno : EIO;
    unlink(temporary.c_str());
    errno = error;
    return false;
}

}  // namespace quelm
