#include <chrono>
#include <cstdlib>
#include <iostream>
#include <string>
#include <thread>

#include "support/AgentVoice.h"

// An agent that reports its progress far too often.
// usage: agent_flood BUS-ADDRESS EVENTS-A-SECOND SECONDS

namespace {

using namespace std::chrono_literals;

constexpr auto beat = 1ms;

void flood(test_support::AgentVoice& voice, int perSecond, int seconds) {
    auto due = std::chrono::steady_clock::now();
    const int total = perSecond * seconds;
    for (int sent = 0; sent < total; due += beat) {
        std::this_thread::sleep_until(due);
        for (int i = 0; i < perSecond / 1'000 && sent < total; ++i, ++sent)
            voice.eventLater("store_progress", {{"count", "1024"}});
    }
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 4) return 2;
    test_support::AgentVoice voice(argv[1]);
    flood(voice, std::atoi(argv[2]), std::atoi(argv[3]));
    return voice.waitUntilHeard() ? 0 : 1;
}
