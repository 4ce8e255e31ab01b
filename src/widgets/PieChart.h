#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace orv {

/// What takes up the account's storage, in bytes. Negative sizes count as 0.
struct StorageFigures {
    /// -1 when there is no limit; 0, as any other negative one, when none is known.
    std::int64_t quota = 0;
    std::int64_t thisComputer = 0;
    std::int64_t otherComputers = 0;
    std::int64_t projects = 0;
    // Off, this computer and projects are shown only while they take up storage all the same.
    bool backupEnabled = true;
    bool syncEnabled = true;
    bool operator==(const StorageFigures&) const = default;
};

enum class StorageRole {
    ThisComputer,
    OtherComputers,
    Projects,
    Free,
    /// What is stored beyond the quota; no slice.
    OverQuota,
    /// The whole; no slice.
    Quota,
};

struct PieSlice {
    std::string label;
    std::int64_t bytes = 0;
    /// Of the pie, 0 to 1.
    double fraction = 0;
    StorageRole role = StorageRole::Free;
};

/// Who takes up how much, and what is free of a quota, in the order of the roles; without a quota,
/// or beyond it, the pie is what is stored. Its fractions add up to 1; no slices when there is
/// nothing to show.
[[nodiscard]] std::vector<PieSlice> PieSlices(const StorageFigures& figures);

/// Whether more is stored than a known quota allows.
[[nodiscard]] bool IsOverQuota(const StorageFigures& figures);

/// The pie in one sentence, for a label and for who cannot see it: "This computer 12.0 GB, other
/// computers 3.0 GB, free 5.0 GB of 20.0 GB".
[[nodiscard]] std::string DescriptionInWords(const StorageFigures& figures);

struct StoragePart {
    StorageRole role = StorageRole::ThisComputer;
    std::int64_t bytes = 0;
};

/// The parts that are to be shown, and behind them what is free of a quota, or beyond it.
[[nodiscard]] std::vector<StoragePart> StorageParts(const StorageFigures& figures);

/// What a legend calls it.
[[nodiscard]] std::string LabelOf(StorageRole role);

}  // namespace orv
