#include "tools/command_line.h"

#include <new>

#include "tools/app.h"

namespace orvel::tools {
namespace {

std::string firstLine(const std::string& text) {
    return text.substr(0, text.find('\n'));
}

}  // namespace

int run(int argc, const char* const* argv, const Platform& platform, Console console) {
    Session session{console};
    const auto app = makeApp(session);
    try {
        app->parse(argc, argv);
        if (app->get_subcommands().empty()) throw CLI::RequiredError("A subcommand");
    } catch (const CLI::CallForHelp&) {
        console.out << app->help();
        return done;
    } catch (const CLI::CallForVersion& version) {
        console.out << version.what() << '\n';
        return done;
    } catch (const CLI::ParseError& error) {
        console.err << "orvel: " << firstLine(error.what()) << " (orvel --help lists the options)\n";
        return wrongUsage;
    }

    const FixedClock chosenClock(session.at.value_or(Date{}));
    const Clock& clock = session.at ? static_cast<const Clock&>(chosenClock) : platform.clock;
    const Platform chosen{clock, platform.files, platform.accounts, platform.timeZone, platform.identities};
    try {
        const auto outcome = session.operation(chosen);
        if (outcome) return done;
        console.err << "orvel: " << outcome.failure().reason << '\n';
        return outcome.failure().code;
    } catch (const std::bad_alloc&) {
        console.err << "orvel: out of memory\n";
    }
    return failed;
}

}  // namespace orvel::tools
