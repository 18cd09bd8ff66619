#include <algorithm>
#include <CLI/CLI.hpp>
#include <span>

#include "platform/foundation/text_list.h"
#include "platform/foundation/unicode.h"
#include "tools/documentation/command_outline.h"
#include "tools/documentation/documentation.h"
#include "tools/documentation/roff.h"

namespace orvel::tools {
namespace {

using roff::bold;
using roff::entry;
using roff::escaped;
using roff::italic;
using roff::section;

struct Explained {
    const char* name;
    const char* meaning;
};

constexpr const char* description[] = {
    "A card shows a small thing to keep an eye on, such as a number, a short list or the time until a date, on the "
    "desktop below the windows. What a card shows is a design. orvel keeps a person's designs, draws them, and shows "
    "them on the desktop.",
    ("A design is named by its id, by any beginning that only one id has, or by its position: @1 is the first one, "
     "which the desktop shows while no design has a place (see orvel place)."),
    "Commands that change the designs wait for one another, so concurrent ones are safe.",
};

constexpr Explained firstExamples[] = {
    {"orvel add --kind metric --title \"Active users\" --primary 42\norvel desktop",
     "Store a first design, and show it on the desktop:"},
    {"orvel add --keep-place --id disk --kind progress --title Disk \\\n"
     "    --progress \"$(df --output=pcent / | tail -1)\"",
     "Keep a card up to date from a script that runs now and then:"},
};

constexpr Explained environment[] = {
    {"VISUAL, EDITOR", "The text editor that orvel edit opens; else it is vi."},
    {"WAYLAND_DISPLAY, DISPLAY", "Where the desktop is."},
    {"XDG_CONFIG_HOME, XDG_STATE_HOME",
     "Folders for places and for the history; else they are ~/.config and "
     "~/.local/state."},
    {"LC_ALL, LC_MESSAGES, LANG, LANGUAGE", "The language of the cards and of the messages."},
};

constexpr Explained files[] = {
    {"~/Library/Application Support/Orvel/widgets.json",
     "The designs, below the home directory that the user database gives. orvel(5) describes them."},
    {"~/Library/Application Support/Orvel/widgets.json.invalid-*",
     "Lists that didn't load, each kept before another one took its place; orvel restore lists them."},
    {"~/Library/Application Support/Orvel/widgets.json.replaced-*",
     "Lists in whose place an earlier one was brought back."},
    {"~/Library/Application Support/Orvel/widget_pending.json", "The one design that is kept beside the list."},
    {"~/.config/orvel/places.json", "Which designs have a place on the desktop, and where."},
    {"~/.local/state/orvel/history", "The last changes, for orvel undo."},
};

constexpr Explained exitStatus[] = {
    {"0", "Done."},
    {"1",
     "Something failed; one line on standard error says what and where. When the designs don't load, show, render, "
     "inspect and timeline still do their work, on the card that the desktop shows meanwhile."},
    {"2", "The command was called wrongly; one line on standard error says how."},
    {"3",
     "The change is made, but a loss of power may undo it, or its answer can't be printed; one line on standard error "
     "says which and why."},
};

std::string sentence(const std::string& text) {
    return escaped(text) + (text.ends_with('.') || text.ends_with("…") ? "" : ".");
}

bool isHelp(const ArgumentOutline& option) {
    return std::find(option.names.begin(), option.names.end(), "--help") != option.names.end();
}

std::string usage(const CommandOutline& command) {
    std::string line = bold(joined(command.path, " "));
    if (!std::all_of(command.options.begin(), command.options.end(), isHelp)) line += " [\\fIoption\\fR ...]";
    for (const auto& positional : command.positionals) {
        const std::string name = italic(positional.names.front()) + (positional.repeats ? " ..." : "");
        line += positional.required ? " " + name : " [" + name + "]";
    }
    return line + "\n";
}

std::string argument(const ArgumentOutline& argument, bool isOption) {
    std::string heading;
    for (const auto& name : argument.names)
        heading += (heading.empty() ? "" : ", ") + (isOption ? bold(name) : italic(name));
    const bool typed = argument.values == Values::words;
    const bool repeatsName = argument.placeholder == unicode::uppercased(argument.names.front());
    if (!argument.placeholder.empty() && !repeatsName) heading += " " + (typed ? bold : italic)(argument.placeholder);
    return entry(heading, sentence(argument.help));
}

std::string commandSection(const CommandOutline& command) {
    std::string text = roff::subsection(joined(command.path, " ")) + sentence(command.help) + "\n";
    if (!command.options.empty() || !command.positionals.empty()) text += ".PP\n" + usage(command);
    for (const auto& positional : command.positionals) text += argument(positional, false);
    for (const auto& option : command.options)
        if (!isHelp(option)) text += argument(option, true);
    return text;
}

std::string entries(std::string_view name, std::span<const Explained> explained,
                    std::string (*typeface)(std::string_view)) {
    std::string text = section(name);
    for (const auto& [heading, meaning] : explained) text += entry(typeface(heading), escaped(meaning));
    return text;
}

std::string example(const std::string& what, std::string_view lines) {
    return roff::paragraph(escaped(what)) + roff::verbatim(lines);
}

std::string examples(const std::vector<const CommandOutline*>& commands) {
    std::string text = section("EXAMPLES");
    for (const auto& [lines, what] : firstExamples) text += example(what, lines);
    for (const CommandOutline* const each : commands)
        if (!each->example.empty()) text += example(each->help + ":", each->example);
    return text;
}

}  // namespace

std::string manualPage(const CLI::App& app) {
    const CommandOutline command = outline(app);
    const std::string& name = command.path.front();
    const bool endsInStop = command.help.ends_with('.');
    std::string page =
        roff::title(name, 1, app.version(), "User Commands", command.help.substr(0, command.help.size() - endsInStop));

    const auto commands = everyCommand(command);
    page += section("SYNOPSIS");
    std::vector<std::string> usages;
    for (const CommandOutline* const each : commands)
        if (each != &command) usages.push_back(usage(*each));
    page += joined(usages, ".br\n");
    page += section("DESCRIPTION");
    for (const char* const text : description) page += roff::paragraph(escaped(text));
    page += section("OPTIONS");
    for (const auto& option : command.options) page += argument(option, true);
    page += section("COMMANDS") + "Each command has " + bold("--help") + ", too.\n";
    for (const CommandOutline* const each : commands)
        if (each != &command) page += commandSection(*each);

    page += entries("ENVIRONMENT", environment, bold);
    page += entries("FILES", files, italic);
    page += entries("EXIT STATUS", exitStatus, bold);
    page += examples(commands);
    page += section("SEE ALSO") + bold("orvel") + "(5), " + bold("orvel-widget") + "(1)\n";
    return roff::withoutEmptyParagraphs(page);
}

}  // namespace orvel::tools
