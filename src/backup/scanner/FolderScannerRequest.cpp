#include "backup/scanner/FolderScannerRequest.h"

#include "foundation/paths/PathPrefix.h"

namespace orv {

bool orv_FolderScannerRequest::belongsToPath(std::string_view path) const {
    return orv::StartsWithPath(path_, path);
}

}  // namespace orv
