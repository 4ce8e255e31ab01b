#include "pane/status/ProjectLines.h"

#include "foundation/system/LocalizedString.h"
#include "pane/links/LinkAddresses.h"
#include "widgets/SizeText.h"

namespace orv {

namespace {

using quelm::FormatLocalizedString;
using quelm::GetLocalizedString;

// " (1 file locked)" is a link without " (" and ")", "  Out of Storage" without its blanks.
constexpr std::size_t beforeLink = 2;
constexpr std::size_t behindBracketed = 1;

/// Without what is added for violations, storage and locks.
StatusLine baseLine(const AgentProgress& progress) {
    if (!progress.is(ConnectionStatus::Connected)) return {};
    if (!progress.timeLeft.empty()) return {{progress.timeLeft}, StatusImage::Syncing};
    return {{GetLocalizedString("PrefPane.SyncComplete", "Sync Complete")}, StatusImage::InSync};
}

LinkedText withViolations(const std::string& text, std::int64_t count) {
    const std::string suffix =
        count == 1 ? GetLocalizedString("PreferencePane.permissionViolation", " (1 sync violation)")
                   : FormatLocalizedString("PreferencePane.permissionViolations",
                                           " (%d sync violations)", {count});
    return WithLinkedSuffix(text, suffix, beforeLink, behindBracketed, links::permissionViolations,
                            attentionColor);
}

LinkedText withStorageProblem(const std::string& text, std::int32_t status,
                              const std::string& agentId) {
    const std::string suffix =
        status == 1
            ? GetLocalizedString("PrefPane.QuotaIssue", "  Storage Issue - Click here for details")
            : GetLocalizedString("PrefPane.OutOfQuota",
                                 "  Out of Storage - Click here for details");
    return WithLinkedSuffix(text, suffix, beforeLink, 0, links::Dashboard(agentId), attentionColor);
}

LinkedText withLocks(const std::string& text, std::int64_t count) {
    const std::string suffix =
        count == 1
            ? GetLocalizedString("PreferencePane.lockedFile", " (1 file locked)")
            : FormatLocalizedString("PreferencePane.lockedFiles", " (%d files locked)", {count});
    return WithLinkedSuffix(text, suffix, beforeLink, behindBracketed, links::lockedFiles);
}

}  // namespace

ProjectLines ComposeProjectLines(const AgentProgress& progress, const ProjectSituation& situation,
                                 std::string_view shown) {
    ProjectLines lines{
        .summary = FormatLocalizedString("PrefPane.SyncStatus", "%ld projects with %ld files (%@)",
                                         {progress.totalProjects, progress.totalFilesProjects,
                                          orv::FileSizeString(progress.totalBytesProjects)}),
        .state = baseLine(progress)};
    LinkedText& text = lines.state.text;
    const bool isConnected = progress.is(ConnectionStatus::Connected);
    if (situation.violations > 0 && !shown.empty() && isConnected) {
        text = withViolations(text.text, situation.violations);
    } else if (isConnected && progress.syncQuotaStatus != 0) {
        text = withStorageProblem(text.text, progress.syncQuotaStatus, situation.agentId);
    } else if (situation.locks > 0 && !text.text.empty()) {
        text = withLocks(text.text, situation.locks);
    }
    return lines;
}

}  // namespace orv
