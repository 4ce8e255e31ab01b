#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "accounts/filters/FilenameFilter.h"

namespace orv {

/// Numbers by file-name extension, without regard to the case of ASCII letters. Extensions hold no
/// dot.
class ExtensionTable {
 public:
    static constexpr std::uint32_t none = std::numeric_limits<std::uint32_t>::max();

    /// The first number given for an extension stays.
    void add(std::string_view extension, std::uint32_t number);
    /// The number of the name's last extension.
    [[nodiscard]] std::uint32_t find(std::string_view name) const;

 private:
    struct Slot {
        std::uint64_t key = 0;
        std::uint32_t number = none;
    };

    [[nodiscard]] std::size_t slotOf(std::uint64_t key) const;
    [[nodiscard]] std::uint32_t findLong(std::string_view extension) const;
    void grow();

    /// Extensions of up to eight bytes, which are their own keys; a power of two of slots, at most
    /// a quarter of them in use, so that hardly a look-up goes on to a second one.
    std::vector<Slot> slots_{std::vector<Slot>(16)};
    std::size_t used_ = 0;
    unsigned shift_ = 60;
    std::unordered_map<std::string, std::uint32_t> longer_;
    std::size_t longest_ = 0;
};

/// Answers which of many filters is the first that matches a name. Nearly all patterns are "*.ext":
/// one look-up of the name's last extension decides them. The others are asked in order, and only
/// where the name's first and last byte allow a match and none before them is known to match.
class FilterIndex {
 public:
    static constexpr std::uint32_t none = ExtensionTable::none;

    /// `number` is the filter's place in the list, one more than that of the filter before.
    void add(const orv_FilenameFilter& filter, std::uint32_t number);
    /// `filters` is the list whose filters were added.
    [[nodiscard]] std::uint32_t firstMatch(const std::vector<orv_FilenameFilter>& filters,
                                           std::string_view name) const;

 private:
    static constexpr std::size_t blockSize = 64;
    /// Bit i of a byte's mask: filter i may match a name with that byte in that place. Bytes are
    /// folded.
    struct Block {
        std::array<std::uint64_t, 256> byFirst{};
        std::array<std::uint64_t, 256> byLast{};
        std::array<std::uint32_t, blockSize> numbers{};
    };

    void addOther(const orv_FilenameFilter& filter, std::uint32_t number);
    [[nodiscard]] static std::uint32_t firstOf(const Block& block,
                                               const std::vector<orv_FilenameFilter>& filters,
                                               std::string_view name, std::uint32_t before);

    ExtensionTable extensions_;
    std::vector<Block> others_;
    std::size_t otherCount_ = 0;
    /// The first filter that matches everything; filters behind it are never reached.
    std::uint32_t all_ = none;
};

}  // namespace orv
