#include "tools/feeds/commands.h"

#include <memory>

#include "platform/language/sentence.h"
#include "tools/core/own_program.h"
#include "tools/core/shared_options.h"
#include "tools/feeds/feed.h"
#include "tools/feeds/list.h"
#include "tools/feeds/new.h"

namespace orvel::tools {
namespace {

template <class Value>
CLI::Option* addEvery(CLI::App& command, Value& value, const std::string& help) {
    const auto every = [&value](const std::string& text) {
        const auto given = everyText(text);
        if (!given) throw CLI::ValidationError("--every", given.failure().reason);
        value = *given;
    };
    return command.add_option_function<std::string>("--every", every, help)->type_name("TIME");
}

void addTimeout(CLI::App& command, Feed& feed) {
    const auto timeout = [&feed](const std::string& text) {
        const auto given = durationText(text, Feed::longestTimeout);
        if (!given)
            throw CLI::ValidationError("--timeout", sentence("\"{0}\": from 1s to 1h is wanted, such as 10s", text));
        feed.timeout = *given;
    };
    command
        .add_option_function<std::string>(
            "--timeout", timeout, sentence("After which the command and all that it started are ended (default: 10s)"))
        ->type_name("TIME");
}

// Where and when it runs, of a feed of any kind.
void addCircumstances(CLI::App& command, Feed& feed) {
    addTimeout(command, feed);
    command.add_option("--design", feed.design, sentence("The id of its design (default: the feed's name)"))
        ->type_name("ID");
    const auto battery = [&feed](const std::string& word) { feed.pausesOnBattery = word == "pause"; };
    command
        .add_option_function<std::string>("--on-battery", battery, sentence("What it does on battery (default: run)"))
        ->check(oneWordOf({"run", "pause"}))
        ->type_name("run|pause");
    command.add_flag("--when-online", feed.whenOnline, sentence("Wait for a network"));
}

void addAdd(CLI::App& parent, Session& session) {
    const auto feed = std::make_shared<Feed>();
    CLI::App& command =
        *parent.add_subcommand("add", sentence("Let a command keep a design current, or change how it does"));
    command.add_option("name", feed->name, sentence("What to call it"))->required()->type_name("NAME");
    command
        .add_option("command", feed->command,
                    sentence("Behind \"--\": a program and its arguments, run without a shell"))
        ->required()
        ->type_name("PROGRAM");
    addEvery(command, feed->every, sentence("How often: 60s, 5m, 2h, 1d, or at a time such as 07:30"))->required();
    addCircumstances(command, *feed);
    command
        .add_option("--first", feed->first, sentence("What the new design says beside the output, such as title=Disk"))
        ->expected(1)
        ->allow_extra_args(false)  // else it would take the "--" for the end of its own
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll)
        ->type_name("FIELD=VALUE");
    command.callback([&session, feed] {
        if (feed->design.empty()) feed->design = feed->name;
        session.operation = [&session, feed](const Platform& platform) {
            return addFeed(*feed, platform, session.console);
        };
    });
    addExample(command, "orvel feed add users --every 60s -- sh -c \"who | wc -l\"");
}

void addNew(CLI::App& parent, Session& session) {
    const auto wanted = std::make_shared<NewFeed>();
    CLI::App& command =
        *parent.add_subcommand("new", sentence("Add a feed from a template and run it once, or list the templates"));
    command.add_option("template", wanted->source, sentence("Such as disk (default: list them)"))
        ->type_name("TEMPLATE");
    command.add_option("arguments", wanted->arguments, sentence("What the template wants to know, such as a folder"))
        ->type_name("ARGUMENT");
    command.add_option("--name", wanted->feed.name, sentence("What to call it (default: as the template)"))
        ->type_name("NAME");
    addEvery(command, wanted->every,
             sentence("How often: 60s, 5m, 2h, 1d, or at a time such as 07:30 (default: the template's)"));
    addCircumstances(command, wanted->feed);
    runs(command, session, wanted, newFeed);
    addExample(command, "orvel feed new disk /home --name home");
}

void addList(CLI::App& parent, Session& session) {
    const auto form = std::make_shared<FeedsForm>(FeedsForm::table);
    CLI::App& command =
        *parent.add_subcommand("list", sentence("List the feeds: when they last ran, what came of it, and when next"));
    command.add_flag_callback(
        "--json", [form] { *form = FeedsForm::json; }, sentence("As JSON"));
    runs(command, session, form, listFeeds);
}

// A command with the name of a feed and nothing else.
template <class Operation>
void addNamed(CLI::App& parent, Session& session, const char* word, const std::string& help, Operation operation) {
    const auto name = std::make_shared<std::string>();
    CLI::App& command = *parent.add_subcommand(word, help);
    command.add_option("name", *name, sentence("The feed's name"))->required()->type_name("NAME");
    runs(command, session, name, operation);
}

void addFeed(CLI::App& app, Session& session) {
    CLI::App& command =
        *app.add_subcommand("feed", sentence("List the feeds, which keep designs current, or change them"));
    command.require_subcommand(0, 1);
    command.callback([&session] {
        if (session.operation) return;  // that of a command below
        session.operation = [&session](const Platform& platform) {
            return listFeeds(FeedsForm::table, platform, session.console);
        };
    });
    addAdd(command, session);
    addNew(command, session);
    addList(command, session);
    addNamed(command, session, "run", sentence("Run a feed once, and show what its command prints"), runFeedOnce);
    addNamed(command, session, "pause", sentence("Don't run a feed until it is resumed"),
             [](const std::string& name, const Platform& platform, Console& console) {
                 return pauseFeed(name, true, platform, console);
             });
    addNamed(command, session, "resume", sentence("Run a feed again when it is due"),
             [](const std::string& name, const Platform& platform, Console& console) {
                 return pauseFeed(name, false, platform, console);
             });
    addNamed(command, session, "remove", sentence("End a feed; its design stays"), removeFeed);
}

void addFeeds(CLI::App& app, Session& session) {
    CLI::App& command =
        *app.add_subcommand("feeds", sentence("Run your feeds when they are due, until this command is ended"));
    command.callback([&session] {
        session.operation = [&session](const Platform&) -> Outcome<Done> {
            return become("orvel-feeds", toTranslate("can't start the feeds' service: {0}"), {}, session.console);
        };
    });
}

}  // namespace

void addFeedCommands(CLI::App& app, Session& session) {
    addFeed(app, session);
    addFeeds(app, session);
}

}  // namespace orvel::tools
