#pragma once

#include <cstddef>
#include <deque>
#include <string>

#include "agentlink/AgentObservers.h"
#include "platform/RunLoop.h"
#include "widgets/TableView.h"

namespace orv {

/// The last events of agents, for those who look for a fault. Main thread only.
class DebugEvents final : public TableDataSource {
 public:
    static constexpr std::size_t kept = 500;
    // Columns.
    static constexpr const char* time = "time";
    static constexpr const char* event = "event";
    static constexpr const char* payload = "payload";

    /// Both outlive it.
    DebugEvents(TableView& table, platform::RunLoop& runLoop);
    DebugEvents(const DebugEvents&) = delete;
    DebugEvents& operator=(const DebugEvents&) = delete;
    ~DebugEvents();

    /// Listens, or forgets what was heard.
    void setListening(bool isListening);

    [[nodiscard]] std::size_t numberOfRowsInTableView(const TableView&) const override {
        return events_.size();
    }
    /// The latest first.
    [[nodiscard]] std::optional<std::string> objectValue(const TableView& table,
                                                         std::string_view column,
                                                         std::size_t row) const override;

 private:
    struct Event {
        platform::RunLoop::TimePoint when;
        std::string name;
        std::string payload;
    };

    TableView& table_;
    platform::RunLoop& runLoop_;
    std::deque<Event> events_;
    AgentObserverRecord record_;
};

}  // namespace orv
