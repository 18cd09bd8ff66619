// desktop and outputs.
#include <memory>

#include "tools/app.h"
#include "tools/desktop.h"
#include "tools/shared_options.h"

namespace orvel::tools {
namespace {

const std::map<std::string, Layer> layers{
    {"background", Layer::background}, {"bottom", Layer::bottom}, {"top", Layer::top}, {"overlay", Layer::overlay}};

const std::map<std::string, Anchor> anchors{{"top-left", {-1, -1}},   {"top", {0, -1}},   {"top-right", {1, -1}},
                                            {"left", {-1, 0}},        {"center", {0, 0}}, {"right", {1, 0}},
                                            {"bottom-left", {-1, 1}}, {"bottom", {0, 1}}, {"bottom-right", {1, 1}}};

void addDesktop(CLI::App& app, Session& session) {
    struct Choices {
        WidgetFamily family = WidgetFamily::systemSmall;
        Placement placement;
    };
    const auto choices = std::make_shared<Choices>();
    Placement& placement = choices->placement;
    CLI::App& command = *app.add_subcommand("desktop", "Keep the card on the desktop until this command is ended");
    addFamilyOption(command, choices->family);
    addChoice(command, "--anchor", placement.anchor, anchors,
              "top-left|top|top-right|left|center|right|bottom-left|bottom|bottom-right",
              "Where on the output (default: top-right)");
    command.add_option("--margin", placement.margin, "Points to the output's edges (default: 24)")
        ->check(numberWithin(0, 10000))
        ->type_name("N");
    command.add_option("--output", placement.output, "A monitor, as orvel outputs names it (default: any)")
        ->type_name("NAME");
    addChoice(command, "--layer", placement.layer, layers, "background|bottom|top|overlay",
              "Under or above the windows (default: bottom)");
    command.callback([&session, choices] {
        session.operation = [&session, choices](const Platform& platform) {
            return desktop(choices->family, choices->placement, platform, session.console);
        };
    });
}

void addOutputs(CLI::App& app, Session& session) {
    const auto form = std::make_shared<OutputsForm>(OutputsForm::names);
    CLI::App& command = *app.add_subcommand("outputs", "Print the names of the monitors");
    command.add_flag_callback(
        "--json", [form] { *form = OutputsForm::json; }, "As JSON, with sizes and scales");
    command.callback([&session, form] {
        session.operation = [&session, form](const Platform&) { return outputs(*form, session.console); };
    });
}

}  // namespace

void addDesktopCommands(CLI::App& app, Session& session) {
    addDesktop(app, session);
    addOutputs(app, session);
}

}  // namespace orvel::tools
