#include "backup/scanner/ScanSession.h"

#include <iterator>
#include <thread>
#include <utility>

namespace orv {

namespace {

std::shared_ptr<ScanJob> jobOf(FolderPlace folder, std::shared_ptr<const orv_ScanInfo> object) {
    auto job = std::make_shared<ScanJob>();
    job->folder = std::move(folder);
    job->object = std::move(object);
    return job;
}

ScanJobs jobsOf(std::vector<FolderPlace> folders,
                const std::shared_ptr<const orv_ScanInfo>& object) {
    ScanJobs jobs;
    jobs.reserve(folders.size());
    for (FolderPlace& folder : folders)
        jobs.push_back(jobOf(std::move(folder), object));
    return jobs;
}

/// Releases the lock while it lives.
class Unlocked {
 public:
    explicit Unlocked(std::unique_lock<std::mutex>& lock) : lock_(lock) { lock_.unlock(); }
    Unlocked(const Unlocked&) = delete;
    Unlocked& operator=(const Unlocked&) = delete;
    ~Unlocked() { lock_.lock(); }

 private:
    std::unique_lock<std::mutex>& lock_;
};

}  // namespace

ScanSession::ScanSession(std::shared_ptr<ScanMailbox> mailbox, FolderReaderFactory makeReader,
                         std::shared_ptr<const ScannerFilters> filters)
    : mailbox_(std::move(mailbox)),
      makeReader_(std::move(makeReader)),
      filters_(std::move(filters)) {}

void ScanSession::start(bool readAhead) {
    std::thread([self = shared_from_this()] { self->work(); }).detach();
    if (readAhead) std::thread([self = shared_from_this()] { self->help(); }).detach();
}

void ScanSession::stop() {
    const Lock lock(mutex_);
    isStopped_ = true;
    workerWakes_.notify_one();
    helperWakes_.notify_one();
}

void ScanSession::addToBottom(std::string path, std::shared_ptr<const orv_ScanInfo> object) {
    const Lock lock(mutex_);
    if (stack_.contains(object.get(), path)) return;
    stack_.addToBottom(jobOf({std::move(path), false, nullptr}, std::move(object)));
    workerWakes_.notify_one();
}

void ScanSession::pushOnTop(std::string path, std::shared_ptr<const orv_ScanInfo> object) {
    const Lock lock(mutex_);
    stack_.pushOnTop(jobOf({std::move(path), false, nullptr}, std::move(object)));
    workerWakes_.notify_one();
}

bool ScanSession::cancel(const std::string& path) {
    const Lock lock(mutex_);
    ScanJobs cancelled = stack_.cancel(path);
    const bool isAny = !cancelled.empty();
    retired_.insert(retired_.end(), std::make_move_iterator(cancelled.begin()),
                    std::make_move_iterator(cancelled.end()));
    workerWakes_.notify_one();
    return isAny;
}

void ScanSession::cancelAll() {
    const Lock lock(mutex_);
    ScanJobs cancelled = stack_.cancelAll();
    retired_.insert(retired_.end(), std::make_move_iterator(cancelled.begin()),
                    std::make_move_iterator(cancelled.end()));
    workerWakes_.notify_one();
}

void ScanSession::setFilters(std::shared_ptr<const ScannerFilters> filters) {
    const Lock lock(mutex_);
    filters_ = std::move(filters);
}

void ScanSession::work() {
    const auto reader = makeReader_();
    Lock lock(mutex_);
    while (!isStopped_) {
        freeRetired(lock);
        if (stack_.empty()) {
            waitForWork(lock);
        } else {
            workOn(std::shared_ptr(stack_.top()), *reader, lock);
        }
    }
    // freed here, not on the main thread
    const ScanJobs rest = stack_.cancelAll();
    const ScanJobs retired = std::exchange(retired_, {});
    lock.unlock();
}

void ScanSession::freeRetired(Lock& lock) {
    if (retired_.empty()) return;
    ScanJobs retired = std::exchange(retired_, {});
    const Unlocked unlocked(lock);
    retired.clear();
}

void ScanSession::waitForWork(Lock& lock) {
    if (std::exchange(isScanning_, false)) {
        const Unlocked unlocked(lock);
        mailbox_->send({ScanMessage::Kind::ScanningFinished, nullptr});
    }
    workerWakes_.wait(lock, [&] { return !stack_.empty() || !retired_.empty() || isStopped_; });
}

void ScanSession::workOn(const std::shared_ptr<ScanJob>& job, FolderReader& reader, Lock& lock) {
    if (job->isBegun) {
        tellSubtreeFinished(job, lock);
    } else if (job->ahead == ScanJob::Reading::UnderWay) {
        waitForHelper(reader, lock);
    } else {
        scan(job, reader, lock);
    }
}

void ScanSession::tellSubtreeFinished(const std::shared_ptr<ScanJob>& job, Lock& lock) {
    stack_.pop();
    const Unlocked unlocked(lock);
    mailbox_->send({ScanMessage::Kind::SubtreeFinished, job->result});
}

void ScanSession::waitForHelper(FolderReader& reader, Lock& lock) {
    if (const auto other = stack_.nextToReadAhead()) {
        readAhead(other, reader, lock);
    } else {
        workerWakes_.wait(lock);
    }
}

void ScanSession::scan(const std::shared_ptr<ScanJob>& job, FolderReader& reader, Lock& lock) {
    isScanning_ = true;
    // it stays where it is, below its subfolders
    job->isBegun = true;
    auto reading = takeReading(*job, reader, lock);
    if (isStopped_) return;
    if (!reading) return stack_.remove(*job);

    ScanJobs subfolders;
    {
        const Unlocked unlocked(lock);
        job->folder.parent.reset();
        subfolders = jobsOf(std::move(reading->subfolders), job->object);
        job->result = std::make_shared<const orv_FolderScannerRequest>(
            job->folder.path, job->object, std::move(reading->totals));
        mailbox_->send({ScanMessage::Kind::Result, job->result});
    }
    if (!job->isCancelled) stack_.pushOnTop(subfolders);
}

std::optional<FolderReading> ScanSession::takeReading(ScanJob& job, FolderReader& reader,
                                                      Lock& lock) {
    if (job.ahead == ScanJob::Reading::Ready && job.filters == filters_) {
        return std::move(job.reading);
    }
    if (helperSleeps_ && stack_.nextToReadAhead()) helperWakes_.notify_one();
    const Filters filters = filters_;
    const Unlocked unlocked(lock);
    return reader.read(job.folder, *filters, isStopped_);
}

void ScanSession::readAhead(const std::shared_ptr<ScanJob>& job, FolderReader& reader, Lock& lock) {
    job->ahead = ScanJob::Reading::UnderWay;
    job->filters = filters_;
    std::optional<FolderReading> reading;
    {
        const Unlocked unlocked(lock);
        reading = reader.read(job->folder, *job->filters, isStopped_);
    }
    job->reading = std::move(reading);
    job->ahead = ScanJob::Reading::Ready;
}

void ScanSession::help() {
    const auto reader = makeReader_();
    Lock lock(mutex_);
    while (!isStopped_) {
        if (const auto job = stack_.nextToReadAhead()) {
            readAhead(job, *reader, lock);
            workerWakes_.notify_one();
        } else {
            helperSleeps_ = true;
            helperWakes_.wait(lock);
            helperSleeps_ = false;
        }
    }
}

}  // namespace orv
