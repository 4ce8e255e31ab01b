#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace platform {

/// A notification's name and object as a D-Bus signal has them: "com.quelm.client.AgentEvent" is
/// the member AgentEvent of the interface com.quelm.client, and the object "com.corvanta.orv" the
/// path /com/corvanta/orv.
struct BusTopic {
    std::string interface;
    std::string member;
    std::string path;

    bool operator==(const BusTopic&) const = default;
};

/// None when the name is no interface and member, or the object is empty. In a path, a byte that
/// D-Bus does not allow there becomes "_xx", its value in hexadecimal.
[[nodiscard]] std::optional<BusTopic> MakeBusTopic(std::string_view name, std::string_view object);

/// The rule by which the bus picks the topic's signals.
[[nodiscard]] std::string MatchRule(const BusTopic& topic);

}  // namespace platform
