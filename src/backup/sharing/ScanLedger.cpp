#include "backup/sharing/ScanLedger.h"

#include <algorithm>
#include <utility>

#include "backup/sharing/SelectedPaths.h"
#include "backup/tree/TreeRules.h"

namespace orv {

namespace {

/// Results that travel to the other thread together.
constexpr std::size_t together = 512;

}  // namespace

struct ScanLedger::Book {
    std::unordered_map<std::string, FolderTotals> folders;
    std::uint64_t names = 0;

    void write(const orv_FolderScannerRequest& result) {
        FolderTotals& folder = folders[result.path()];
        if (folder.scannedFiles) names -= folder.files;
        folder = {result.size(), result.files(), result.filterSize(), result.leftOut(),
                  result.scannedFiles()};
        if (!folder.scannedFiles) return;
        names += folder.files;
        if (names <= mostNames) return;
        names -= folder.files;
        folder.scannedFiles.reset();
    }
};

ScanLedger::ScanLedger(quelm::Background& background)
    : background_(background), book_(std::make_shared<Book>()) {}

ScanLedger::~ScanLedger() {
    cancelPreview();
}

void ScanLedger::note(const orv_FolderScannerRequest& result) {
    noted_.push_back(result);
    if (noted_.size() >= together) flush();
}

void ScanLedger::flush() {
    if (noted_.empty()) return;
    background_.perform(
        [book = book_,
         results = std::make_shared<std::vector<orv_FolderScannerRequest>>(std::move(noted_))] {
            for (const auto& result : *results)
                book->write(result);
            results->clear();
        },
        {});
    noted_.clear();
}

void ScanLedger::clear() {
    noted_.clear();
    background_.perform(
        [book = book_] {
            book->folders.clear();
            book->names = 0;
        },
        {});
}

void ScanLedger::askTotals(quelm::Array rows, std::function<void(Totals)> answer) {
    flush();
    auto totals = std::make_shared<Totals>();
    background_.perform(
        [book = book_, totals, rows = std::move(rows)] {
            const SelectedPaths selected(rows);
            for (const auto& [path, folder] : book->folders) {
                if (!selected.contains(path)) continue;
                totals->files += folder.files;
                totals->bytes += folder.size;
                totals->leftOutFiles += folder.leftOut.files;
                totals->leftOutBytes += folder.leftOut.bytes;
                for (const std::string& name : folder.leftOut.hiddenFolders)
                    totals->hiddenFolders.push_back(PathInFolder(path, name));
            }
        },
        [life = std::weak_ptr(life_), totals, answer = std::move(answer)] {
            if (!life.expired()) answer(std::move(*totals));
        });
}

void ScanLedger::cancelPreview() {
    preview_.request_stop();
    preview_ = {};
}

void ScanLedger::askPreview(quelm::Array rows, std::string pattern,
                            std::function<void(Preview)> answer) {
    flush();
    cancelPreview();
    auto preview = std::make_shared<Preview>();
    const std::stop_token stop = preview_.get_token();
    background_.perform(
        [book = book_, preview, stop, pattern = std::move(pattern), rows = std::move(rows)] {
            const SelectedPaths selected(rows);
            std::vector<std::shared_ptr<const ScannedFiles>> files;
            for (const auto& [path, folder] : book->folders) {
                if (stop.stop_requested()) return;
                if (folder.files == 0 || !selected.contains(path)) continue;
                if (folder.scannedFiles) {
                    files.push_back(folder.scannedFiles);
                } else {
                    preview->isLowerBound = true;
                }
            }
            std::ranges::sort(files, {}, &ScannedFiles::folder);
            constexpr std::size_t shown = 100;
            auto excluded = PreviewExclude(pattern, files, shown, stop);
            if (excluded) preview->excluded = std::move(*excluded);
        },
        [life = std::weak_ptr(life_), stop, preview, answer = std::move(answer)] {
            if (!life.expired() && !stop.stop_requested()) answer(std::move(*preview));
        });
}

}  // namespace orv
