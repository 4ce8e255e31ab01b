#include "backup/sharing/LeftOutSheet.h"

#include <utility>

#include "foundation/system/LocalizedString.h"

namespace orv {

using quelm::FormatLocalizedString;

namespace {

std::string titleFor(const std::string& folder, const LeftOutList& list) {
    if (!list.problem.empty()) return folder + "\n" + list.problem;
    if (list.entries.empty()) {
        return FormatLocalizedString("LeftOut.AllCounted", "Everything directly in %@ is counted.",
                                     {folder});
    }
    if (list.isCut) {
        return FormatLocalizedString(
            "LeftOut.TitleCut", "In %@ these are not counted, and more than are listed:", {folder});
    }
    return FormatLocalizedString("LeftOut.Title", "In %@ these are not counted:", {folder});
}

}  // namespace

LeftOutSheet::LeftOutSheet(LeftOutOutlets& outlets, quelm::Background& background)
    : outlets_(outlets), background_(background) {
    outlets_._closeButton.setAction([this] { close(); });
    outlets_._leftOutWindow.setCloseAction([this] { close(); });
    outlets_._leftOutTable.setDataSource(this);
}

LeftOutSheet::~LeftOutSheet() {
    outlets_._closeButton.setAction({});
    outlets_._leftOutWindow.setCloseAction({});
    outlets_._leftOutTable.setDataSource(nullptr);
}

void LeftOutSheet::open(const std::string& folder, const ScannerFilters& filters) {
    list_ = {};
    outlets_._leftOutTable.reloadData();
    outlets_._leftOutTitle.setStringValue(
        FormatLocalizedString("LeftOut.LookingInto", "Looking into %@…", {folder}));
    outlets_._indicator.startAnimation();
    outlets_._leftOutWindow.orderFront();
    const unsigned opening = ++opening_;
    auto list = std::make_shared<LeftOutList>();
    background_.perform([list, folder, filters] { *list = FindLeftOut(folder, filters); },
                        [this, life = std::weak_ptr(life_), list, folder, opening] {
                            if (!life.expired() && opening == opening_)
                                show(folder, std::move(*list));
                        });
}

void LeftOutSheet::show(const std::string& folder, LeftOutList list) {
    list_ = std::move(list);
    outlets_._indicator.stopAnimation();
    outlets_._leftOutTitle.setStringValue(titleFor(folder, list_));
    outlets_._leftOutTable.reloadData();
}

void LeftOutSheet::close() {
    ++opening_;
    outlets_._indicator.stopAnimation();
    outlets_._leftOutWindow.close();
}

std::size_t LeftOutSheet::numberOfRowsInTableView(const TableView& /*table*/) const {
    return list_.entries.size();
}

std::optional<std::string> LeftOutSheet::objectValue(const TableView& /*table*/,
                                                     std::string_view column,
                                                     std::size_t row) const {
    if (row >= list_.entries.size()) return std::nullopt;
    const LeftOutEntry& entry = list_.entries[row];
    return column == "name" ? entry.name : entry.reason;
}

}  // namespace orv
