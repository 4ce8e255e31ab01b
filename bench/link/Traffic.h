#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <string>

#include "platform/Value.h"

/// What the measured processes exchange.
struct Traffic {
    int events = 0;
    /// Between two events; zero is as fast as it goes.
    std::chrono::microseconds pause{0};
};

/// Nanoseconds of CLOCK_MONOTONIC, which processes share.
inline std::int64_t Now() {
    return std::chrono::steady_clock::now().time_since_epoch().count();
}

/// Calls `send` with 0, 1, 2, … at the traffic's pace.
void Pace(const Traffic& traffic, const std::function<void(int number)>& send);

// The ten keys of an event; "sent" holds when it was sent.
inline constexpr const char* numberKey = "n";
inline constexpr const char* sentKey = "sent";
inline constexpr const char* textKeys[] = {"total-bytes",  "stored-bytes", "total-files",
                                           "stored-files", "banned-files", "info-url"};
inline constexpr const char* eventText = "1234567890";

// Each sends or receives all of the traffic and returns. A receiver calls `ready` once it listens.

using Heard = std::function<void(int number, std::int64_t sent)>;

void SendByQueue(const std::string& address, const Traffic& traffic);
void HearByObserver(const std::string& address, const Traffic& traffic,
                    const std::function<void()>& ready, const Heard& heard);
void SendByLibdbus(const std::string& address, const Traffic& traffic);
void HearByLibdbus(const std::string& address, const Traffic& traffic,
                   const std::function<void()>& ready, const Heard& heard);

// A hostile sender: `events` good events, among them wrong bodies, unknown names and 1 MiB
// payloads.
void Flood(const std::string& address, const Traffic& traffic);
