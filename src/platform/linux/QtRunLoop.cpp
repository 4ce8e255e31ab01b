#include "platform/linux/QtRunLoop.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QObject>
#include <QSocketNotifier>
#include <QTimer>
#include <algorithm>
#include <limits>
#include <utility>
#include <vector>

namespace platform {

namespace {

using std::chrono::milliseconds;

constexpr milliseconds longestDelay(std::numeric_limits<int>::max());

/// The connection's context is the loop, so a handle that outlives the loop stays silent; Qt keeps
/// a running task alive when that task destroys its handle.
class QtTimer final : public RunLoop::Timer {
 public:
    QtTimer(const QObject& loop, milliseconds delay, bool once, RunLoop::Task task) {
        timer_.setTimerType(Qt::PreciseTimer);
        timer_.setSingleShot(once);
        QObject::connect(&timer_, &QTimer::timeout, &loop, std::move(task));
        timer_.start(std::clamp(delay, milliseconds::zero(), longestDelay));
    }

 private:
    QTimer timer_;
};

class QtWatch final : public RunLoop::Watch {
 public:
    QtWatch(const QObject& loop, int descriptor, RunLoop::Task task)
        : notifier_(descriptor, QSocketNotifier::Read) {
        QObject::connect(&notifier_, &QSocketNotifier::activated, &loop, std::move(task));
    }

 private:
    QSocketNotifier notifier_;
};

}  // namespace

struct QtRunLoop::Core {
    QObject receiver;
    std::vector<QEventLoop*> sessions;
};

QtRunLoop::QtRunLoop() : core_(std::make_unique<Core>()) {}
QtRunLoop::~QtRunLoop() = default;

void QtRunLoop::post(Task task) {
    QMetaObject::invokeMethod(&core_->receiver, std::move(task), Qt::QueuedConnection);
}

std::unique_ptr<RunLoop::Timer> QtRunLoop::after(milliseconds delay, Task task) {
    return std::make_unique<QtTimer>(core_->receiver, delay, true, std::move(task));
}

std::unique_ptr<RunLoop::Timer> QtRunLoop::every(milliseconds interval, Task task) {
    return std::make_unique<QtTimer>(core_->receiver, interval, false, std::move(task));
}

std::unique_ptr<RunLoop::Watch> QtRunLoop::watch(int descriptor, Task readable) {
    return std::make_unique<QtWatch>(core_->receiver, descriptor, std::move(readable));
}

int QtRunLoop::runModal() {
    QEventLoop session;
    core_->sessions.push_back(&session);
    const int code = session.exec();
    core_->sessions.pop_back();
    return code;
}

void QtRunLoop::stopModal(int code) {
    if (!core_->sessions.empty()) core_->sessions.back()->exit(code);
}

void QtRunLoop::processPending() {
    QCoreApplication::processEvents();
}

RunLoop::TimePoint QtRunLoop::now() const {
    return std::chrono::system_clock::now();
}

}  // namespace platform
