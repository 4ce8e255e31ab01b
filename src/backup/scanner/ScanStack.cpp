#include "backup/scanner/ScanStack.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "foundation/paths/PathPrefix.h"

namespace orv {

namespace {

/// How many folders in order, begun ones among them, are looked at for one to read ahead. What was
/// read waits in memory.
constexpr int foldersAhead = 128;

std::shared_ptr<ScanJob> nextUnread(const ScanJobs& jobs, int& left) {
    for (auto job = jobs.rbegin(); job != jobs.rend() && left > 0; ++job, --left) {
        if ((*job)->isBegun) continue;
        if ((*job)->ahead == ScanJob::Reading::None) return *job;
        if ((*job)->ahead == ScanJob::Reading::UnderWay) continue;
        if (auto below = nextUnread((*job)->subfolders, left)) return below;
    }
    return nullptr;
}

ScanJobs takeBelow(ScanJobs& jobs, std::string_view path) {
    const auto first = std::stable_partition(jobs.begin(), jobs.end(), [&](const auto& job) {
        return !quelm::StartsWithPath(job->folder.path, path);
    });
    ScanJobs taken(std::make_move_iterator(first), std::make_move_iterator(jobs.end()));
    jobs.erase(first, jobs.end());
    return taken;
}

void markCancelled(const ScanJobs& jobs) {
    for (const auto& job : jobs)
        job->isCancelled = true;
}

}  // namespace

bool ScanStack::contains(const orv_ScanInfo* object, std::string_view path) const {
    return std::ranges::any_of(jobs_, [&](const auto& job) {
        return job->object.get() == object && job->folder.path == path;
    });
}

std::shared_ptr<ScanJob> ScanStack::nextToReadAhead() const {
    int left = foldersAhead;
    return nextUnread(jobs_, left);
}

void ScanStack::insertRequests(ScanJobs jobs) {
    jobs_.insert(jobs_.end(), std::make_move_iterator(jobs.begin()),
                 std::make_move_iterator(jobs.end()));
}

void ScanStack::addToBottom(std::shared_ptr<ScanJob> job) {
    jobs_.insert(jobs_.begin(), std::move(job));
}

void ScanStack::remove(const ScanJob& job) {
    // near the top as a rule
    const auto found = std::find_if(jobs_.rbegin(), jobs_.rend(),
                                    [&](const auto& other) { return other.get() == &job; });
    if (found != jobs_.rend()) jobs_.erase(std::next(found).base());
}

ScanJobs ScanStack::cancel(std::string_view path) {
    ScanJobs cancelled = takeBelow(jobs_, path);
    markCancelled(cancelled);
    return cancelled;
}

ScanJobs ScanStack::cancelAll() {
    ScanJobs cancelled = std::exchange(jobs_, {});
    markCancelled(cancelled);
    return cancelled;
}

}  // namespace orv
