#include "backup/sharing/ExcludeSheet.h"

#include <algorithm>

#include "foundation/system/LocalizedString.h"
#include "widgets/SizeText.h"

namespace orv {

using quelm::FormatLocalizedString;
using quelm::GetLocalizedString;

namespace {

std::string_view trimmed(std::string_view text) {
    constexpr std::string_view blanks = " \t\r\n";
    const std::size_t begin = text.find_first_not_of(blanks);
    if (begin == text.npos) return {};
    return text.substr(begin, text.find_last_not_of(blanks) + 1 - begin);
}

std::string inWords(const ScanLedger::Preview& preview) {
    const auto files = static_cast<std::int64_t>(preview.excluded.files);
    if (files == 0 && !preview.isLowerBound) {
        return GetLocalizedString("Sharing.PreviewNothing",
                                  "It would leave out none of the selected files.");
    }
    const std::string size = FileSizeText(preview.excluded.bytes);
    if (preview.isLowerBound) {
        return FormatLocalizedString("Sharing.PreviewAtLeast",
                                     "It would leave out at least %qd of the selected files (%@).",
                                     {files, size});
    }
    if (files == 1) {
        return FormatLocalizedString("Sharing.PreviewOne",
                                     "It would leave out 1 of the selected files (%@).", {size});
    }
    return FormatLocalizedString(
        "Sharing.Preview", "It would leave out %qd of the selected files (%@).", {files, size});
}

Alert refusedPattern() {
    return {.title = {},
            .message = GetLocalizedString("Sharing.BadPattern", "This pattern cannot be used."),
            .informativeText = FormatLocalizedString(
                "Sharing.BadPatternDetail",
                "It is longer than %lu bytes or holds control characters. Shorten it, and type "
                "\"?\" for each such character.",
                {orv_FilterSettings::longestPattern}),
            .buttons = {GetLocalizedString("PrefPane.OK", "OK")}};
}

Alert refusedFile(const std::string& path) {
    return {
        .title = {},
        .message = FormatLocalizedString("Sharing.BadFileName", "%@ cannot be excluded.", {path}),
        .informativeText = GetLocalizedString(
            "Sharing.BadFileNameDetail",
            "Its name is not UTF-8 or holds control characters, which the list cannot keep. "
            "Rename it, or exclude it by a pattern."),
        .buttons = {GetLocalizedString("PrefPane.OK", "OK")}};
}

}  // namespace

ExcludeSheet::ExcludeSheet(ExcludeOutlets& outlets, Environment environment)
    : outlets_(outlets), environment_(std::move(environment)) {
    outlets_._addFilterButton.setAction([this] { addExcludeFilterWindow(); });
    outlets_._removeFilterButton.setAction([this] { removeExcludeFilterWindow(); });
    outlets_._addFileButton.setAction([this] { addExcludeFile(); });
    outlets_._removeFileButton.setAction([this] { removeExcludeFile(); });
    outlets_._okButton.setAction([this] { okExcludeFilterWindow(); });
    outlets_._excludeWindow.setCloseAction([this] { okExcludeFilterWindow(); });
    outlets_._filterField.setTextDidChange([this] { patternTyped(); });
    outlets_._excludeFiltersTable.setSelectionDidChange([this] { updateButtons(); });
    outlets_._excludedFilesTable.setSelectionDidChange([this] { updateButtons(); });
    excludeFiltersArray = environment_.filterSettings.excludeFilters();
    for (TableView* table :
         {&outlets_._excludeFiltersTable, &outlets_._excludedFilesTable, &outlets_._previewTable}) {
        table->setDataSource(this);
    }
    hidePreview();
    updateButtons();
}

ExcludeSheet::~ExcludeSheet() {
    for (TableView* table :
         {&outlets_._excludeFiltersTable, &outlets_._excludedFilesTable, &outlets_._previewTable}) {
        table->setDataSource(nullptr);
        table->setSelectionDidChange({});
    }
    outlets_._filterField.setTextDidChange({});
    outlets_._excludeWindow.setCloseAction({});
    for (Button* button :
         {&outlets_._addFilterButton, &outlets_._removeFilterButton, &outlets_._addFileButton,
          &outlets_._removeFileButton, &outlets_._okButton}) {
        button->setAction({});
    }
}

void ExcludeSheet::open() {
    patternsChanged_ = false;
    outlets_._filterField.setStringValue("");
    hidePreview();
    reload();
    outlets_._excludeWindow.orderFront();
}

void ExcludeSheet::close() {
    environment_.ledger.cancelPreview();
    outlets_._excludeWindow.close();
}

std::size_t ExcludeSheet::count() const {
    return excludeFiltersArray.size() + environment_.excludedFiles.paths().size();
}

std::string ExcludeSheet::typedPattern() const {
    return std::string(trimmed(outlets_._filterField.stringValue()));
}

void ExcludeSheet::patternTyped() {
    updateButtons();
    environment_.ledger.cancelPreview();
    const std::string pattern = typedPattern();
    if (pattern.empty()) return hidePreview();
    environment_.ledger.askPreview(
        environment_.selection(), pattern,
        [this](const ScanLedger::Preview& preview) { showPreview(preview); });
}

void ExcludeSheet::showPreview(const ScanLedger::Preview& preview) {
    matches_ = preview.excluded.first;
    outlets_._previewInfo.setStringValue(inWords(preview));
    outlets_._previewInfo.setHidden(false);
    outlets_._previewTable.reloadData();
    outlets_._previewTable.setHidden(false);
}

void ExcludeSheet::hidePreview() {
    matches_.clear();
    outlets_._previewInfo.setStringValue("");
    outlets_._previewInfo.setHidden(true);
    outlets_._previewTable.reloadData();
    outlets_._previewTable.setHidden(true);
}

void ExcludeSheet::addExcludeFilterWindow() {
    const std::string pattern = typedPattern();
    if (pattern.empty()) return;
    if (std::ranges::find(excludeFiltersArray, pattern) == excludeFiltersArray.end()) {
        if (!environment_.filterSettings.addExcludeFilter(pattern))
            return environment_.alerts.show(refusedPattern(), {});
        excludeFiltersArray.push_back(pattern);
        patternsChanged_ = true;
    }
    outlets_._filterField.enterText("");
    reload();
}

void ExcludeSheet::removeExcludeFilterWindow() {
    std::vector<std::string> chosen;
    for (const std::size_t row : outlets_._excludeFiltersTable.selectedRows())
        chosen.push_back(excludeFiltersArray[row]);
    for (const std::string& pattern : chosen) {
        environment_.filterSettings.removeExcludeFilter(pattern);
        std::erase(excludeFiltersArray, pattern);
        patternsChanged_ = true;
    }
    outlets_._excludeFiltersTable.selectRows({});
    reload();
}

void ExcludeSheet::addExcludeFile() {
    environment_.filePanels.chooseFiles(
        {.title = GetLocalizedString("Sharing.ChooseFiles", "Choose Files"),
         .prompt = GetLocalizedString("Sharing.Exclude", "Exclude"),
         .allowsSeveral = true},
        [this, life = std::weak_ptr(life_)](const std::vector<std::string>& paths) {
            if (!life.expired()) addExcludedFiles(paths);
        });
}

void ExcludeSheet::addExcludedFiles(const std::vector<std::string>& paths) {
    for (const std::string& path : paths) {
        if (environment_.excludedFiles.contains(path)) continue;
        if (!environment_.excludedFiles.add(path)) environment_.alerts.show(refusedFile(path), {});
    }
    reload();
}

void ExcludeSheet::removeExcludeFile() {
    std::vector<std::string> chosen;
    for (const std::size_t row : outlets_._excludedFilesTable.selectedRows())
        chosen.push_back(environment_.excludedFiles.paths()[row]);
    removeExcludedFiles(chosen);
}

void ExcludeSheet::removeExcludedFiles(const std::vector<std::string>& paths) {
    for (const std::string& path : paths)
        environment_.excludedFiles.remove(path);
    outlets_._excludedFilesTable.selectRows({});
    reload();
}

void ExcludeSheet::okExcludeFilterWindow() {
    if (!outlets_._excludeWindow.isOpen()) return;
    close();
    environment_.closed(patternsChanged_);
}

void ExcludeSheet::reload() {
    outlets_._excludeFiltersTable.reloadData();
    outlets_._excludedFilesTable.reloadData();
    updateButtons();
}

void ExcludeSheet::updateButtons() {
    outlets_._addFilterButton.setEnabled(!typedPattern().empty());
    outlets_._removeFilterButton.setEnabled(!outlets_._excludeFiltersTable.selectedRows().empty());
    outlets_._removeFileButton.setEnabled(!outlets_._excludedFilesTable.selectedRows().empty());
}

std::size_t ExcludeSheet::numberOfRowsInTableView(const TableView& table) const {
    if (&table == &outlets_._excludeFiltersTable) return excludeFiltersArray.size();
    if (&table == &outlets_._previewTable) return matches_.size();
    return environment_.excludedFiles.paths().size();
}

std::optional<std::string> ExcludeSheet::objectValue(const TableView& table,
                                                     std::string_view column,
                                                     std::size_t row) const {
    if (row >= numberOfRowsInTableView(table)) return std::nullopt;
    if (&table == &outlets_._excludeFiltersTable) return excludeFiltersArray[row];
    if (&table == &outlets_._excludedFilesTable) return environment_.excludedFiles.paths()[row];
    const ExcludePreview::Match& match = matches_[row];
    if (column == "name") return match.name;
    if (column == "size") return FileSizeText(match.size);
    return match.folder;
}

}  // namespace orv
