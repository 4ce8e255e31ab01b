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
    Command{"filters category",
            "NAME on|off",
            {"Cli.Summary.FiltersCategory",
             "back up a category of files or not; the name \"all\" stands for all files"},
            2,
            2,
            SwitchFilterCategory},
    Command{"filters exclude add",
            "PATTERN",
            {"Cli.Summary.FiltersExcludeAdd", "leave out the files whose names match"},
            1,
            1,
            AddExcludeFilter},
    Command{"filters exclude remove",
            "PATTERN",
            {"Cli.Summary.FiltersExcludeRemove", "no longer leave them out"},
            1,
            1,
            RemoveExcludeFilter},
    Command{"filters match",
            "NAME...",
            {"Cli.Summary.FiltersMatch", "tell which pattern decides about a file name"},
            1,
            anyNumber,
            MatchFilters},
    Command{"filters show",
            "",
            {"Cli.Summary.FiltersShow", "show which files are backed up"},
            0,
            0,
            ShowFilters},
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
};

}  // namespace

std::span<const Command> AllCommands() {
    return commands;
}

}  // namespace orv::cli
