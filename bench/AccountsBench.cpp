// The list of 500 accounts from their folders, beside reading the same files without a lock.
#include <benchmark/benchmark.h>
#include <string>
#include <vector>

#include "accounts/AccountList.h"
#include "config/ConfigurationPath.h"
#include "config/PropertyFiles.h"
#include "foundation/files/WholeFile.h"
#include "support/ScopedEnvironment.h"
#include "support/TemporaryFolder.h"

namespace {

constexpr int accounts = 500;
constexpr const char* recordFiles[] = {"user_info.plist", "storage_info.plist",
                                       "filter_info.plist"};

/// A home with the folders of the accounts.
class Accounts {
 public:
    Accounts() {
        orv::ClearConfigBasePath();
        const std::string base = "Library/Preferences/com.corvanta.orv";
        folder_.makeFolder(base);
        for (int i = 2; i < accounts + 1; ++i) {
            folders_.push_back(folder_.makeFolder(base + "/account_" + std::to_string(i)));
            const std::string id = std::to_string(i);
            orv::StorePropertiesToFile(
                folders_.back() + "/" + recordFiles[0],
                quelm::Dictionary{
                    {"user_id", "u" + id}, {"team_name", "Team " + id}, {"two_way_sync", false}});
            orv::StoreArrayToFile(folders_.back() + "/" + recordFiles[1],
                                  quelm::Array{quelm::Array{"/home/" + id, true}});
            orv::StorePropertiesToFile(folders_.back() + "/" + recordFiles[2],
                                       quelm::Dictionary{{"all", true}});
        }
    }
    ~Accounts() { orv::ClearConfigBasePath(); }

    [[nodiscard]] const std::vector<std::string>& folders() const { return folders_; }

 private:
    test_support::TemporaryFolder folder_;
    test_support::ScopedEnvironment home_{"HOME", folder_.path()};
    std::vector<std::string> folders_;
};

void AccountsLoad(benchmark::State& state) {
    const Accounts made;
    const orv::AccountList first(false);  // makes the files that are missing
    for ([[maybe_unused]] const auto turn : state) {
        const orv::AccountList list(false);
        if (list.count() != accounts) state.SkipWithError("accounts are missing");
    }
}
BENCHMARK(AccountsLoad)->Unit(benchmark::kMillisecond);

void AccountsReadOnly(benchmark::State& state) {
    const Accounts made;
    for ([[maybe_unused]] const auto turn : state) {
        for (const std::string& folder : made.folders()) {
            for (const char* file : recordFiles)
                benchmark::DoNotOptimize(quelm::ReadWholeFile(folder + "/" + file, 1 << 20));
        }
    }
}
BENCHMARK(AccountsReadOnly)->Unit(benchmark::kMillisecond);

void AccountsFindLast(benchmark::State& state) {
    const Accounts made;
    const orv::AccountList list(false);
    for ([[maybe_unused]] const auto turn : state)
        benchmark::DoNotOptimize(list.accountForUserID("u500"));
}
BENCHMARK(AccountsFindLast);

}  // namespace
