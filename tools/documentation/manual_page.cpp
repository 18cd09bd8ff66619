#include <algorithm>
#include <CLI/CLI.hpp>
#include <cstdio>

#include "platform/foundation/unicode.h"
#include "tools/documentation/command_outline.h"
#include "tools/documentation/documentation.h"

namespace orvel::tools {
namespace {

// Takes the first character, of one byte or several, off a valid text.
char32_t takeCharacter(std::string_view& text) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const std::size_t length = byte(0) < 0x80 ? 1 : byte(0) < 0xE0 ? 2 : byte(0) < 0xF0 ? 3 : 4;
    char32_t character = length == 1 ? byte(0) : byte(0) & (0xFFU >> (length + 1));
    for (std::size_t i = 1; i < length; ++i) character = character << 6 | (byte(i) & 0x3FU);
    text.remove_prefix(length);
    return character;
}

// As it stands on the page: what roff would take for a request, or typeset as another character, is written by name.
std::string escaped(std::string_view text) {
    std::string result;
    while (!text.empty()) {
        const char32_t character = takeCharacter(text);
        switch (character) {
            case '\\': result += "\\(rs"; break;
            case '-': result += "\\-"; break;
            case '\'': result += "\\(aq"; break;
            case '"': result += "\\(dq"; break;
            case '`': result += "\\(ga"; break;
            case '^': result += "\\(ha"; break;
            case '~': result += "\\(ti"; break;
            case '.': result += result.empty() ? "\\&." : "."; break;
            default:
                if (character < 0x80) {
                    result += static_cast<char>(character);
                } else {
                    char name[16];
                    std::snprintf(name, sizeof name, "\\[u%04X]", static_cast<unsigned>(character));
                    result += name;
                }
        }
    }
    return result;
}

std::string bold(std::string_view text) {
    return "\\fB" + escaped(text) + "\\fR";
}

std::string italic(std::string_view text) {
    return "\\fI" + escaped(text) + "\\fR";
}

std::string sentence(const std::string& text) {
    return escaped(text) + (text.ends_with('.') || text.ends_with("…") ? "\n" : ".\n");
}

std::string section(std::string_view name) {
    return ".SH " + std::string(name) + "\n";
}

std::string entry(const std::string& heading, const std::string& text) {
    return ".TP\n" + heading + "\n" + text;
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

std::string entry(const ArgumentOutline& argument, bool isOption) {
    std::string heading;
    for (const auto& name : argument.names)
        heading += (heading.empty() ? "" : ", ") + (isOption ? bold(name) : italic(name));
    const bool typed = argument.values == Values::words;
    const bool repeatsName = argument.placeholder == unicode::uppercased(argument.names.front());
    if (!argument.placeholder.empty() && !repeatsName) heading += " " + (typed ? bold : italic)(argument.placeholder);
    return entry(heading, sentence(argument.help));
}

std::string commandSection(const CommandOutline& command) {
    std::string text = ".SS \"" + escaped(joined(command.path, " ")) + "\"\n" + sentence(command.help);
    if (!command.options.empty() || !command.positionals.empty()) text += ".PP\n" + usage(command);
    for (const auto& positional : command.positionals) text += entry(positional, false);
    for (const auto& option : command.options)
        if (!isHelp(option)) text += entry(option, true);
    return text;
}

}  // namespace

std::string manualPage(const CLI::App& app) {
    const CommandOutline command = outline(app);
    const std::string& name = command.path.front();
    const std::string version = app.version();
    // A date would differ from build to build; the version says how old the page is.
    std::string page =
        ".TH \"" + escaped(unicode::uppercased(name)) + "\" 1 \"\" \"" + escaped(version) + "\" \"User Commands\"\n";
    const bool endsInStop = command.help.ends_with('.');
    page += section("NAME") + escaped(name) + " \\- " +
            escaped(command.help.substr(0, command.help.size() - endsInStop)) + "\n";

    const auto commands = everyCommand(command);
    page += section("SYNOPSIS");
    std::vector<std::string> usages;
    for (const CommandOutline* const each : commands)
        if (each != &command) usages.push_back(usage(*each));
    page += joined(usages, ".br\n");
    page += section("OPTIONS");
    for (const auto& option : command.options) page += entry(option, true);
    page += section("COMMANDS") + "Each command has " + bold("--help") + ", too.\n";
    for (const CommandOutline* const each : commands)
        if (each != &command) page += commandSection(*each);

    page += section("EXIT STATUS");
    page += entry(bold("0"), "Done.\n");
    page += entry(
        bold("1"),
        "Something failed; one line on standard error says what and where. When the designs don\\(aqt load, show, "
        "render, inspect and timeline do their work on the empty state, too.\n");
    page += entry(bold("2"), "The command was called wrongly; one line on standard error says how.\n");
    page += entry(bold("3"),
                  "The change is made, but a loss of power may undo it, or its answer can\\(aqt be printed; one line "
                  "on standard error says "
                  "which and why.\n");
    page += section("FILES");
    page += entry(italic("~/Library/Application Support/Orvel/widgets.json"),
                  "The designs, in the home directory that the user database gives. The first one is shown.\n");
    page +=
        entry(italic("~/Library/Application Support/Orvel/widgets.json.invalid-*"),
              "Lists that didn\\(aqt load, each kept before another one took its place; orvel restore lists them.\n");
    page += entry(italic("~/Library/Application Support/Orvel/widgets.json.replaced-*"),
                  "Lists in whose place an earlier one was brought back.\n");
    page += entry(italic("~/Library/Application Support/Orvel/widget_pending.json"),
                  "The one design that is kept beside the list.\n");
    page += entry(italic("$XDG_STATE_HOME/orvel/history"),
                  "The last changes, for orvel undo; below ~/.local/state when XDG_STATE_HOME isn\\(aqt set.\n");
    page += section("ENVIRONMENT");
    page += entry(bold("VISUAL") + ", " + bold("EDITOR"), "The text editor that orvel edit opens; else it is vi.\n");
    return page;
}

}  // namespace orvel::tools
