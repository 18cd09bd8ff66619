#include "tools/store/editor.h"

#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <string_view>
#include <vector>

#include "platform/language/sentence.h"

namespace orvel::tools {
namespace {

bool takesLine(std::string_view command) {
    constexpr std::array<std::string_view, 21> known{"vi",    "vim",   "nvim", "nvi",   "gvim", "view",        "elvis",
                                                     "ex",    "nano",  "pico", "emacs", "jed",  "emacsclient", "joe",
                                                     "jmacs", "micro", "kak",  "mg",    "ne",   "mcedit",      "gedit"};
    const std::string_view program = command.substr(0, command.find(' '));
    return std::ranges::find(known, program.substr(program.rfind('/') + 1)) != known.end();
}

// While the editor runs, Ctrl-C and Ctrl-\ are for the editor alone, as with system(3).
class KeysForTheEditor {
public:
    KeysForTheEditor() {
        struct sigaction ignore = {};
        ignore.sa_handler = SIG_IGN;
        ::sigaction(SIGINT, &ignore, &interrupt_);
        ::sigaction(SIGQUIT, &ignore, &quit_);
    }
    KeysForTheEditor(const KeysForTheEditor&) = delete;
    KeysForTheEditor& operator=(const KeysForTheEditor&) = delete;
    ~KeysForTheEditor() {
        ::sigaction(SIGINT, &interrupt_, nullptr);
        ::sigaction(SIGQUIT, &quit_, nullptr);
    }

private:
    struct sigaction interrupt_ = {};
    struct sigaction quit_ = {};
};

}  // namespace

std::string editorCommand() {
    for (const char* const variable : {"VISUAL", "EDITOR"})
        if (const char* const command = std::getenv(variable); command && *command) return command;
    return "vi";
}

Outcome<Done> openInEditor(const std::string& command, const std::filesystem::path& file, std::size_t line) {
    // The command may have arguments of its own; the shell puts the file behind them.
    std::vector<std::string> words{"sh", "-c", command + " \"$@\"", command};
    if (line > 1 && takesLine(command)) words.push_back("+" + std::to_string(line));
    words.push_back(file.string());
    std::vector<char*> arguments;
    for (std::string& word : words) arguments.push_back(word.data());
    arguments.push_back(nullptr);

    posix_spawnattr_t attributes;
    ::posix_spawnattr_init(&attributes);
    sigset_t keys;
    ::sigemptyset(&keys);
    ::sigaddset(&keys, SIGINT);
    ::sigaddset(&keys, SIGQUIT);
    ::posix_spawnattr_setsigdefault(&attributes, &keys);
    ::posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGDEF);
    const KeysForTheEditor ignored;
    pid_t child = 0;
    const int code = ::posix_spawn(&child, "/bin/sh", nullptr, &attributes, arguments.data(), environ);
    ::posix_spawnattr_destroy(&attributes);
    if (code != 0) return Failure{command + ": " + sentence("can't start: {0}", std::strerror(code))};

    int status = 0;
    while (::waitpid(child, &status, 0) < 0)
        if (errno != EINTR)
            return Failure{command + ": " + sentence("can't wait for its end: {0}", std::strerror(errno))};
    if (WIFEXITED(status) && WEXITSTATUS(status) == 0) return Done{};
    return Failure{WIFEXITED(status) ? sentence("{0} ended with status {1}", command, WEXITSTATUS(status))
                                     : sentence("{0} was ended by signal {1}", command, WTERMSIG(status))};
}

}  // namespace orvel::tools
