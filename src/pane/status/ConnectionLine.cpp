#include "pane/status/ConnectionLine.h"

#include <array>

#include "agentlink/AgentVocabulary.h"
#include "foundation/system/LocalizedString.h"
#include "widgets/CalendarDifference.h"
#include "widgets/DurationText.h"

namespace orv {

namespace {

using quelm::FormatLocalizedString;
using quelm::GetLocalizedString;
using quelm::LocalizedText;

/// What a state shows beside its line.
enum class Info {
    Nothing,
    /// Nothing, unless an error is shown, which stays.
    NothingOrError,
    Duration,
    LowDiskSpace,
};

struct ConnectionRow {
    ConnectionStatus status;
    /// A format that takes the user's name.
    LocalizedText text;
    Info info;
    bool clearsError;
    bool resetsStatus;
};

constexpr LocalizedText disconnected{"PrefPane.Disconnected", "%@ disconnected"};
constexpr std::array connectionRows = {
    ConnectionRow{ConnectionStatus::Connecting,
                  {"PrefPane.Connecting", "%@ connecting..."},
                  Info::Nothing,
                  true,
                  true},
    ConnectionRow{ConnectionStatus::LoggingIn,
                  {"PrefPane.LoggingIn", "Logging in..."},
                  Info::Nothing,
                  true,
                  false},
    ConnectionRow{ConnectionStatus::Connected,
                  {"PrefPane.LoggedIn", "%@ connected"},
                  Info::Duration,
                  true,
                  false},
    ConnectionRow{ConnectionStatus::WaitingToReconnect,
                  {"PrefPane.WaitReconnect", "%@ waiting to reconnect..."},
                  Info::NothingOrError,
                  false,
                  true},
    ConnectionRow{ConnectionStatus::NoDiskSpace, disconnected, Info::LowDiskSpace, false, true},
};
constexpr ConnectionRow notConnected{ConnectionStatus::Unknown, disconnected, Info::NothingOrError,
                                     false, true};

const ConnectionRow& connectionRow(std::uint32_t status) {
    for (const ConnectionRow& row : connectionRows) {
        if (static_cast<std::uint32_t>(row.status) == status) return row;
    }
    return notConnected;
}

/// Whole minutes; a clock that was set back gives very many.
std::uint32_t minutesSince(std::int64_t timestamp, std::int64_t now) {
    constexpr std::uint32_t minute = 60;
    if (timestamp == 0) return 0;
    return (static_cast<std::uint32_t>(now) - static_cast<std::uint32_t>(timestamp)) / minute;
}

std::string connectedFor(std::uint32_t minutes, std::int64_t now) {
    constexpr std::uint32_t hour = 60;
    if (minutes == 0) return GetLocalizedString("PrefPane.Connected", "Connected");
    if (minutes < hour) {
        return FormatLocalizedString(
            "PrefPane.ConnectedForMin", "Connected for %u %@",
            {minutes, minutes == 1 ? GetLocalizedString("PrefPane.Minute", "minute")
                                   : GetLocalizedString("PrefPane.Minutes", "minutes")});
    }
    // the minutes are taken as seconds, which users of the panel are used to
    return FormatLocalizedString(
        "PrefPane.ConnectedForHrs", "Connected for %@",
        {durationString(CalendarDifference(now, now + std::int64_t{minutes}))});
}

std::string durationInfo(const AgentProgress& progress, std::int64_t now) {
    std::string text = connectedFor(minutesSince(progress.statusTimestamp, now), now);
    if (progress.limitBackup) {
        text += FormatLocalizedString("PrefPane.LimitBackup", " - Backup suspended while using %@",
                                      {ActiveAdapterName(progress)});
    }
    return text;
}

}  // namespace

std::string ActiveAdapterName(const AgentProgress& progress) {
    return progress.activeAdapter.empty() ? GetLocalizedString("PrefPane.NotAvailable", "<N/A>")
                                          : progress.activeAdapter;
}

ConnectionLine ComposeConnectionLine(const AgentProgress& progress, const std::string& fullName,
                                     bool showsError, std::int64_t now) {
    const ConnectionRow& row = connectionRow(progress.status);
    ConnectionLine line{
        .text = FormatLocalizedString(row.text.key, row.text.defaultText, {fullName}),
        .info = "",
        .clearsError = row.clearsError,
        .resetsStatus = row.resetsStatus};
    if (row.info == Info::NothingOrError && showsError) line.info.reset();
    if (row.info == Info::Duration) line.info = durationInfo(progress, now);
    if (row.info == Info::LowDiskSpace) {
        line.info = GetLocalizedString("PrefPane.LowDiskSpace", "Low disk space");
    }
    return line;
}

}  // namespace orv
