#include "feeds/worker.h"

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <charconv>
#include <csignal>
#include <cstring>

#include "feeds/design_update.h"
#include "feeds/run.h"
#include "platform/foundation/descriptor.h"
#include "platform/language/sentence.h"

namespace orvel {
namespace {

constexpr char succeeded = '+';
constexpr char failed = '-';
constexpr char skipped = '.';

// One character for the outcome, the milliseconds, a blank, and why the run failed.
std::string encode(const FeedRun& run) {
    const auto milliseconds = static_cast<long long>(run.time.count() * 1000);
    return (run.isSkipped ? skipped
            : run.failure ? failed
                          : succeeded) +
           std::to_string(milliseconds) + ' ' + run.failure.value_or("");
}

WorkerReport decode(std::string_view text) {
    WorkerReport report{.failure = sentence("its run came to an end without a word")};
    long long milliseconds = 0;
    const auto blank = text.find(' ');
    if (blank == text.npos) return report;
    (void)std::from_chars(text.data() + 1, text.data() + blank, milliseconds);
    report.seconds = static_cast<double>(milliseconds) / 1000;
    report.isSkipped = text.front() == skipped;
    report.failure = text.front() == failed ? std::optional(std::string(text.substr(blank + 1))) : std::nullopt;
    return report;
}

// In the child.
std::string work(const Worker::Order& order, const Platform& platform) {
    const FeedRun run = runFeed(order.feed, platform);
    if (run.failure && !run.isSkipped && order.lastNews) (void)sayNoNews(order.feed, *order.lastNews, platform);
    return encode(run);
}

[[noreturn]] void serve(int pipe, const Worker::Order& order, pid_t parent, const Platform& platform) {
    sigset_t none;
    sigemptyset(&none);
    ::sigprocmask(SIG_SETMASK, &none, nullptr);
    ::prctl(PR_SET_PDEATHSIG, SIGTERM);
    if (::getppid() != parent) ::_exit(1);
    try {
        const std::string report = work(order, platform);
        (void)!::write(pipe, report.data(), report.size());
    } catch (...) {  // out of memory, say
    }
    ::_exit(0);
}

}  // namespace

struct Worker::State {
    std::function<void(WorkerReport)> ended;
    Descriptor pipe;
    pid_t process = -1;
    std::string report = {};
    std::optional<EventLoop::Watch> watch = std::nullopt;

    void receive() {
        std::array<char, 4096> bytes;
        ssize_t count = 0;
        while ((count = ::read(pipe.get(), bytes.data(), bytes.size())) > 0)
            report.append(bytes.data(), static_cast<std::size_t>(count));
        if (count < 0 && (errno == EAGAIN || errno == EINTR)) return;
        reap();
        const auto told = std::move(ended);
        told(decode(report));  // the callback may destroy this object
    }

    void reap() {
        if (process > 0)
            while (::waitpid(process, nullptr, 0) < 0 && errno == EINTR) {
            }
        process = -1;
    }
};

Worker::Worker(EventLoop& loop, Order order, const Platform& platform, std::function<void(WorkerReport)> ended)
    : state_(std::make_unique<State>(State{.ended = std::move(ended), .pipe = Descriptor()})) {
    int ends[2] = {-1, -1};
    // If the process couldn't be started, the pipe is closed already, and its end is reported at once.
    if (::pipe2(ends, O_CLOEXEC | O_NONBLOCK) != 0) {
        state_->report = failed + ("0 " + sentence("can't make a pipe: {0}", std::strerror(errno)));
        ends[0] = ::open("/dev/null", O_RDONLY | O_CLOEXEC);
    }
    state_->pipe = Descriptor(ends[0]);
    const Descriptor childsEnd(ends[1]);
    const pid_t parent = ::getpid();
    state_->process = childsEnd ? ::fork() : -1;
    if (state_->process == 0) serve(childsEnd.get(), order, parent, platform);
    if (state_->process < 0 && childsEnd)
        state_->report = failed + ("0 " + sentence("can't start a process: {0}", std::strerror(errno)));
    state_->watch = loop.watch(ends[0], [state = state_.get()] { state->receive(); });
}

Worker::~Worker() {
    end();
    state_->reap();
}

void Worker::end() {
    if (state_->process > 0) ::kill(state_->process, SIGTERM);
}

}  // namespace orvel
