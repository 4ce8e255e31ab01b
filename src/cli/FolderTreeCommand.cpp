#include <charconv>
#include <fmt/format.h>
#include <fmt/ostream.h>
#include <nlohmann/json.hpp>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "backup/tree/TreeRules.h"
#include "cli/Commands.h"
#include "cli/Complaint.h"
#include "cli/PathArgument.h"
#include "cli/StoredSelection.h"
#include "foundation/system/LocalizedString.h"
#include "foundation/texts/VisibleText.h"

namespace orv::cli {

namespace {

using nlohmann::json;
using quelm::FormatLocalizedString;
using quelm::GetLocalizedString;

/// More folders in each other are not shown.
constexpr std::size_t deepest = 100;

std::optional<std::size_t> depthOf(const std::string& text) {
    std::size_t depth = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), depth);
    const bool isWhole = error == std::errc() && end == text.data() + text.size();
    return isWhole && depth <= deepest ? std::optional(depth) : std::nullopt;
}

struct CheckState {
    std::string_view name;
    std::string_view box;
};

CheckState stateOf(const orv_FileSystemItem& item) {
    if (item.checkFlag()) return {"checked", "[x]"};
    return item.shouldBeMarked() ? CheckState{"partly", "[-]"} : CheckState{"unchecked", "[ ]"};
}

/// Shows folders and what is below them, as deep as asked for.
class TreePrinter {
 public:
    TreePrinter(Console& console, std::size_t depth) : console_(console), depth_(depth) {}

    void print(const std::vector<orv_FileSystemItem*>& tops) {
        json all = json::array();
        for (orv_FileSystemItem* const item : tops)
            add(*item, item->fullPath(), item->fullPath(), 0, all);
        if (console_.json)
            fmt::print(console_.out, "{}\n",
                       all.dump(-1, ' ', false, json::error_handler_t::replace));
    }
    /// Whether folders were left out because they were too many.
    [[nodiscard]] bool isCut() const { return shown_ > most; }

    static constexpr std::size_t most = 200'000;

 private:
    void add(orv_FileSystemItem& item, const std::string& path, std::string_view label,
             std::size_t level, json& siblings) {
        if (++shown_ > most) return;
        const CheckState state = stateOf(item);
        if (!console_.json) {
            fmt::print(console_.out, "{:{}}{} {}{}\n", "", 2 * level, state.box,
                       quelm::VisibleText(label), item.isMissing() ? missing_ : "");
        }
        json children = json::array();
        const bool isOpen = level < depth_ && item.isExpandable();
        for (std::size_t i = 0; isOpen && !isCut() && i < item.children().size(); ++i) {
            orv_FileSystemItem& child = *item.childAtIndex(i);
            const std::string_view name = child.relativePath();
            add(child, PathInFolder(path, name), name, level + 1, children);
        }
        if (!console_.json) return;
        json& object = siblings.emplace_back(json{{"path", path},
                                                  {"name", item.relativePath()},
                                                  {"state", state.name},
                                                  {"missing", item.isMissing()}});
        if (level < depth_) object["children"] = std::move(children);
    }

    Console& console_;
    std::size_t depth_;
    std::size_t shown_ = 0;
    const std::string missing_ =
        GetLocalizedString("Sharing.FolderMissing", " (Folder is missing)");
};

}  // namespace

ExitCode ShowFolderTree(const Arguments& arguments, Console& console) {
    const std::string given = arguments.value("--depth").value_or("1");
    const auto depth = depthOf(given);
    if (!depth) {
        return Fail(console, ExitCode::Usage,
                    FormatLocalizedString("Folders.BadDepth", "%@ is no depth from 0 to %lu",
                                          {given, deepest}));
    }
    const auto stored = LoadSelection(console);
    if (!stored) return ExitCode::Failed;
    SelectionTree selection(*stored);
    std::vector<orv_FileSystemItem*> tops = selection.tree().getRootItems();
    if (!arguments.empty()) {
        const std::string path = PathOfFolder(arguments[0]);
        tops = {selection.find(path)};
        if (!tops[0]) {
            return Fail(console, ExitCode::Failed,
                        FormatLocalizedString("Folders.NotInTree",
                                              "%@ is not among the folders that can be backed up",
                                              {quelm::VisibleText(path)}));
        }
    }
    TreePrinter printer(console, *depth);
    printer.print(tops);
    if (!printer.isCut()) return ExitCode::Done;
    return Fail(console, ExitCode::Failed,
                FormatLocalizedString("Folders.TooMany",
                                      "Only the first %lu folders are shown. Name a folder, or a "
                                      "smaller depth.",
                                      {TreePrinter::most}));
}

}  // namespace orv::cli
