#include "backup/scanner/ScanSession.h"

#include <iterator>
#include <thread>
#include <utility>

namespace orv {

namespace {

/// So many folders are scanned before a helper that had nothing left to do is asked again.
constexpr int patienceOfHelper = 32;

std::shared_ptr<ScanJob> jobOf(FolderPlace folder, std::shared_ptr<const orv_ScanInfo> object) {
    auto job = std::make_shared<ScanJob>();
    job->folder = std::move(folder);
    job->object = std::move(object);
    return job;
}

/// In reverse.
ScanJobs jobsOf(std::vector<FolderPlace> folders,
                const std::shared_ptr<const orv_ScanInfo>& object) {
    ScanJobs jobs;
    jobs.reserve(folders.size());
    for (auto folder = folders.rbegin(); folder != folders.rend(); ++folder)
        jobs.push_back(jobOf(std::move(*folder), object));
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
    if (readAhead) helper_ = Helper::Wanted;
    std::thread([self = shared_from_this()] { self->workerLoop(); }).detach();
}

void ScanSession::stop() {
    const Lock lock(mutex_);
    isStopped_ = true;
    workerWakes_.notify_one();
    helperWakes_.notify_one();
}

void ScanSession::addToBottom(std::string path, std::shared_ptr<const orv_ScanInfo> object) {
    const Lock lock(mutex_);
    if (requests.contains(object.get(), path)) return;
    requests.addToBottom(jobOf({std::move(path), false, nullptr}, std::move(object)));
    added();
}

void ScanSession::pushOnTop(std::string path, std::shared_ptr<const orv_ScanInfo> object) {
    const Lock lock(mutex_);
    requests.pushOnTop(jobOf({std::move(path), false, nullptr}, std::move(object)));
    added();
}

/// The scan goes on, so an end that is on its way would be told too early.
void ScanSession::added() {
    if (mailbox_->takeBackFinished()) isScanning_ = true;
    workerWakes_.notify_one();
}

bool ScanSession::cancel(const std::string& path) {
    const Lock lock(mutex_);
    ScanJobs cancelled = requests.cancel(path);
    const bool isAny = !cancelled.empty();
    retired_.insert(retired_.end(), std::make_move_iterator(cancelled.begin()),
                    std::make_move_iterator(cancelled.end()));
    workerWakes_.notify_one();
    return isAny;
}

void ScanSession::cancelAll() {
    const Lock lock(mutex_);
    ScanJobs cancelled = requests.cancelAll();
    retired_.insert(retired_.end(), std::make_move_iterator(cancelled.begin()),
                    std::make_move_iterator(cancelled.end()));
    workerWakes_.notify_one();
}

void ScanSession::setFilters(std::shared_ptr<const ScannerFilters> filters) {
    const Lock lock(mutex_);
    filters_ = std::move(filters);
}

void ScanSession::workerLoop() {
    const auto reader = makeReader_();
    Lock lock(mutex_);
    while (!isStopped_) {
        freeRetired(lock);
        if (requests.empty()) {
            waitNextRequest(lock);
        } else {
            workOn(std::shared_ptr(requests.top()), *reader, lock);
        }
    }
    // freed here, not on the main thread
    const ScanJobs rest = requests.cancelAll();
    const ScanJobs retired = std::exchange(retired_, {});
    lock.unlock();
}

void ScanSession::freeRetired(Lock& lock) {
    if (retired_.empty()) return;
    ScanJobs retired = std::exchange(retired_, {});
    const Unlocked unlocked(lock);
    retired.clear();
}

void ScanSession::waitNextRequest(Lock& lock) {
    // under the lock, so that none that is requested meanwhile comes before the end is told
    if (std::exchange(isScanning_, false))
        mailbox_->send({ScanMessage::Kind::ScanningFinished, nullptr});
    workerWakes_.wait(lock, [&] { return !requests.empty() || !retired_.empty() || isStopped_; });
}

void ScanSession::workOn(const std::shared_ptr<ScanJob>& job, FolderReader& reader, Lock& lock) {
    isScanning_ = true;
    if (job->isBegun) {
        tellSubtreeFinished(job, lock);
    } else if (job->ahead == ScanJob::Reading::UnderWay) {
        waitForHelper(reader, lock);
    } else {
        performFolderScan(job, reader, lock);
    }
}

void ScanSession::tellSubtreeFinished(const std::shared_ptr<ScanJob>& job, Lock& lock) {
    requests.pop();
    const Unlocked unlocked(lock);
    mailbox_->send({ScanMessage::Kind::SubtreeFinished, job->result});
}

void ScanSession::waitForHelper(FolderReader& reader, Lock& lock) {
    if (const auto other = requests.nextToReadAhead()) {
        readAhead(other, reader, lock);
    } else {
        workerWaits_ = true;
        workerWakes_.wait(lock);
        workerWaits_ = false;
    }
}

void ScanSession::performFolderScan(const std::shared_ptr<ScanJob>& job, FolderReader& reader,
                                    Lock& lock) {
    // it stays where it is, below its subfolders
    job->isBegun = true;
    const bool isRead = job->ahead == ScanJob::Reading::Ready && job->filters == filters_;
    if (!isRead || ++scannedMeanwhile_ == patienceOfHelper) callHelper();
    if (!isRead) read(*job, reader, lock);
    if (isStopped_) return;
    if (!job->result) return requests.remove(*job);
    {
        const Unlocked unlocked(lock);
        job->folder.parent.reset();
        mailbox_->send({ScanMessage::Kind::Result, job->result});
    }
    if (!job->isCancelled) requests.insertRequests(std::exchange(job->subfolders, {}));
}

void ScanSession::read(ScanJob& job, FolderReader& reader, Lock& lock) {
    job.filters = filters_;
    const Unlocked unlocked(lock);
    job.result = nullptr;
    job.subfolders.clear();
    auto reading = reader.read(job.folder, *job.filters, isStopped_);
    if (!reading) return;
    job.subfolders = jobsOf(std::move(reading->subfolders), job.object);
    job.result = std::make_shared<const orv_FolderScannerRequest>(job.folder.path, job.object,
                                                                  std::move(reading->totals));
}

void ScanSession::readAhead(const std::shared_ptr<ScanJob>& job, FolderReader& reader, Lock& lock) {
    job->ahead = ScanJob::Reading::UnderWay;
    read(*job, reader, lock);
    job->ahead = ScanJob::Reading::Ready;
}

void ScanSession::callHelper() {
    const bool isIdle = helper_ == Helper::Wanted || helper_ == Helper::Asleep;
    if (!isIdle || !requests.nextToReadAhead()) return;
    if (helper_ == Helper::Asleep) return helperWakes_.notify_one();
    helper_ = Helper::Awake;
    std::thread([self = shared_from_this()] { self->help(); }).detach();
}

void ScanSession::sleepAsHelper(Lock& lock) {
    helper_ = Helper::Asleep;
    scannedMeanwhile_ = 0;
    helperWakes_.wait(lock);
    helper_ = Helper::Awake;
}

void ScanSession::help() {
    const auto reader = makeReader_();
    Lock lock(mutex_);
    while (!isStopped_) {
        if (const auto job = requests.nextToReadAhead()) {
            readAhead(job, *reader, lock);
            if (workerWaits_) workerWakes_.notify_one();
        } else {
            sleepAsHelper(lock);
        }
    }
}

}  // namespace orv
