#include "feeds/command_run.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>

#include "feeds/process_tree.h"
#include "platform/events/ending_signals.h"
#include "platform/foundation/descriptor.h"
#include "platform/foundation/unicode.h"
#include "platform/language/sentence.h"

namespace orvel {
namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

// The person's own programs come first.
constexpr int commandNiceness = 10;

struct Pipe {
    Descriptor out;
    Descriptor in;
};

std::optional<Pipe> makePipe() {
    int ends[2];
    if (::pipe2(ends, O_CLOEXEC) != 0) return std::nullopt;
    return Pipe{Descriptor(ends[0]), Descriptor(ends[1])};
}

// Asks for this process's ending signals as a descriptor while it lives.
class EndingSignals {
public:
    EndingSignals() {
        ::sigprocmask(SIG_SETMASK, nullptr, &before_);
        signals_ = openEndingSignals();
    }
    ~EndingSignals() { ::sigprocmask(SIG_SETMASK, &before_, nullptr); }
    EndingSignals(const EndingSignals&) = delete;
    int descriptor() const { return signals_.get(); }

private:
    sigset_t before_;
    Descriptor signals_;
};

// In the child. Returns only when that fails, with the reason in errno.
void become(const std::vector<std::string>& command, const std::string& folder, const Pipe& output,
            const Pipe& errors) {
    ::setpgid(0, 0);
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    sigset_t none;
    sigemptyset(&none);
    ::sigprocmask(SIG_SETMASK, &none, nullptr);
    for (const int signal : {SIGPIPE, SIGCHLD, SIGHUP, SIGTERM, SIGINT}) ::signal(signal, SIG_DFL);
    const int nothing = ::open("/dev/null", O_RDONLY | O_CLOEXEC);
    if (nothing < 0 || ::dup2(nothing, STDIN_FILENO) < 0 || ::dup2(output.in.get(), STDOUT_FILENO) < 0 ||
        ::dup2(errors.in.get(), STDERR_FILENO) < 0)
        return;
    ::setpriority(PRIO_PROCESS, 0, commandNiceness);
    ::close_range(STDERR_FILENO + 1, ~0U, CLOSE_RANGE_CLOEXEC);
    if (::chdir(folder.c_str()) != 0) return;
    std::vector<char*> words;
    for (const std::string& word : command) words.push_back(const_cast<char*>(word.c_str()));
    words.push_back(nullptr);
    ::execvp(words.front(), words.data());
}

struct Started {
    pid_t process;
    Descriptor handle;
    Pipe output;
    Pipe errors;
};

// Readable once the process has ended (pidfd_open; the C library's header lacks C linkage for C++ before 2.37).
Descriptor openProcess(pid_t process) {
    return Descriptor(static_cast<int>(::syscall(SYS_pidfd_open, process, 0)));
}

// 0 when the program runs, else why it doesn't.
int start(const std::vector<std::string>& command, const std::string& folder, std::optional<Started>& started) {
    auto output = makePipe();
    auto errors = makePipe();
    auto trouble = makePipe();
    if (!output || !errors || !trouble) return errno;
    const pid_t child = ::fork();
    if (child < 0) return errno;
    if (child == 0) {
        become(command, folder, *output, *errors);
        const int why = errno;
        (void)!::write(trouble->in.get(), &why, sizeof why);
        ::_exit(127);
    }
    ::setpgid(child, child);
    trouble->in.close();
    int why = 0;
    while (::read(trouble->out.get(), &why, sizeof why) < 0 && errno == EINTR) {
    }
    started = Started{child, openProcess(child), *std::move(output), *std::move(errors)};
    started->output.in.close();
    started->errors.in.close();
    return why;
}

/// What arrives on a pipe, up to a number of bytes.
class Collector {
public:
    Collector(Descriptor pipe, std::size_t most, std::string& text) : pipe_(std::move(pipe)), most_(most), text_(text) {
        ::fcntl(pipe_.get(), F_SETFL, O_NONBLOCK);
    }

    int descriptor() const { return pipe_.get(); }
    bool isFull() const { return text_.size() > most_; }

