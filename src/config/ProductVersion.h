#pragma once

#include <string_view>

namespace orv::product {

inline constexpr std::string_view version = "7.2.33";
inline constexpr std::string_view buildDate = "Thu Dec 21 17:11:39 2017";
/// What stands before names of the product's parts.
inline constexpr std::string_view prefix = "orv";
/// Of what panel, agent and servers say to each other.
inline constexpr std::string_view protocolVersion = "433";

}  // namespace orv::product
