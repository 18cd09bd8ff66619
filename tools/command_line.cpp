#include "tools/command_line.h"

#include <CLI/CLI.hpp>

#include <map>
#include <new>

#include "platform/foundation/iso8601.h"
#include "tools/commands.h"

namespace orvel::tools {
namespace {

const std::map<std::string, WidgetFamily> families{{"small", WidgetFamily::systemSmall},
                                                   {"medium", WidgetFamily::systemMedium}};

struct Arguments {
    CardChoices card;
    DrawingChoices drawing;
};

// CLI::Range takes not-a-number for a number in any range.
const CLI::Validator validScale(
    [](const std::string& text) {
        double scale = 0;
        return CLI::detail::lexical_cast(text, scale) && scale >= 1 && scale <= 8 ? "" : text + " is not from 1 to 8";
    },
    "", "");

void addInstantOption(CLI::App& command, Arguments& arguments) {
    const auto parse = [&arguments](const std::string& text) {
        arguments.card.at = iso8601::dateTime(text, iso8601::Fraction::allowed);
        if (!arguments.card.at) throw CLI::ValidationError("--at", text + " is no RFC 3339 date-time");
    };
    command.add_option_function<std::string>("--at", parse, "The moment to show, such as 2026-01-31T09:00:00Z")
        ->type_name("INSTANT");
}

void addCardOptions(CLI::App& command, Arguments& arguments) {
    command
        .add_option("--design", arguments.card.design, "A design, or a list whose first counts; - is standard input")
        ->type_name("FILE|-");
    command.add_option("--family", arguments.card.family, "The card's size (default: small)")
        ->transform(CLI::CheckedTransformer(families))
        ->type_name("small|medium");
    addInstantOption(command, arguments);
}

void addDrawingOptions(CLI::App& command, Arguments& arguments, const std::string& defaultOutput) {
    command.add_option("--scale", arguments.drawing.scale, "Pixels to the point in a PNG, 1 to 8 (default: 2)")
        ->check(validScale)
        ->type_name("N");
    command
        .add_option("-o,--output", arguments.drawing.output,
                    "A .png, .svg or .pdf file; - is PNG on standard output (default: " + defaultOutput + ")")
        ->type_name("FILE|-");
    command.preparse_callback([&arguments, defaultOutput](std::size_t) { arguments.drawing.output = defaultOutput; });
}

std::string firstLine(const std::string& text) {
    return text.substr(0, text.find('\n'));
}

}  // namespace

int run(int argc, const char* const* argv, const Platform& platform, Console console) {
    Arguments arguments;
    CLI::App app("Small cards for the desktop: draws and explains the designs in your store.", "orvel");
    app.require_subcommand(0, 1);
    app.set_version_flag("--version", ORVEL_VERSION);

    CLI::App& renderCommand = *app.add_subcommand("render", "Draw the card that the desktop would show");
    addCardOptions(renderCommand, arguments);
    addDrawingOptions(renderCommand, arguments, "widget.png");
    CLI::App& inspectCommand = *app.add_subcommand("inspect", "Print a card's view tree and marks as JSON");
    addCardOptions(inspectCommand, arguments);
    CLI::App& timelineCommand = *app.add_subcommand("timeline", "Print the placeholder, snapshot and timeline as JSON");
    addInstantOption(timelineCommand, arguments);
    CLI::App& galleryCommand = *app.add_subcommand("gallery", "Draw all kinds of cards in both sizes");
    addDrawingOptions(galleryCommand, arguments, "gallery.png");

    try {
        app.parse(argc, argv);
        if (app.get_subcommands().empty()) throw CLI::RequiredError("A subcommand");
    } catch (const CLI::CallForHelp&) {
        const auto chosen = app.get_subcommands();
        console.out << (chosen.empty() ? app.help() : chosen.front()->help());
        return done;
    } catch (const CLI::CallForVersion&) {
        console.out << "orvel " ORVEL_VERSION "\n";
        return done;
    } catch (const CLI::ParseError& error) {
        console.err << "orvel: " << firstLine(error.what()) << " (orvel --help lists the options)\n";
        return wrongUsage;
    }

    const FixedClock chosenClock(arguments.card.at.value_or(Date{}));
    const Platform chosen{arguments.card.at ? chosenClock : platform.clock, platform.files, platform.accounts,
                          platform.timeZone, platform.identities};
    try {
        const auto outcome = renderCommand.parsed()     ? render(arguments.card, arguments.drawing, chosen, console)
                             : inspectCommand.parsed()  ? inspect(arguments.card, chosen, console)
                             : timelineCommand.parsed() ? timeline(chosen, console)
                                                        : gallery(arguments.drawing, chosen, console);
        if (outcome) return done;
        console.err << "orvel: " << outcome.failure().reason << '\n';
    } catch (const std::bad_alloc&) {
        console.err << "orvel: out of memory\n";
    }
    return failed;
}

}  // namespace orvel::tools
