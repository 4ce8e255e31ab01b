#include "pane/DebugEvents.h"

#include <array>
#include <ctime>

#include "agentlink/AgentPayload.h"
#include "agentlink/AgentVocabulary.h"
#include "foundation/texts/VisibleText.h"

namespace orv {

namespace {

std::string timeText(platform::RunLoop::TimePoint when) {
    const std::time_t seconds = std::chrono::system_clock::to_time_t(when);
    std::tm date = {};
    std::array<char, 16> text{};
    if (!localtime_r(&seconds, &date)) return {};
    return {text.data(), std::strftime(text.data(), text.size(), "%H:%M:%S", &date)};
}

/// In bytes; an event may carry a whole list.
constexpr std::size_t longestText = 500;

std::string shownText(const std::string& text) {
    return quelm::VisibleText(text.substr(0, longestText));
}

std::string payloadText(const quelm::Dictionary& payload) {
    std::string text;
    for (const auto& [key, value] : payload) {
        if (key == keys::eventName) continue;
        text += (text.empty() ? "" : ", ") + key + "=" + PayloadText(payload, key.c_str());
        if (text.size() > longestText) break;
    }
    return shownText(text);
}

}  // namespace

DebugEvents::DebugEvents(TableView& table, platform::RunLoop& runLoop)
    : table_(table), runLoop_(runLoop) {
    table_.setDataSource(this);
}

DebugEvents::~DebugEvents() {
    table_.setDataSource(nullptr);
}

void DebugEvents::setListening(bool isListening) {
    RemoveAgentObserver(record_);
    if (!isListening) {
        events_.clear();
        return table_.reloadData();
    }
    ObserveAgentEvent(record_, [this](const AgentId&, const std::string& name,
                                      const quelm::Dictionary& received) {
        events_.push_front({runLoop_.now(), shownText(name), payloadText(received)});
        if (events_.size() > kept) events_.pop_back();
        table_.reloadData();
    });
}

std::optional<std::string> DebugEvents::objectValue(const TableView& table, std::string_view column,
                                                    std::size_t row) const {
    if (&table != &table_ || row >= events_.size()) return std::nullopt;
    const Event& shown = events_[row];
    if (column == time) return timeText(shown.when);
    if (column == event) return shown.name;
    if (column == payload) return shown.payload;
    return std::nullopt;
}

}  // namespace orv
