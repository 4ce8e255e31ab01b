#include <array>
#include <limits>

#include "cli/Command.h"
#include "cli/Commands.h"

namespace orv::cli {

namespace {

constexpr std::size_t anyNumber = std::numeric_limits<std::size_t>::max();

constexpr std::array commands = {
    Command{.name = "config path",
            .parameters = "[FILE]",
            .summary = {"Cli.Summary.ConfigPath",
                        "print the path of the configuration folder or of a file in it"},
            .maximumArguments = 1,
            .run = ShowConfigPath},
    Command{
        .name = "config show",
        .parameters = "FILE",
        .summary = {"Cli.Summary.ConfigShow", "show a property file with the types of its values"},
        .minimumArguments = 1,
        .maximumArguments = 1,
        .run = ShowConfigFile},
    Command{
        .name = "events",
        .parameters = "[--name NAME]... [--agent ID] [--count N]",
        .summary =
            {"Cli.Summary.Events",
             "print every notification of panel and agent as it arrives, one JSON object a line"},
        .run = PrintEvents,
        .options = "--name --agent --count",
        .usesBus = true},
    Command{.name = "folders roots",
            .summary = {"Cli.Summary.FoldersRoots",
                        "print the topmost folders that are selected for backup"},
            .run = ShowFolderRoots},
    Command{.name = "folders rows",
            .summary = {"Cli.Summary.FoldersRows",
                        "print the rows of the selection, + for selected and - for left out"},
            .run = ShowFolderRows},
    Command{.name = "hardware-id",
            .summary = {"Cli.Summary.HardwareId", "print the identity of this computer"},
            .run = ShowHardwareId},
    Command{.name = "keychain check",
            .summary = {"Cli.Summary.KeychainCheck",
                        "tell whether passwords can be kept, and what to do if not"},
            .run = CheckKeychain},
    Command{.name = "notify report",
            .parameters = "[--agent ID]",
            .summary = {"Cli.Summary.NotifyReport", "ask the agent to report its state"},
            .run = NotifyReport,
            .options = "--agent",
            .usesBus = true},
    Command{.name = "notify settings",
            .parameters = "HINT [--agent ID]",
            .summary = {"Cli.Summary.NotifySettings",
                        "tell that settings changed; HINT is a number, as 0x4000"},
            .minimumArguments = 1,
            .maximumArguments = 1,
            .run = NotifySettings,
            .options = "--agent",
            .usesBus = true},
    Command{.name = "notify status",
            .parameters = "CODE [--agent ID]",
            .summary = {"Cli.Summary.NotifyStatus", "tell a connection state, as the agent does"},
            .minimumArguments = 1,
            .maximumArguments = 1,
            .run = NotifyStatus,
            .options = "--agent",
            .usesBus = true},
    Command{.name = "path classify",
            .parameters = "PATH",
            .summary = {"Cli.Summary.PathClassify", "tell what kind of place a path is"},
            .minimumArguments = 1,
            .maximumArguments = 1,
            .run = ClassifyPath},
    Command{.name = "send",
            .parameters = "EVENT [KEY=VALUE]... [--agent ID]",
            .summary = {"Cli.Summary.Send", "send an agent event"},
            .minimumArguments = 1,
            .maximumArguments = anyNumber,
            .run = SendEvent,
            .options = "--agent",
            .usesBus = true},
    Command{.name = "settings get",
            .parameters = "KEY",
            .summary = {"Cli.Summary.SettingsGet",
                        "print what is in effect for a key of the account's record"},
            .minimumArguments = 1,
            .maximumArguments = 1,
            .run = GetSetting},
    Command{.name = "settings list",
            .summary = {"Cli.Summary.SettingsList",
                        "print what is in effect for every key, defaults included"},
            .run = ListSettings},
    Command{.name = "settings set",
            .parameters = "KEY VALUE",
            .summary = {"Cli.Summary.SettingsSet", "change a key and tell panels and agents"},
            .minimumArguments = 2,
            .maximumArguments = 2,
            .run = SetSetting,
            .usesBus = true},
};

}  // namespace

std::span<const Command> AllCommands() {
    return commands;
}

}  // namespace orv::cli
