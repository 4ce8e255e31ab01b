#include <QElapsedTimer>
#include <QTimer>
#include <algorithm>
#include <fstream>
#include <iostream>

#include "panel/PanelFixture.h"

namespace {

using namespace std::chrono_literals;

constexpr int perSecond = 10'000;
constexpr int seconds = 3;
constexpr int total = perSecond * seconds;
/// Not before every event was counted: each is a kilobyte less.
constexpr const char* lastText = "1.0 KB remaining";

/// Of this process, in memory.
std::int64_t kilobytes() {
    std::ifstream stream("/proc/self/statm");
    std::int64_t pages = 0;
    stream >> pages >> pages;
    return pages * (::sysconf(_SC_PAGESIZE) / 1'024);
}

/// How long the main thread is busy with other things than a timer of 5 ms.
class Ticks {
 public:
    Ticks() {
        timer_.setTimerType(Qt::PreciseTimer);
        timer_.callOnTimeout([this] {
            gaps_.push_back(milliseconds(CLOCK_MONOTONIC) - wall_);
            busy_.push_back(milliseconds(CLOCK_THREAD_CPUTIME_ID) - processor_);
            note();
        });
    }
    void start() {
        note();
        timer_.start(5ms);
    }
    void stop() { timer_.stop(); }
    [[nodiscard]] std::size_t count() const { return gaps_.size(); }

    // In milliseconds; 1 for the longest, 0.5 for the median.

    /// Between two ticks.
    [[nodiscard]] double gap(double part) const { return quantile(gaps_, part); }
    /// What the main thread itself worked between two ticks, however busy the computer is.
    [[nodiscard]] double work(double part) const { return quantile(busy_, part); }

 private:
    static double milliseconds(clockid_t clock) {
        timespec now = {};
        ::clock_gettime(clock, &now);
        return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) / 1e6;
    }
    static double quantile(std::vector<double> values, double part) {
        if (values.empty()) return 0;
        std::ranges::sort(values);
        return values[static_cast<std::size_t>(part * static_cast<double>(values.size() - 1))];
    }
    void note() {
        wall_ = milliseconds(CLOCK_MONOTONIC);
        processor_ = milliseconds(CLOCK_THREAD_CPUTIME_ID);
    }

    QTimer timer_;
    double wall_ = 0;
    double processor_ = 0;
    std::vector<double> gaps_;
    std::vector<double> busy_;
};

class AFloodOfProgress : public test_support::PanelFixture {};

TEST_F(AFloodOfProgress, LeavesTheWindowResponsiveAndShowsTheNewest) {
    startAgent();
    openPanel();
    waitUntilListening();
    widget<QPushButton>("_connectButton").click();
    ASSERT_TRUE(reads("_connectionStatus", "Anna connected"));
    voice_.event("share_stats", {{"files", "1"}, {"folders", "1"}});
    voice_.event("store_status",
                 {{"total-bytes", std::to_string((total + 1) * std::int64_t{1'024})}});
    ASSERT_TRUE(reads("_backupStatus2", "29.3 MB remaining")) << text("_backupStatus2");

    test_support::ChildProcess flood;
    ASSERT_TRUE(flood.start(
        setup({AGENT_FLOOD, bus_.address(), std::to_string(perSecond), std::to_string(seconds)},
              "flood")));
    ASSERT_TRUE(runUntil([this] { return text("_backupStatus2") != "29.3 MB remaining"; }));
    std::int64_t early = 0;
    QTimer::singleShot(1s, [&] { early = kilobytes(); });
    QElapsedTimer clock;
    clock.start();
    Ticks ticks;
    ticks.start();
    // a loop as the program has it
    QEventLoop loop;
    QTimer look;
    look.callOnTimeout([&] {
        if (text("_backupStatus2") == lastText || clock.hasExpired(20'000)) loop.quit();
    });
    look.start(20ms);
    loop.exec();
    ticks.stop();
    const std::int64_t shown = clock.elapsed();
    const std::int64_t growth = kilobytes() - early;
    const int ended = flood.wait();
    EXPECT_EQ(text("_backupStatus2"), lastText);
    EXPECT_EQ(ended, 0);
    const auto note = [](const char* name, const auto& value) {
        RecordProperty(name, std::to_string(value));
        std::cout << name << ": " << value << '\n';
    };
    note("milliseconds until the last was shown", shown);
    note("longest gap between ticks of 5 ms, in ms", ticks.gap(1));
    note("99 of 100 gaps are shorter than, in ms", ticks.gap(0.99));
    note("median gap, in ms", ticks.gap(0.5));
    note("most work of the main thread between ticks, in ms", ticks.work(1));
    note("99 of 100 times it is less than, in ms", ticks.work(0.99));
    note("median work, in ms", ticks.work(0.5));
    note("growth from the first second to the end, in KiB", growth);
    EXPECT_GT(ticks.count(), 100U);
    EXPECT_GT(early, 0);
    EXPECT_LT(ticks.work(1), 100);
    EXPECT_LT(ticks.gap(1), 500) << "also on a computer that is busy with other things";
    EXPECT_LT(growth, 4 * 1'024);
}

}  // namespace
