// bench_link FILE REPETITIONS: events from one process to another on a private bus, through the
// queue and the observer, and beside it on libdbus alone, which the adapter uses. Writes {"name":
// number} as JSON: nanoseconds, but for what ends with "Bytes". Medians of so many repetitions.
#include <QCoreApplication>
#include <algorithm>
#include <cstdlib>
#include <fmt/format.h>
#include <fmt/ostream.h>
#include <fstream>
#include <map>
#include <string>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

#include "Traffic.h"
#include "platform/Services.h"
#include "support/PrivateBus.h"

namespace {

using namespace std::chrono_literals;

using Sender = void (*)(const std::string& address, const Traffic& traffic);
using Receiver = void (*)(const std::string& address, const Traffic& traffic,
                          const std::function<void()>& ready, const Heard& heard);
using Results = std::map<std::string, std::vector<double>>;

pid_t inChild(const std::function<void()>& work) {
    const pid_t child = ::fork();
    if (child == 0) {
        int count = 1;
        char name[] = "bench_link";
        char* arguments[] = {name, nullptr};
        const QCoreApplication application(count, arguments);
        work();
        ::_exit(0);
    }
    return child;
}

/// Hears the traffic in a child, sends it from another, and answers what `measure` wrote there.
std::vector<double> exchange(
    const Traffic& traffic, Sender sender, Receiver receiver,
    const std::function<std::vector<double>(std::vector<std::int64_t>&, std::int64_t)>& measure) {
    const test_support::PrivateBus bus;
    int ready[2];
    int results[2];
    if (::pipe(ready) != 0 || ::pipe(results) != 0) return {};
    const pid_t hearing = inChild([&] {
        std::vector<std::int64_t> latencies;
        std::int64_t first = 0;
        receiver(
            bus.address(), traffic, [&] { [[maybe_unused]] auto n = ::write(ready[1], "r", 1); },
            [&](int, std::int64_t sent) {
                const std::int64_t now = Now();
                if (first == 0) first = now;
                latencies.push_back(now - sent);
            });
        const auto figures = measure(latencies, Now() - first);
        [[maybe_unused]] const auto n =
            ::write(results[1], figures.data(), figures.size() * sizeof(double));
    });
    char byte = 0;
    [[maybe_unused]] auto n = ::read(ready[0], &byte, 1);
    const pid_t sending = inChild([&] { sender(bus.address(), traffic); });
    ::close(results[1]);
    std::vector<double> figures(2);
    const auto size = ::read(results[0], figures.data(), 2 * sizeof(double));
    figures.resize(size > 0 ? static_cast<std::size_t>(size) / sizeof(double) : 0);
    for (const pid_t child : {sending, hearing})
        ::waitpid(child, nullptr, 0);
    for (const int end : {ready[0], ready[1], results[0]})
        ::close(end);
    return figures;
}

double percentile(std::vector<std::int64_t>& values, double share) {
    const auto place = static_cast<std::size_t>(share * static_cast<double>(values.size() - 1));
    std::nth_element(values.begin(), values.begin() + static_cast<std::ptrdiff_t>(place),
                     values.end());
    return static_cast<double>(values[place]);
}

void measureThroughput(Results& results, const std::string& name, Sender sender,
                       Receiver receiver) {
    constexpr Traffic traffic{100'000};
    const auto figures =
        exchange(traffic, sender, receiver, [](const auto& latencies, std::int64_t duration) {
            return std::vector{static_cast<double>(duration) /
                               static_cast<double>(latencies.size())};
        });
    if (!figures.empty()) results[name + "EachEvent"].push_back(figures[0]);
}

void measureLatency(Results& results, const std::string& name, Sender sender, Receiver receiver) {
    constexpr Traffic traffic{3000, 1000us};
    const auto figures = exchange(traffic, sender, receiver, [](auto& latencies, std::int64_t) {
        return std::vector{percentile(latencies, 0.5), percentile(latencies, 0.99)};
    });
    if (figures.size() < 2) return;
    results[name + "LatencyP50"].push_back(figures[0]);
    results[name + "LatencyP99"].push_back(figures[1]);
}

double residentBytes() {
    std::ifstream stream("/proc/self/statm");
    double pages = 0;
    stream >> pages >> pages;
    return pages * static_cast<double>(::sysconf(_SC_PAGESIZE));
}

/// The receiver's main loop ticks while the flood comes.
void hearFlood(const std::string& address, const Traffic& traffic,
               const std::function<void()>& ready, const Heard& heard) {
    std::unique_ptr<platform::RunLoop::Timer> timer;
    const double before = residentBytes();
    std::int64_t last = 0;
    HearByObserver(
        address, traffic,
        [&] {
            timer = platform::ProcessServices().runLoop->every(1ms, [&] {
                const std::int64_t now = Now();
                if (last != 0) heard(0, last);
                last = now;
            });
            ready();
        },
        [](int, std::int64_t) {});
    heard(-1, Now() - static_cast<std::int64_t>(residentBytes() - before));
}

void measureFlood(Results& results) {
    constexpr Traffic traffic{100'000};
    const auto figures = exchange(traffic, Flood, hearFlood, [](auto& gaps, std::int64_t) {
        const auto memory = static_cast<double>(gaps.back());
        gaps.pop_back();
        return std::vector{percentile(gaps, 1), memory};
    });
    if (figures.size() < 2) return;
    results["FloodLongestStall"].push_back(figures[0]);
    results["FloodMemoryBytes"].push_back(figures[1]);
}

}  // namespace

void Pace(const Traffic& traffic, const std::function<void(int number)>& send) {
    auto next = std::chrono::steady_clock::now();
    for (int number = 0; number < traffic.events; ++number) {
        if (traffic.pause.count() > 0) std::this_thread::sleep_until(next += traffic.pause);
        send(number);
    }
}

int main(int argc, char** argv) {
    if (argc != 3) return 2;
    const int repetitions = std::atoi(argv[2]);
    Results results;
    for (int repetition = 0; repetition < repetitions; ++repetition) {
        measureThroughput(results, "Link", SendByQueue, HearByObserver);
        measureThroughput(results, "Libdbus", SendByLibdbus, HearByLibdbus);
        measureLatency(results, "Link", SendByQueue, HearByObserver);
        measureLatency(results, "Libdbus", SendByLibdbus, HearByLibdbus);
        measureFlood(results);
    }
    std::ofstream out(argv[1]);
    const char* separator = "{";
    for (auto& [name, values] : results) {
        std::sort(values.begin(), values.end());
        fmt::print(out, "{}\"{}\": {:.0f}", separator, name, values[values.size() / 2]);
        separator = ",\n ";
    }
    fmt::print(out, "}}\n");
    return out ? 0 : 1;
}
