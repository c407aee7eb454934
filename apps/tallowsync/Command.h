#pragma once

#include "apps/tallowsync/Console.h"

#include <CLI/CLI.hpp>

#include <functional>
#include <span>
#include <string_view>

namespace wmoutlook {

/// What a command does once its options have been read. May throw UsageError, InputError, DatabaseError and OutlookError.
using Action = std::function<ExitStatus(Console&)>;

/// One command of the program, or one below `outlook`.
struct Command {
    std::string_view name;
    std::string_view summary;
    std::string_view example;           ///< a command line, without the program's name
    Action (*declare)(CLI::App& line);  ///< adds the options to the command's line
    bool changesFiles = false;
    std::span<const Command> below{};  ///< for a command that is a group: no action of its own
};

/// The command that is given on the command line.
struct ChosenCommand {
    Action action;
    bool changesFiles = false;
};

/// Adds commands below a line; the one that is given on the command line is left in `chosen`.
void addCommands(CLI::App& parent, std::span<const Command> commands, ChosenCommand& chosen);

// The tables, one per file of commands/.

[[nodiscard]] std::span<const Command> fileCommands();
[[nodiscard]] std::span<const Command> outlookCommands();
[[nodiscard]] std::span<const Command> syncCommands();
[[nodiscard]] std::span<const Command> settingsCommands();
[[nodiscard]] std::span<const Command> mailCommands();
[[nodiscard]] std::span<const Command> mergeCommands();

}  // namespace wmoutlook
