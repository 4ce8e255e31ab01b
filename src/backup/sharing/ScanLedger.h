#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <stop_token>
#include <string>
#include <unordered_map>
#include <vector>

#include "backup/scanner/ExcludePreview.h"
#include "backup/scanner/FolderScannerRequest.h"
#include "foundation/threads/Background.h"
#include "platform/Value.h"

namespace orv {

/// What was scanned, kept on another thread so that questions about it hold nobody up. Main thread
/// only; answers come there too, in the order of the questions, until it is destroyed.
class ScanLedger {
 public:
    /// More names than these are not kept, and answers about names are lower bounds then.
    static constexpr std::uint64_t mostNames = 4'000'000;

    /// It outlives this.
    explicit ScanLedger(quelm::Background& background);
    ScanLedger(const ScanLedger&) = delete;
    ScanLedger& operator=(const ScanLedger&) = delete;
    ~ScanLedger();

    /// Replaces what was known of the folder.
    void note(const orv_FolderScannerRequest& result);
    void clear();

    struct Totals {
        /// Of files that count.
        std::uint64_t files = 0;
        std::uint64_t bytes = 0;
        /// Hidden files and links, but nothing that is in hidden folders.
        std::uint64_t leftOutFiles = 0;
        std::uint64_t leftOutBytes = 0;
        /// Their paths.
        std::vector<std::string> hiddenFolders = {};
    };
    /// Of the folders that the rows (TopLevelPaths.h) select.
    void askTotals(quelm::Array rows, std::function<void(Totals)> answer);

    struct Preview {
        ExcludePreview excluded;
        /// Not all names are known.
        bool isLowerBound = false;
    };
    /// What the pattern would leave out of what the rows select. Ends the question before, which
    /// is then not answered.
    void askPreview(quelm::Array rows, std::string pattern, std::function<void(Preview)> answer);
    void cancelPreview();

 private:
    struct Book;
    void flush();

    quelm::Background& background_;
    /// Touched by the background alone.
    std::shared_ptr<Book> book_;
    std::vector<orv_FolderScannerRequest> noted_;
    std::stop_source preview_;
    std::shared_ptr<bool> life_ = std::make_shared<bool>(true);
};

}  // namespace orv
