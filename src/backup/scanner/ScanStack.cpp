#include "backup/scanner/ScanStack.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "foundation/paths/PathPrefix.h"

namespace orv {

namespace {

/// How far from the top folders are read ahead. What was read waits in memory.
constexpr std::ptrdiff_t readAheadDepth = 64;

using IsBelow = bool (*)(std::string_view path, std::string_view prefix);

ScanJobs takeBelow(ScanJobs& jobs, std::string_view path, IsBelow isBelow) {
    const auto kept = std::ranges::stable_partition(
        jobs, [&](const auto& job) { return !isBelow(job->folder.path, path); });
    ScanJobs taken(std::make_move_iterator(kept.begin()), std::make_move_iterator(kept.end()));
    jobs.erase(kept.begin(), kept.end());
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
    const auto count = std::min(std::ssize(jobs_), readAheadDepth);
    const auto found = std::find_if(jobs_.rbegin(), jobs_.rbegin() + count, [](const auto& job) {
        return !job->isBegun && job->ahead == ScanJob::Reading::None;
    });
    return found != jobs_.rbegin() + count ? *found : nullptr;
}

void ScanStack::pushOnTop(const ScanJobs& jobs) {
    jobs_.insert(jobs_.end(), jobs.rbegin(), jobs.rend());
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
    ScanJobs cancelled = takeBelow(jobs_, path, quelm::StartsWithPath);
    if (cancelled.empty()) cancelled = takeBelow(jobs_, path, orv::StartsWithPath);
    markCancelled(cancelled);
    return cancelled;
}

ScanJobs ScanStack::cancelAll() {
    ScanJobs cancelled = std::exchange(jobs_, {});
    markCancelled(cancelled);
    return cancelled;
}

}  // namespace orv
