#pragma once

#include <map>
#include <string>
#include <vector>

#include "backup/sharing/SharingOutlets.h"
#include "pane/PaneOutlets.h"
#include "pane/password/OnlinePasswordOutlets.h"
#include "pane/settings/AdvancedSettingsOutlets.h"
#include "qt/SampleOutline.h"

namespace test_support {

/// Rows of texts by column.
class SampleRows final : public orv::TableDataSource {
 public:
    using Row = std::map<std::string, std::string, std::less<>>;
    std::vector<Row> rows;

    [[nodiscard]] std::size_t numberOfRowsInTableView(
        const orv::TableView& /*table*/) const override {
        return rows.size();
    }
    [[nodiscard]] std::optional<std::string> objectValue(const orv::TableView& /*table*/,
                                                         std::string_view column,
                                                         std::size_t row) const override {
        if (row >= rows.size()) return std::nullopt;
        const auto found = rows[row].find(column);
        return found != rows[row].end() ? std::optional(found->second) : std::nullopt;
    }
};

/// A storage of which about a third is free.
[[nodiscard]] orv::StorageFigures SampleFigures();

/// The outlets of every window with the values of an ordinary day.
struct SampleOutlets {
    SampleOutlets();

    SampleRows folders;
    SampleRows projects;
    SampleRows events;
    SampleOutline tree;
    SampleRows preview;
    SampleRows patterns;
    SampleRows excludedFiles;
    SampleRows leftOut;
    orv::PaneOutlets pane;
    orv::OnlinePasswordOutlets password;
    orv::AdvancedSettingsOutlets advanced;
    orv::SharingOutlets sharing;

 private:
    void fillHeader();
    void fillBackup();
    void fillProjects();
    void fillAccount();
    void fillDebug();
    void fillDialogs();
    void fillTree();
    void fillSharing();
    void fillExclude();
};

}  // namespace test_support
