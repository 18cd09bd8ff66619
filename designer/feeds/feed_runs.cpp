#include "designer/feeds/feed_runs.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>

#include "platform/foundation/installation.h"

namespace orvel::designer {
namespace {

constexpr std::size_t mostShown = 8 << 10;

// Beside this program where it is built.
std::string command() {
    std::error_code code;
    const auto beside = installedPrograms() / "orvel";
    return std::filesystem::exists(beside, code) ? beside : installedPrefix() / "bin" / "orvel";
}

// With both of its streams in one pipe, and none of the signals blocked that this process waits for.
Outcome<pid_t> spawn(const std::string& feed, int output) {
    std::string program = command();
    std::string name = feed;
    std::array<std::string, 2> words{"feed", "run"};
    std::array<char*, 5> arguments{program.data(), words[0].data(), words[1].data(), name.data(), nullptr};
    posix_spawn_file_actions_t streams;
    ::posix_spawn_file_actions_init(&streams);
    ::posix_spawn_file_actions_addopen(&streams, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    for (const int stream : {STDOUT_FILENO, STDERR_FILENO})
        ::posix_spawn_file_actions_adddup2(&streams, output, stream);
    posix_spawnattr_t attributes;
    ::posix_spawnattr_init(&attributes);
    sigset_t none;
    sigemptyset(&none);
    ::posix_spawnattr_setsigmask(&attributes, &none);
    ::posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGMASK);
    pid_t number = -1;
    const int error = ::posix_spawn(&number, program.c_str(), &streams, &attributes, arguments.data(), environ);
    ::posix_spawn_file_actions_destroy(&streams);
    ::posix_spawnattr_destroy(&attributes);
    if (error != 0) return Failure{program + ": can't start it: " + std::strerror(error)};
    return number;
}

}  // namespace

FeedRuns::~FeedRuns() {
    for (const auto& [feed, process] : processes_) {
        if (process.number <= 0) continue;
        ::kill(process.number, SIGTERM);
        while (::waitpid(process.number, nullptr, 0) < 0 && errno == EINTR) {
        }
    }
}

Outcome<Done> FeedRuns::start(const std::string& feed) {
    Process& process = processes_[feed];
    if (process.number > 0) return Done{};
    int ends[2] = {-1, -1};
    if (::pipe2(ends, O_CLOEXEC | O_NONBLOCK) != 0)
        return Failure{std::string("can't make a pipe: ") + std::strerror(errno)};
    process.output = Descriptor(ends[0]);
    const Descriptor input(ends[1]);
    ::fcntl(input.get(), F_SETFL, 0);
    const auto number = spawn(feed, input.get());
    if (!number) {
        processes_.erase(feed);
        return number.failure();
    }
    process.number = *number;
    process.run = {};
    process.watch = loop_.watch(ends[0], [this, &process] { receive(process); });
    return Done{};
}

const FeedRuns::Run* FeedRuns::last(const std::string& feed) const {
    const auto found = processes_.find(feed);
    return found == processes_.end() ? nullptr : &found->second.run;
}

void FeedRuns::receive(Process& process) {
    std::array<char, 4096> bytes;
    ssize_t count = 0;
    while ((count = ::read(process.output.get(), bytes.data(), bytes.size())) > 0) {
        std::string& said = process.run.said;
        if (said.size() < mostShown) said.append(bytes.data(), static_cast<std::size_t>(count));
    }
    if (count < 0 && (errno == EAGAIN || errno == EINTR)) return;
    int status = 0;
    while (::waitpid(process.number, &status, 0) < 0 && errno == EINTR) {
    }
    process.number = -1;
    process.run.isRunning = false;
    process.run.hasFailed = status != 0;
    process.watch.reset();
    ended_();
}

}  // namespace orvel::designer
