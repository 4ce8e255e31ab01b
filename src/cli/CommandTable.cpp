#include <array>
#include <limits>

#include "cli/Command.h"
#include "cli/Commands.h"

namespace orv::cli {

namespace {

constexpr std::size_t anyNumber = std::numeric_limits<std::size_t>::max();

constexpr std::array commands = {
    Command{
        "config path",
        "[FILE]",
        {"Cli.Summary.ConfigPath", "print the path of the configuration folder or of a file in it"},
        0,
        1,
        ShowConfigPath},
    Command{"config show",
            "FILE",
            {"Cli.Summary.ConfigShow", "show a property file with the types of its values"},
            1,
            1,
            ShowConfigFile},
    Command{"events",
            "[--name NAME]... [--agent ID] [--count N]",
            {"Cli.Summary.Events",
             "print every notification of panel and agent as it arrives, one JSON object a line"},
            0,
            0,
            PrintEvents,
            "--name --agent --count"},
    Command{"folders roots",
            "",
            {"Cli.Summary.FoldersRoots", "print the topmost folders that are selected for backup"},
            0,
            0,
            ShowFolderRoots},
    Command{"folders rows",
            "",
            {"Cli.Summary.FoldersRows",
             "print the rows of the selection, + for selected and - for left out"},
            0,
            0,
            ShowFolderRows},
    Command{"hardware-id",
            "",
            {"Cli.Summary.HardwareId", "print the identity of this computer"},
            0,
            0,
            ShowHardwareId},
    Command{
        "keychain check",
        "",
        {"Cli.Summary.KeychainCheck", "tell whether passwords can be kept, and what to do if not"},
        0,
        0,
        CheckKeychain},
    Command{"notify report",
            "[--agent ID]",
            {"Cli.Summary.NotifyReport", "ask the agent to report its state"},
            0,
            0,
            NotifyReport,
            "--agent"},
    Command{
        "notify settings",
        "HINT [--agent ID]",
        {"Cli.Summary.NotifySettings", "tell that settings changed; HINT is a number, as 0x4000"},
        1,
        1,
        NotifySettings,
        "--agent"},
    Command{"notify status",
            "CODE [--agent ID]",
            {"Cli.Summary.NotifyStatus", "tell a connection state, as the agent does"},
            1,
            1,
            NotifyStatus,
            "--agent"},
    Command{"path classify",
            "PATH",
            {"Cli.Summary.PathClassify", "tell what kind of place a path is"},
            1,
            1,
            ClassifyPath},
    Command{"send",
            "EVENT [KEY=VALUE]... [--agent ID]",
            {"Cli.Summary.Send", "send an agent event"},
            1,
            anyNumber,
            SendEvent,
            "--agent"},
    Command{
        "settings get",
        "KEY",
        {"Cli.Summary.SettingsGet", "print what is in effect for a key of the account's record"},
        1,
        1,
        GetSetting},
    Command{
        "settings list",
        "",
        {"Cli.Summary.SettingsList", "print what is in effect for every key, defaults included"},
        0,
        0,
        ListSettings},
    Command{"settings set",
            "KEY VALUE",
            {"Cli.Summary.SettingsSet", "change a key and tell panels and agents"},
            2,
            2,
            SetSetting},
};

}  // namespace

std::span<const Command> AllCommands() {
    return commands;
}

}  // namespace orv::cli
