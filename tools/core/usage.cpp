#include "tools/core/usage.h"

#include "platform/foundation/nearest_word.h"
#include "platform/foundation/text_list.h"
#include "platform/language/sentence.h"

namespace orvel::tools {
namespace {

using Words = std::vector<std::string>;

template <class Wanted>
bool is(const CLI::ParseError& error) {
    return dynamic_cast<const Wanted*>(&error) != nullptr;
}

const CLI::App& called(const CLI::App& app) {
    const auto parsed = app.get_subcommands();
    return parsed.empty() ? app : called(*parsed.front());
}

std::string path(const CLI::App& app) {
    return app.get_parent() ? path(*app.get_parent()) + " " + app.get_name() : app.get_name();
}

Words commandNames(const CLI::App& app) {
    Words names;
    for (const CLI::App* const command : app.get_subcommands([](const CLI::App*) { return true; }))
        if (!command->get_group().empty()) names.push_back(command->get_name());
    return names;
}

Words optionNames(const CLI::App& app) {
    Words names;
    for (const CLI::Option* const option : app.get_options())
        for (const std::string& name : option->get_lnames()) names.push_back("--" + name);
    return names;
}

std::string aboutExtra(const CLI::App& command, const std::string& extra) {
    if (extra.starts_with('-') && extra.size() > 1) {
        const std::string name = extra.substr(0, extra.find('='));
        return clauses(sentence("there is no option \"{0}\"", name), didYouMean(name, optionNames(command)));
    }
    if (!commandNames(command).empty()) return unknownCommand(command, extra);
    return sentence("\"{0}\" is one argument too many", extra);
}

// The parser's own sentences name an option or argument, and then what is wrong.
std::string inOurWords(const CLI::App& command, const CLI::ParseError& error) {
    const std::string text = error.what();
    const std::string line = text.substr(0, text.find('\n'));
    const std::string name = line.substr(0, line.find_first_of(": "));
    if (is<CLI::ArgumentMismatch>(error) && line.find("flag") == line.npos) return sentence("{0} needs a value", name);
    const std::string other = line.substr(line.rfind(' ') + 1);
    if (is<CLI::ExcludesError>(error)) return sentence("{0} doesn't go with {1}", name, other);
    if (is<CLI::RequiresError>(error)) return sentence("{0} requires {1}", name, other);
    const CLI::Option* const argument = command.get_option_no_throw(name);
    if (is<CLI::RequiredError>(error) && argument && argument->get_positional())
        return sentence("{0} is missing", argument->get_type_name());
    if (is<CLI::RequiredError>(error) && argument) return sentence("{0} is required", name);
    return line;
}

class HelpFormatter final : public CLI::Formatter {
public:
    std::string make_usage(const CLI::App* app, std::string) const override {
        std::string line = path(*app);
        for (const CLI::Option* const option :
             app->get_options([](const CLI::Option* o) { return o->get_positional(); }))
            line += " " + make_option_usage(option);
        if (!commandNames(*app).empty()) line += app->get_parent() ? " [COMMAND]" : " COMMAND";
        return sentence("Usage: {0}", line + " [OPTION]...") + '\n';
    }
    std::string make_option_name(const CLI::Option* option, bool isPositional) const override {
        return isPositional ? option->get_type_name() : option->get_name(false, true);
    }
    std::string make_option_opts(const CLI::Option* option) const override {
        const bool isNamed = option->nonpositional() && option->get_type_size() != 0;
        return isNamed && !option->get_type_name().empty() ? " " + option->get_type_name() : "";
    }
};

}  // namespace

std::string usageProblem(const CLI::App& app, const CLI::ParseError& error) {
    const CLI::App& command = called(app);
    auto extras = command.remaining();
    std::erase(extras, "--");
    // An option that isn't known is why another one seems to be missing.
    const bool isMistyped = !extras.empty() && extras.front().starts_with('-');
    const std::string what = isMistyped || is<CLI::ExtrasError>(error)
                                 ? aboutExtra(command, extras.empty() ? "" : extras.front())
                                 : inOurWords(command, error);
    return &command == &app ? sentence("{0} (orvel help lists the commands)", what)
                            : sentence("{0} ({1} --help lists its options)", what, path(command));
}

const CLI::App* findCommand(const CLI::App& app, const Words& words) {
    const CLI::App* found = &app;
    for (const std::string& word : words) {
        const auto below = found->get_subcommands([&](const CLI::App* each) { return each->get_name() == word; });
        if (below.empty()) return nullptr;
        found = below.front();
    }
    return found;
}

std::string unknownCommand(const CLI::App& app, const std::string& word) {
    return clauses(sentence("there is no command \"{0}\"", word), didYouMean(word, commandNames(app)));
}

std::shared_ptr<CLI::FormatterBase> helpFormatter() {
    auto formatter = std::make_shared<HelpFormatter>();
    formatter->label("Positionals", sentence("Positionals"));
    formatter->label("POSITIONALS", sentence("Positionals"));  // as newer versions of CLI11 call it
    formatter->label("REQUIRED", sentence("REQUIRED"));
    return formatter;
}

void nameGroups(CLI::App& app) {
    for (CLI::Option* const option : app.get_options())
        if (!option->get_group().empty()) option->group(sentence("Options"));
    for (CLI::App* const command : app.get_subcommands([](const CLI::App*) { return true; })) {
        if (!command->get_group().empty()) command->group(sentence("Subcommands"));
        nameGroups(*command);
    }
}

}  // namespace orvel::tools
