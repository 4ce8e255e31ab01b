#include "backup/scanner/FolderReader.h"

#include <climits>
#include <utility>

#include "foundation/files/EntryReader.h"
#include "foundation/system/Saturating.h"

namespace orv {

namespace {

using quelm::os::EntryKind;
using quelm::os::EntryReader;

constexpr int mostOpenFolders = 128;
std::atomic<int> openFolders = 0;

void add(std::uint64_t& total, std::uint64_t more) {
    total = quelm::SaturatingTotal(total, more);
}

class DiskFolderReader final : public FolderReader {
 public:
    std::optional<FolderReading> read(const FolderPlace& folder, const ScannerFilters& filters,
                                      const std::atomic<bool>& isStopped) override {
        if (!open(folder)) return std::nullopt;
        begin(folder, filters);
        while (const auto entry = entries_.next()) {
            if (isStopped.load(std::memory_order_relaxed)) return std::nullopt;
            take(*entry);
        }
        return finish(folder);
    }

 private:
    bool open(const FolderPlace& folder) {
        const std::string& path = folder.path;
        if (path.size() > PATH_MAX) return false;
        if (!folder.isSubfolder) return entries_.open(path.c_str());
        if (!folder.parent) return entries_.openChild(-1, path.c_str());
        return entries_.openChild(folder.parent->descriptor(), path.c_str() + path.rfind('/') + 1);
    }

    void begin(const FolderPlace& folder, const ScannerFilters& filters) {
        filters_ = &filters;
        found_ = {};
        packed_.clear();
        path_ = folder.path;
        if (!path_.ends_with('/')) path_ += '/';
        pathSize_ = path_.size();
    }

    void take(const EntryReader::Entry& entry) {
        const bool isHidden = entry.name.starts_with('.');
        if (entry.kind == EntryKind::Link) {
            add(found_.totals.leftOut.files, 1);
        } else if (entry.kind == EntryKind::File) {
            isHidden ? takeHiddenFile(entry.name) : takeFile(entry.name);
        } else if (entry.kind == EntryKind::Folder) {
            isHidden ? takeHiddenFolder(entry.name) : takeFolder(entry.name);
        }
    }

    void takeHiddenFile(std::string_view name) {
        const auto status = entries_.status(name.data());
        if (!status || status->kind != EntryKind::File) return;
        add(found_.totals.leftOut.files, 1);
        add(found_.totals.leftOut.bytes, status->size);
    }

    void takeHiddenFolder(std::string_view name) {
        found_.totals.leftOut.hiddenFolders.emplace_back(name);
    }

    void takeFile(std::string_view name) {
        // the name first: asking for the size is what takes time
        std::uint32_t type = 0;
        std::uint32_t excludingType = 0;
        if (!filters_->include.isIncluded(name, type)) return;
        if (filters_->exclude.isIncluded(name, excludingType)) return;
        const auto status = entries_.status(name.data());
        if (!status || status->kind != EntryKind::File) return;
        if (status->size > filters_->maxFileSize) return;
        add(found_.totals.size, status->size);
        add(found_.totals.files, 1);
        add(found_.totals.filterSize[type], status->size);
        ScannedFiles::pack(packed_, name, status->size);
    }

    void takeFolder(std::string_view name) {
        path_.resize(pathSize_);
        path_ += name;
        if (filters_->unscannedFolders.contains(std::string_view(path_))) return;
        if (filters_->excludedFolders.matches(path_)) return;
        found_.subfolders.push_back({path_, true, nullptr});
    }

    FolderReading finish(const FolderPlace& folder) {
        if (!packed_.empty()) {
            found_.totals.scannedFiles =
                std::make_shared<const ScannedFiles>(folder.path, std::string(packed_));
        }
        keepForSubfolders(entries_.release());
        return std::move(found_);
    }

    void keepForSubfolders(platform::FileDescriptor opened) {
        if (found_.subfolders.empty()) return;
        const auto parent = OpenFolder::keep(std::move(opened));
        for (FolderPlace& subfolder : found_.subfolders)
            subfolder.parent = parent;
    }

    EntryReader entries_;
    const ScannerFilters* filters_ = nullptr;
    FolderReading found_;
    // kept for their memory
    std::string packed_;
    std::string path_;
    std::size_t pathSize_ = 0;
};

}  // namespace

std::shared_ptr<const OpenFolder> OpenFolder::keep(platform::FileDescriptor folder) {
    if (openFolders >= mostOpenFolders) return nullptr;
    return std::make_shared<const OpenFolder>(std::move(folder));
}

OpenFolder::OpenFolder(platform::FileDescriptor folder) : folder_(std::move(folder)) {
    ++openFolders;
}

OpenFolder::~OpenFolder() {
    --openFolders;
}

std::unique_ptr<FolderReader> MakeFolderReader() {
    return std::make_unique<DiskFolderReader>();
}

}  // namespace orv
