// render, inspect, timeline and gallery.
#include "tools/app.h"
#include "tools/commands.h"
#include "tools/shared_options.h"

namespace orvel::tools {
namespace {

void addCardOptions(CLI::App& command, Session& session, CardChoices& card) {
    command.add_option("--design", card.design, "A design, or a list whose first counts; - is standard input")
        ->type_name("FILE|-");
    addFamilyOption(command, card.family);
    addInstantOption(command, session);
}

void addDrawingOptions(CLI::App& command, DrawingChoices& drawing) {
    command.add_option("--scale", drawing.scale, "Pixels to the point in a PNG, 1 to 8 (default: 2)")
        ->check(numberWithin(1, 8))
        ->type_name("N");
    command
        .add_option("-o,--output", drawing.output,
                    "A .png, .svg or .pdf file; - is PNG on standard output (default: " + drawing.output + ")")
        ->type_name("FILE|-");
}

void addRender(CLI::App& app, Session& session) {
    struct Choices {
        CardChoices card;
        DrawingChoices drawing{.output = "widget.png"};
    };
    const auto choices = std::make_shared<Choices>();
    CLI::App& command = *app.add_subcommand("render", "Draw the card that the desktop would show");
    addCardOptions(command, session, choices->card);
    addDrawingOptions(command, choices->drawing);
    command.callback([&session, choices] {
        session.operation = [&session, choices](const Platform& platform) {
            return render(choices->card, choices->drawing, platform, session.console);
        };
    });
}

void addInspect(CLI::App& app, Session& session) {
    const auto card = std::make_shared<CardChoices>();
    CLI::App& command = *app.add_subcommand("inspect", "Print a card's view tree and marks as JSON");
    addCardOptions(command, session, *card);
    command.callback([&session, card] {
        session.operation = [&session, card](const Platform& platform) {
            return inspect(*card, platform, session.console);
        };
    });
}

void addTimeline(CLI::App& app, Session& session) {
    CLI::App& command = *app.add_subcommand("timeline", "Print the placeholder, snapshot and timeline as JSON");
    addInstantOption(command, session);
    command.callback([&session] {
        session.operation = [&session](const Platform& platform) { return timeline(platform, session.console); };
    });
}

void addGallery(CLI::App& app, Session& session) {
    const auto drawing = std::make_shared<DrawingChoices>(DrawingChoices{.output = "gallery.png"});
    CLI::App& command = *app.add_subcommand("gallery", "Draw all kinds of cards in both sizes");
    addDrawingOptions(command, *drawing);
    command.callback([&session, drawing] {
        session.operation = [&session, drawing](const Platform& platform) {
            return gallery(*drawing, platform, session.console);
        };
    });
}

}  // namespace

void addDrawingCommands(CLI::App& app, Session& session) {
    addRender(app, session);
    addInspect(app, session);
    addTimeline(app, session);
    addGallery(app, session);
}

}  // namespace orvel::tools
