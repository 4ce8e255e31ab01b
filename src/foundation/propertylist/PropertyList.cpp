#include "foundation/propertylist/PropertyList.h"

#include <cerrno>
#include <system_error>

#include "foundation/files/WholeFile.h"
#include "foundation/propertylist/PropertyListReaders.h"

namespace quelm {

PropertyListResult ReadPropertyList(std::string_view bytes, const PropertyListLimits& limits) {
    if (bytes.empty()) return {std::nullopt, "it is empty"};
    if (bytes.size() > limits.bytes) return {std::nullopt, "it is too large"};
    if (bytes.starts_with(binaryPropertyListMagic)) return ReadBinaryPropertyList(bytes, limits);
    return ReadXmlPropertyList(bytes, limits);
}

PropertyListResult ReadPropertyListFile(const std::string& path, FileLock lock) {
    const auto bytes = ReadWholeFile(path, PropertyListLimits{}.bytes, lock);
    if (bytes) return ReadPropertyList(*bytes);
    return {std::nullopt, std::generic_category().message(errno)};
}

}  // namespace quelm
