#include "apps/tallowsync/Program.h"

#include "apps/tallowsync/Command.h"
#include "apps/tallowsync/PlainText.h"
#include "platform/Errors.h"

#include <algorithm>
#include <exception>
#include <filesystem>
#include <new>
#include <optional>

namespace wmoutlook {

namespace {

constexpr const char* kSummary =
    "Keeps an accounting firm's address book, appointments and tasks in step with Outlook.\n"
    "It works on a firm's database (--firm) and an Outlook store (--outlook), two files that 'tallowsync sample' makes up.";

constexpr const char* kClosing =
    "Results go to standard output, everything else to standard error. 'tallowsync COMMAND --help' explains a command.\n\n"
    "Exit status: 0 done; 1 done, with failures reported; 2 wrong usage; 3 a file cannot be opened or is not what it should be;\n"
    "4 ended by the error service; 128 and the number of a signal that stopped it, 130 for Ctrl-C. A run that is stopped ends\n"
    "behind the record at work, and what was written stays; anything else leaves no trace. A second signal ends it at once.\n\n"
    "Example:\n"
    "  tallowsync sample demo\n"
    "  tallowsync sync --firm demo/firm.db --outlook demo/outlook.db --objects contacts --direction to-outlook --dry-run";

ExitStatus fail(Console& console, std::string_view sentence, ExitStatus status) {
    tellFailure(console, sentence);
    return status;
}

/// What is wrong with the command line, and where it is explained.
std::string explain(const CLI::App& app, const CLI::ParseError& error) {
    std::string command = "tallowsync";
    const CLI::App* line = &app;
    while (!line->get_subcommands().empty()) {
        for (const CLI::Option* option : line->get_options([](const CLI::Option* one) { return one->get_positional(); }))
            command += ' ' + option->get_name(true);  // "settings FILE get"
        line = line->get_subcommands().front();
        command += ' ' + line->get_name();
    }
    const std::vector<std::string> unread = line->remaining();
    const bool isUnknownCommand = line->get_require_subcommand_min() > 0 && !unread.empty() && unread[0].rfind('-', 0) != 0;
    const std::string fault = isUnknownCommand ? "There is no command \"" + unread[0] + "\"" : error.what();
    return fault + "; '" + command + " --help' explains it";
}

/// What was printed has to arrive; without it a work that is done is told as done all the same.
ExitStatus delivered(ExitStatus status, Console& console, bool isWorkDone) {
    console.out.flush();
    if (console.out) return status;
    tellFailure(console, std::string{"The result cannot be written to standard output"} +
                             (isWorkDone ? "; the work itself was done" : ""));
    return status == ExitStatus::done || status == ExitStatus::doneWithFailures ? ExitStatus::badFile : status;
}

/// An empty value, as a variable that is not set leaves it in a script, is no value; a mail may do without a subject or a text.
void refuseEmptyValues(const CLI::App& line) {
    const auto isFreeText = [](const CLI::Option& option) { return option.check_lname("subject") || option.check_lname("body"); };
    for (const CLI::Option* const option : line.get_options()) {
        const std::vector<std::string> values = option->results();
        if (option->get_positional() || isFreeText(*option) || std::find(values.begin(), values.end(), "") == values.end())
            continue;
        throw CLI::ValidationError{option->get_name() + " is empty"};
    }
    for (const CLI::App* const below : line.get_subcommands()) refuseEmptyValues(*below);
}

/// Reads the command line: the action to do, or the exit status when there is nothing left to do.
std::optional<ExitStatus> parse(CLI::App& app, std::vector<std::string> arguments, Console& console) {
    std::reverse(arguments.begin(), arguments.end());
    try {
        app.parse(std::move(arguments));
        refuseEmptyValues(app);
        return std::nullopt;
    } catch (const CLI::Success& help) {
        app.exit(help, console.out, console.err);
        return delivered(ExitStatus::done, console, false);
    } catch (const CLI::ParseError& error) {
        return fail(console, explain(app, error), ExitStatus::wrongUsage);
    }
}

ExitStatus perform(const ChosenCommand& command, Console& console) {
    try {
        return delivered(command.action(console), console, command.changesFiles);
    } catch (const UsageError& error) {
        return fail(console, error.what(), ExitStatus::wrongUsage);
    } catch (const Stopped& stopped) {
        return fail(console, std::string{stopped.what()} + "; nothing was changed", stoppedBy(stopped.signal()));
    } catch (const std::filesystem::filesystem_error& error) {
        return fail(console, inQuotes(error.path1().string()) + " cannot be used: " + error.code().message(),
                    ExitStatus::badFile);
    } catch (const std::bad_alloc&) {
        return fail(console, "There is not enough memory", ExitStatus::badFile);
    } catch (const std::exception& error) {
        return fail(console, error.what(), ExitStatus::badFile);
    }
}

void declareAll(CLI::App& app, ChosenCommand& chosen) {
    app.set_version_flag("--version", "tallowsync 0.1.0");
    app.footer(kClosing);
    app.require_subcommand(1);
    for (const auto commands :
         {fileCommands(), syncCommands(), outlookCommands(), settingsCommands(), mailCommands(), mergeCommands()})
        addCommands(app, commands, chosen);
}

}  // namespace

void addCommands(CLI::App& parent, std::span<const Command> commands, ChosenCommand& chosen) {
    for (const Command& command : commands) {
        CLI::App* const line = parent.add_subcommand(std::string{command.name}, std::string{command.summary});
        line->footer("Example:\n  tallowsync " + std::string{command.example});
        const Action action = command.declare(*line);
        if (action) line->final_callback([&chosen, action, &command] { chosen = {action, command.changesFiles}; });
        if (command.below.empty()) continue;
        line->require_subcommand(1);
        addCommands(*line, command.below, chosen);
    }
}

void tellFailure(Console& console, std::string_view sentence) {
    std::string line{sentence};
    std::replace(line.begin(), line.end(), '\n', ' ');
    while (line.ends_with(' ')) line.pop_back();
    if (!line.ends_with('.')) line += '.';
    console.err << "tallowsync: " << onOneLine(line) << '\n';
}

std::string wholeInput(std::istream& in) {
    try {
        return {std::istreambuf_iterator<char>{in}, {}};
    } catch (const std::ios_base::failure&) {
        throw InputError{"Standard input cannot be read; give a file or a pipe"};
    }
}

void stopIfAsked(const StopSignal& stopSignal) {
    if (const int signal = stopSignal(); signal != 0) throw Stopped{signal};
}

int runTallowsync(std::vector<std::string> arguments, Console& console) {
    CLI::App app{kSummary, "tallowsync"};
    ChosenCommand chosen;
    declareAll(app, chosen);
    if (const auto status = parse(app, std::move(arguments), console)) return static_cast<int>(*status);
    return static_cast<int>(perform(chosen, console));
}

}  // namespace wmoutlook
