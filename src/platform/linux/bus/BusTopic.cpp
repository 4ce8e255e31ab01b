#include "platform/linux/bus/BusTopic.h"

#include <dbus/dbus.h>

namespace platform {

namespace {

bool isPathCharacter(char c) {
    return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

std::string pathOf(std::string_view object) {
    constexpr std::string_view digits = "0123456789abcdef";
    std::string path = "/";
    for (const char c : object) {
        if (isPathCharacter(c)) {
            path += c;
        } else if (c == '.' && path.back() != '/') {
            path += '/';
        } else {
            const auto byte = static_cast<unsigned char>(c);
            path += {'_', digits[byte >> 4U], digits[byte & 15U]};
        }
    }
    if (path.back() == '/') path += "_2e";  // the object ends with a dot
    return path;
}

}  // namespace

std::optional<BusTopic> MakeBusTopic(std::string_view name, std::string_view object) {
    constexpr std::size_t longestObject = 255;
    const auto dot = name.rfind('.');
    if (dot == name.npos || object.empty() || object.size() > longestObject) return std::nullopt;
    BusTopic topic{std::string(name.substr(0, dot)), std::string(name.substr(dot + 1)),
                   pathOf(object)};
    if (name.find('\0') != name.npos ||
        !dbus_validate_interface(topic.interface.c_str(), nullptr) ||
        !dbus_validate_member(topic.member.c_str(), nullptr)) {
        return std::nullopt;
    }
    return topic;
}

std::string MatchRule(const BusTopic& topic) {
    return "type='signal',interface='" + topic.interface + "',member='" + topic.member +
           "',path='" + topic.path + "'";
}

}  // namespace platform
