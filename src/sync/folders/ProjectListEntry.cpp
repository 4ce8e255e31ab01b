#include "sync/folders/ProjectListEntry.h"

#include <array>

namespace quelm::sync {

namespace {

template <class Enum>
struct Letter {
    Enum value;
    char letter;
};
constexpr auto fsLetters =
    std::to_array<Letter<EFsType>>({{FS_TYPE_REGULAR, 'R'}, {FS_TYPE_VIRTUAL, 'V'}});
constexpr auto rootLetters = std::to_array<Letter<ESyncRootType>>(
    {{MASTER_PROJECT_FOLDER, 'M'}, {EXTERNAL_PROJECT_FOLDER, 'E'}});
constexpr std::string_view defaultId = "default";
/// Where the id begins, behind two letters and a colon.
constexpr std::size_t idStart = 3;

template <class Letters, class Enum>
char letterOf(const Letters& letters, Enum value) {
    for (const auto& row : letters) {
        if (row.value == value) return row.letter;
    }
    return 'X';
}

template <class Letters>
bool isLetter(const Letters& letters, char letter) {
    for (const auto& row : letters) {
        if (row.letter == letter) return true;
    }
    return false;
}

}  // namespace

bool IsCurrentProjectLine(std::string_view line) {
    return line.size() >= idStart && line[2] == ':' && isLetter(fsLetters, line[0]) &&
           isLetter(rootLetters, line[1]);
}

std::optional<SProjectListEntry> ParseProjectLine(std::string_view line) {
    const auto colon = line.find(':', idStart);
    if (line.size() <= idStart || colon == line.npos) return std::nullopt;
    const auto id = line.substr(idStart, colon - idStart);
    const bool isDefault = id == defaultId;
    return SProjectListEntry{
        .fsType = line[0] == 'V' ? FS_TYPE_VIRTUAL : FS_TYPE_REGULAR,
        .rootType = line[1] == 'M' ? MASTER_PROJECT_FOLDER : EXTERNAL_PROJECT_FOLDER,
        .projectId = isDefault ? "" : std::string(id),
        .path = std::string(line.substr(colon + 1)),
        .isDefault = isDefault};
}

std::optional<SProjectListEntry> ParseOldProjectLine(std::string_view line) {
    const auto colon = line.find(':');
    if (colon == line.npos) return std::nullopt;
    SProjectListEntry entry;
    entry.projectId = line.substr(0, colon);
    entry.path = line.substr(colon + 1);
    return entry;
}

std::optional<std::string> ProjectLineOf(const SProjectListEntry& entry) {
    if (entry.projectId.find_first_of(":\n") != std::string::npos ||
        entry.path.find('\n') != std::string::npos) {
        return std::nullopt;
    }
    const bool isDefault = entry.projectId.empty() && entry.isDefault;
    std::string line{letterOf(fsLetters, entry.fsType), letterOf(rootLetters, entry.rootType), ':'};
    line.append(isDefault ? defaultId : std::string_view(entry.projectId));
    return line.append(":").append(entry.path);
}

}  // namespace quelm::sync