    /// All that is there.
    void drain() {
        std::array<char, 4096> bytes;
        while (pipe_ && !isFull()) {
            const ssize_t count = ::read(pipe_.get(), bytes.data(), bytes.size());
            if (count > 0)
                text_.append(bytes.data(), static_cast<std::size_t>(count));
            else if (count == 0)
                pipe_.close();
            else if (errno != EINTR)
                return;
        }
    }

private:
    Descriptor pipe_;
    std::size_t most_;
    std::string& text_;
};

// How long to wait, for poll.
int left(Clock::time_point until) {
    const auto time = std::chrono::ceil<milliseconds>(until - Clock::now());
    return static_cast<int>(std::max(time, milliseconds{0}).count());
}

std::string lastLine(std::string_view text) {
    while (!text.empty()) {
        const auto start = text.rfind('\n') + 1;  // none: npos + 1 is 0
        const std::string line = unicode::onOneLine(text.substr(start));
        const std::string_view trimmed = unicode::trimmingWhitespace(line);
        if (!trimmed.empty()) return std::string(unicode::prefix(trimmed, 200));
        text = text.substr(0, start == 0 ? 0 : start - 1);
    }
    return {};
}

std::string inSeconds(milliseconds time) {
    std::string text = std::to_string(time.count() / 1000);
    if (const auto rest = time.count() % 1000) text += "." + std::to_string(1000 + rest).substr(1);
    return text + " s";
}

// Why a program that ended that way failed.
std::optional<std::string> failureOf(const siginfo_t& end, const std::string& errors) {
    if (end.si_code == CLD_EXITED && end.si_status == 0) return std::nullopt;
    std::string reason = end.si_code == CLD_EXITED ? sentence("exit status {0}", end.si_status)
                                                   : sentence("ended by {0}", ::strsignal(end.si_status));
    const std::string said = lastLine(errors);
    return said.empty() ? reason : reason + ": " + said;
}

std::optional<std::string> follow(const Started& started, Collector& output, Collector& errors,
                                  const EndingSignals& signals, const CommandLimits& limits,
                                  const CommandResult& result) {
    const auto until = Clock::now() + limits.time;
    for (;;) {
        std::array<pollfd, 4> waited{pollfd{started.handle.get(), POLLIN, 0}, pollfd{output.descriptor(), POLLIN, 0},
                                     pollfd{errors.descriptor(), POLLIN, 0}, pollfd{signals.descriptor(), POLLIN, 0}};
        const int count = ::poll(waited.data(), waited.size(), left(until));
        if (count < 0 && errno != EINTR) return sentence("can't wait: {0}", std::strerror(errno));
        output.drain();
        errors.drain();
        if (output.isFull() || errors.isFull()) return sentence("it wrote more than {0} KiB", limits.bytes >> 10);
        if (count > 0 && waited[0].revents) break;
        if (count > 0 && waited[3].revents) return sentence("interrupted");
        if (count == 0) return sentence("no end after {0}", inSeconds(limits.time));
    }
    siginfo_t end{};
    // It isn't reaped yet, so that no other process gets the id of its group.
    ::waitid(P_PID, static_cast<id_t>(started.process), &end, WEXITED | WNOWAIT);
    return failureOf(end, result.errors);
}

}  // namespace

CommandResult runCommand(const std::vector<std::string>& command, const std::string& folder,
                         const CommandLimits& limits) {
    CommandResult result;
    const EndingSignals signals;  // a signal that arrives meanwhile ends this process after the command is tidied up
    adoptDescendants();
    std::optional<Started> started;
    if (const int why = start(command, folder, started)) {
        result.failure = unicode::onOneLine(command.front()) + ": " + sentence("can't run: {0}", std::strerror(why));
    } else {
        Collector output(std::move(started->output.out), limits.bytes, result.output);
        Collector errors(std::move(started->errors.out), limits.bytes, result.errors);
        result.failure = follow(*started, output, errors, signals, limits, result);
        // A program that still runs is asked first, and may tidy up.
        pollfd end{started->handle.get(), POLLIN, 0};
        if (::poll(&end, 1, 0) == 0) {
            ::kill(-started->process, SIGTERM);
            ::poll(&end, 1, static_cast<int>(limits.grace.count()));
        }
    }
    if (started) endDescendants(started->process);
    return result;
}

}  // namespace orvel
