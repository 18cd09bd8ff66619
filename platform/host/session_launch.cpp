#include "platform/host/session_launch.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

#include "platform/foundation/markup.h"

namespace orvel {
namespace {

// As a unit, the program doesn't inherit the sandbox of this process's own unit. The second line is for sessions
// without a service manager.
constexpr const char* launchScript =
    "systemd-run --user --quiet --collect -- \"$@\" 2> /dev/null && exit\n"
    "exec \"$@\"";

// A desktop notification, through whichever of the usual clients is installed.
constexpr const char* notifyScript =
    "notify-send --app-name=Orvel -- \"$1\" \"$2\" 2> /dev/null && exit\n"
    "exec gdbus call --session --dest org.freedesktop.Notifications --object-path /org/freedesktop/Notifications "
    "--method org.freedesktop.Notifications.Notify Orvel 0 '' \"$1\" \"$2\" '[]' '{}' -1 2> /dev/null";

// Forks twice, so that the program isn't this process's child and nobody has to wait for it.
void run(std::vector<std::string> arguments) {
    std::vector<char*> pointers;
    for (std::string& argument : arguments) pointers.push_back(argument.data());
    pointers.push_back(nullptr);
    const pid_t child = ::fork();
    if (child > 0) {
        ::waitpid(child, nullptr, 0);
        return;
    }
    if (child < 0 || ::fork() != 0) {
        if (child == 0) ::_exit(0);
        return;
    }
    ::setsid();
    sigset_t none;
    sigemptyset(&none);
    ::sigprocmask(SIG_SETMASK, &none, nullptr);
    for (const int signal : {SIGPIPE, SIGCHLD}) ::signal(signal, SIG_DFL);
    const int nothing = ::open("/dev/null", O_RDWR | O_CLOEXEC);
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) ::dup2(nothing, stream);
    ::execvp(pointers.front(), pointers.data());
    ::_exit(127);
}

}  // namespace

void launchInSession(const std::vector<std::string>& arguments) {
    std::vector<std::string> all{"sh", "-c", launchScript, "sh"};
    all.insert(all.end(), arguments.begin(), arguments.end());
    run(std::move(all));
}

void openInSession(const std::string& address) {
    launchInSession({"xdg-open", address});
}

void notifyInSession(const std::string& summary, const std::string& text) {
    // Services may read the text as markup.
    run({"sh", "-c", notifyScript, "sh", summary, escapedForMarkup(text)});
}

}  // namespace orvel
