#include "tools/command_line.h"

#include <cerrno>
#include <cstring>
#include <new>

#include "platform/language/sentence.h"
#include "platform/ui/gettext_localizer.h"
#include "platform/ui/language.h"
#include "tools/app.h"
#include "tools/core/usage.h"

namespace orvel::tools {
namespace {

std::string helpFor(int argc, const char* const* argv, Session& session) {
    const auto app = makeApp(session);
    try {
        app->parse(argc, argv);
    } catch (const CLI::CallForHelp&) {  // of the command that the words before it name
    }
    return app->help();
}

int runChecked(int argc, const char* const* argv, const Platform& platform, Console& console) {
    Session session{console};
    const auto app = makeApp(session);  // in English: only a help tells what the options are
    translateSentences(GettextLocalizer::installedDirectory());
    try {
        app->parse(argc, argv);
        if (app->get_subcommands().empty()) {
            say(sentence("{0} (orvel help lists the commands)", sentence("a command is required")), console);
            return wrongUsage;
        }
    } catch (const CLI::CallForHelp&) {
        console.out << helpFor(argc, argv, session);
        return done;
    } catch (const CLI::CallForVersion& version) {
        console.out << version.what() << '\n';
        return done;
    } catch (const CLI::ParseError& error) {
        say(usageProblem(*app, error), console);
        return wrongUsage;
    }

    if (session.language) {
        useLanguage(*session.language);
        keepSentencesEnglish();  // a process has one language; that one is for the cards
    }
    const FixedClock chosenClock(session.at.value_or(Date{}));
    const Clock& clock = session.at ? static_cast<const Clock&>(chosenClock) : platform.clock;
    const Platform chosen = platform.with(clock);
    const auto outcome = session.operation(chosen);
    if (outcome) return done;
    if (!outcome.failure().reason.empty()) say(outcome.failure().reason, console);
    return exitCode(outcome.failure());
}

// While this object lives, output that can't be printed throws, and so ends the command.
class ThrowingOutput {
public:
    explicit ThrowingOutput(std::ostream& out) : out_(out) { out_.exceptions(std::ios::badbit | std::ios::failbit); }
    ~ThrowingOutput() { out_.exceptions(std::ios::goodbit); }
    ThrowingOutput(const ThrowingOutput&) = delete;

private:
    std::ostream& out_;
};

}  // namespace

int run(int argc, const char* const* argv, const Platform& platform, Console console) {
    try {
        const ThrowingOutput throwing(console.out);
        const int code = runChecked(argc, argv, platform, console);
        console.out.flush();
        return code;
    } catch (const std::ios_base::failure&) {
        const int why = errno;
        // A reader that closes the pipe has seen enough.
        if (why != EPIPE)
            say(sentence("standard output") + ": " + sentence("can't write: {0}", std::strerror(why)), console);
    } catch (const std::bad_alloc&) {
        console.err << "orvel: out of memory\n";
    } catch (const std::exception& error) {
        say(error.what(), console);
    }
    return failed;
}

}  // namespace orvel::tools
