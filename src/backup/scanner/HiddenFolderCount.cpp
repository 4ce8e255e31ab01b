#include "backup/scanner/HiddenFolderCount.h"

#include <cstddef>
#include <memory>
#include <utility>

#include "foundation/files/EntryReader.h"
#include "foundation/system/Saturating.h"

namespace orv {

namespace {

using quelm::os::EntryKind;
using quelm::os::EntryReader;

constexpr std::size_t mostLevels = 512;

class HiddenCounter {
 public:
    explicit HiddenCounter(const std::stop_token& stop) : stop_(stop) {}

    /// False once it is to stop.
    bool addTree(const std::string& top) {
        waiting_ = {{top, 1}};
        bool isTop = true;
        while (!waiting_.empty()) {
            const Folder folder = std::move(waiting_.back());
            waiting_.pop_back();
            if (entries_.openChild(-1, folder.path.c_str()) && isOnSameDevice(isTop) &&
                !addFolder(folder)) {
                return false;
            }
            isTop = false;
        }
        return true;
    }

    [[nodiscard]] const HiddenTotals& totals() const { return totals_; }

 private:
    struct Folder {
        std::string path;
        std::size_t level;
    };

    bool isOnSameDevice(bool isTop) {
        const auto status = entries_.status();
        if (status && isTop) device_ = status->device;
        return status && status->device == device_;
    }

    bool addFolder(const Folder& folder) {
        while (const auto entry = entries_.next()) {
            if (stop_.stop_requested()) return false;
            if (entry->kind == EntryKind::Folder) {
                if (folder.level < mostLevels) addLater(folder, entry->name);
            } else {
                addFile(*entry);
            }
        }
        return true;
    }

    void addLater(const Folder& parent, std::string_view name) {
        waiting_.push_back({parent.path + "/" + std::string(name), parent.level + 1});
    }

    void addFile(const EntryReader::Entry& entry) {
        if (entry.kind == EntryKind::Other) return;
        if (entry.kind == EntryKind::File) {
            const auto status = entries_.status(entry.name.data());
            if (!status || status->kind != EntryKind::File) return;
            totals_.bytes = quelm::SaturatingTotal(totals_.bytes, status->size);
        }
        ++totals_.files;
    }

    const std::stop_token& stop_;
    EntryReader entries_;
    std::vector<Folder> waiting_;
    std::uint64_t device_ = 0;
    HiddenTotals totals_;
};

}  // namespace

std::optional<HiddenTotals> CountHiddenFolders(const std::vector<std::string>& folders,
                                               const std::stop_token& stop) {
    HiddenCounter counter(stop);
    for (const std::string& folder : folders) {
        if (stop.stop_requested() || !counter.addTree(folder)) return std::nullopt;
    }
    return counter.totals();
}

}  // namespace orv
