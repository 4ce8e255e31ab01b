#include "accounts/AccountXml.h"

#include <cerrno>
#include <system_error>

#include "foundation/files/WholeFile.h"
#include "foundation/system/Log.h"
#include "foundation/xml/XmlDocument.h"

namespace orv {

std::optional<std::string> ReadAccountXml(const std::string& path) {
    auto data = quelm::ReadWholeFile(path, quelm::largestXmlDocument);
    if (!data && errno != ENOENT) {
        quelm::LogError(path + " cannot be read: " + std::generic_category().message(errno) +
                        ". What it said before holds until the agent writes it anew.");
    }
    return data;
}

}  // namespace orv
