#include "tools/card/commands.h"

#include <memory>

#include "platform/language/sentence.h"
#include "tools/card/gallery.h"
#include "tools/card/inspect.h"
#include "tools/card/render.h"
#include "tools/card/show.h"
#include "tools/card/symbols.h"
#include "tools/card/timeline.h"
#include "tools/core/shared_options.h"

namespace orvel::tools {
namespace {

void addDesignChoice(CLI::App& command, DesignChoice& design) {
    auto* const reference = command
                                .add_option("id", design.reference,
                                            sentence("A stored design: its id, the beginning of it, or @2 "
                                                     "(default: the one that the desktop shows)"))
                                ->type_name("ID");
    command
        .add_option("--design", design.file,
                    sentence("A design from a file, or a list whose first counts; - is standard input"))
        ->type_name("FILE|-")
        ->excludes(reference);
}

void addCardOptions(CLI::App& command, Session& session, CardChoices& card) {
    addDesignChoice(command, card.design);
    addFamilyOption(command, card.family);
    addInstantOption(command, session);
    addLanguageOption(command, session);
}

void addDrawingOptions(CLI::App& command, DrawingChoices& drawing) {
    command.add_option("--scale", drawing.scale, sentence("Pixels to the point in a PNG, 1 to 8 (default: 2)"))
        ->check(numberWithin(1, 8))
        ->type_name("N");
    command
        .add_option("-o,--output", drawing.output,
                    sentence("A .png, .svg or .pdf file; - is PNG on standard output (default: {0})", drawing.output))
        ->type_name("FILE|-");
    command.add_flag_callback(
        "--text", [&drawing] { drawing.svgText = SvgText::selectable; },
        sentence("Text in an SVG that can be selected"));
}

void addRender(CLI::App& app, Session& session) {
    const auto choices = std::make_shared<RenderChoices>();
    CLI::App& command =
        *app.add_subcommand("render", sentence("Draw the card that the desktop would show, or another"));
    addCardOptions(command, session, choices->card);
    addDrawingOptions(command, choices->drawing);
    command.add_flag("--watch", choices->watch, sentence("Draw it again whenever it changes, until Ctrl-C"));
    runs(command, session, choices, render);
    addExample(command, "orvel render @2 --family medium -o card.svg");
}

void addInspect(CLI::App& app, Session& session) {
    const auto card = std::make_shared<CardChoices>();
    CLI::App& command = *app.add_subcommand("inspect", sentence("Print a card's view tree and marks as JSON"));
    addCardOptions(command, session, *card);
    runs(command, session, card, inspect);
    addExample(command, "orvel inspect @1");
}

void addTimeline(CLI::App& app, Session& session) {
    CLI::App& command =
        *app.add_subcommand("timeline", sentence("Print the placeholder, snapshot and timeline as JSON"));
    addInstantOption(command, session);
    command.callback([&session] {
        session.operation = [&session](const Platform& platform) { return timeline(platform, session.console); };
    });
}

void addGallery(CLI::App& app, Session& session) {
    const auto drawing = std::make_shared<DrawingChoices>(DrawingChoices{.output = "gallery.png"});
    CLI::App& command = *app.add_subcommand("gallery", sentence("Draw all kinds of cards in both sizes"));
    addDrawingOptions(command, *drawing);
    addLanguageOption(command, session);
    runs(command, session, drawing, gallery);
    addExample(command, "orvel gallery --scale 3 -o all.png");
}

void addShow(CLI::App& app, Session& session) {
    const auto choices = std::make_shared<ShowChoices>();
    CLI::App& command =
        *app.add_subcommand("show", sentence("Print the card that the desktop would show, or another, as words"));
    auto* const json = command.add_flag_callback(
        "--json", [choices] { choices->form = WordsForm::json; }, sentence("As JSON"));
    command
        .add_flag_callback(
            "--waybar", [choices] { choices->form = WordsForm::waybar; },
            sentence("As the object of the bar's custom module"))
        ->excludes(json);
    command.add_flag("--follow", choices->follow, sentence("Print them again whenever they change, until Ctrl-C"));
    addDesignChoice(command, choices->design);
    addInstantOption(command, session);
    runs(command, session, choices, show);
    addExample(command, "orvel show --waybar --follow");
}

void addSymbols(CLI::App& app, Session& session) {
    const auto choices = std::make_shared<SymbolChoices>();
    CLI::App& command = *app.add_subcommand("symbols", sentence("List the symbols that a design can name"));
    command.add_option("text", choices->text, sentence("A part of a name, or an everyday word such as weather"))
        ->type_name("TEXT");
    command
        .add_option("--picture", choices->picture,
                    sentence("Draw them instead, as a sheet: .png, .svg or .pdf; - is PNG"))
        ->type_name("FILE|-");
    addLanguageOption(command, session);
    runs(command, session, choices, symbols);
    addExample(command, "orvel symbols cloud --picture clouds.png");
}

}  // namespace

void addCardCommands(CLI::App& app, Session& session) {
    addShow(app, session);
    addRender(app, session);
    addInspect(app, session);
    addTimeline(app, session);
    addGallery(app, session);
    addSymbols(app, session);
}

}  // namespace orvel::tools
