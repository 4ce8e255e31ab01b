#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace orv {

/// Bytes that are taken for the quota while nothing is known of it.
inline constexpr std::int64_t quotaWithoutInformation = std::int64_t{5} << 30U;

/// The account's storage quota as the server gave it, from the account's "storage_quota.xml". All
/// sizes in bytes. What cannot be read leaves the previous values.
class orv_StorageQuotaInfo {
 public:
    /// `folder` is the account's.
    explicit orv_StorageQuotaInfo(const std::string& folder);

    /// Reads the account's file; false when it is missing or cannot be read.
    bool load();
    bool loadAtPath(const std::string& path);
    bool loadData(std::string_view data);

    [[nodiscard]] std::int64_t totalOtherComputers() const { return _totalOtherComputers; }
    [[nodiscard]] std::int64_t storedOtherComputers() const { return _storedOtherComputers; }
    [[nodiscard]] std::int64_t totalThisComputer() const { return _totalThisComputer; }
    [[nodiscard]] std::int64_t storedThisComputer() const { return _storedThisComputer; }
    /// 0 when there is no information, -1 (all bits) when there is no limit.
    [[nodiscard]] std::int64_t quota() const { return _quota; }
    [[nodiscard]] bool haveQuota() const { return _quota != 0; }
    [[nodiscard]] bool unlimitedQuota() const { return _quota == -1; }

 private:
    std::string _settingsPath;
    std::int64_t _totalOtherComputers = 0;
    std::int64_t _storedOtherComputers = 0;
    std::int64_t _totalThisComputer = 0;
    std::int64_t _storedThisComputer = 0;
    std::int64_t _quota = 0;
};

}  // namespace orv
