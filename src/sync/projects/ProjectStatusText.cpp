#include "sync/projects/ProjectStatusText.h"

#include "foundation/system/LocalizedString.h"
#include "widgets/SizeText.h"

namespace orv {

std::string ProjectStatusText(const ProjectStatus& status) {
    const std::string size = orv::FileSizeString(status.bytes);
    std::string text =
        status.outOfQuota
            ? quelm::FormatLocalizedString("ProjectsList.OutOfStorage",
                                           "Out of Storage, %d files, %@", {status.files, size})
            : quelm::FormatLocalizedString("ProjectsList.Status", "%d files, %@",
                                           {status.files, size});
    if (status.partial) {
        text += quelm::GetLocalizedString("ProjectsList.Selective", " (Selective Sync)");
    }
    return text;
}

}  // namespace orv
