// Commands that end well, badly, late or never, as real processes.
#include "feeds/command_run.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <fstream>

namespace orvel {
namespace {

using namespace std::chrono_literals;
namespace fs = std::filesystem;

// How long the commands sleep: a number that tells this process's commands from others'.
const std::string mark = "98765." + std::to_string(::getpid());

CommandResult sh(const std::string& script, std::chrono::milliseconds time = 60s) {
    return runCommand({"sh", "-c", "mark=" + mark + "; " + script}, "/", {.time = time, .grace = 200ms});
}

std::size_t sleeping() {
    std::size_t count = 0;
    std::error_code gone;
    for (const auto& process : fs::directory_iterator("/proc", gone)) {
        std::string program, time;
        std::ifstream words(process.path() / "cmdline");
        std::getline(std::getline(words, program, '\0'), time, '\0');
        count += program == "sleep" && time == mark;
    }
    return count;
}

std::size_t openDescriptors() {
    return static_cast<std::size_t>(std::distance(fs::directory_iterator("/proc/self/fd"), {}));
}

std::string repeated(std::size_t count) {
    return "head -c " + std::to_string(count) + " /dev/zero | tr '\\0' x";
}

TEST(CommandRun, KeepsBothStreamsAndSaysHowItEnded) {
    const struct {
        const char* script;
        const char* output;
        std::optional<std::string> failure;
    } rows[] = {
        {"echo a; echo b >&2; pwd", "a\n/\n", {}},
        {"read line || echo none", "none\n", {}},
        {"exit 3", "", "exit status 3"},
        {"echo a; echo 'one\ntwo\n' >&2; exit 1", "a\n", "exit status 1: two"},
        {"kill -SEGV $$", "", "ended by Segmentation fault"},
        {"printf '\\033[31mred' >&2; exit 1", "", "exit status 1: [31mred"},
        {"ls /proc/self/fd | wc -l", "4\n", {}},  // the three streams, and the listing itself
    };
    for (const auto& row : rows) {
        const CommandResult result = sh(row.script);
        EXPECT_EQ(result.output, row.output) << row.script;
        EXPECT_EQ(result.failure, row.failure) << row.script;
    }
    EXPECT_EQ(runCommand({"/no/such program"}, "/", {.time = 1s}).failure,
              "/no/such program: can't run: No such file or directory");
    EXPECT_EQ(runCommand({"true"}, "/no/such", {.time = 1s}).failure, "true: can't run: No such file or directory");
    EXPECT_EQ(runCommand({"printf", "%s", "$HOME 'a b'"}, "/", {.time = 60s}).output, "$HOME 'a b'") << "no shell";
}

TEST(CommandRun, TakesSixtyFourKibibytesAndNoMore) {
    EXPECT_EQ(sh(repeated(64 << 10)).output.size(), 64U << 10);
    EXPECT_EQ(sh(repeated(64 << 10)).failure, std::nullopt);
    EXPECT_EQ(sh(repeated((64 << 10) + 1)).failure, "it wrote more than 64 KiB");
    EXPECT_EQ(sh("yes").failure, "it wrote more than 64 KiB");
    EXPECT_EQ(sh("yes >&2").failure, "it wrote more than 64 KiB");
}

TEST(CommandRun, EndsEverythingThatItStarted) {
    const struct {
        const char* script;
        std::chrono::milliseconds time;
        std::optional<std::string> failure;
    } rows[] = {
        {"exec sleep $mark", 300ms, "no end after 0.300 s"},
        {"trap '' TERM; while :; do sleep $mark; done", 300ms, "no end after 0.300 s"},
        {"for i in 0 1 2 3 4 5 6 7 8 9; do (for j in 0 1 2; do sleep $mark & done; wait) & done; wait", 500ms,
         "no end after 0.500 s"},
        {"setsid sh -c 'setsid sleep $mark & sleep $mark' & sleep $mark", 500ms, "no end after 0.500 s"},
        {"(setsid sleep $mark > /dev/null &) ; sleep $mark & echo done", 60s, {}},  // ends by itself, and leaves some
    };
    const std::size_t before = openDescriptors();
    for (const auto& row : rows) {
        EXPECT_EQ(sh(row.script, row.time).failure, row.failure) << row.script;
        EXPECT_EQ(sleeping(), 0U) << row.script;
    }
    EXPECT_EQ(openDescriptors(), before);
}

TEST(CommandRun, EndsWithTheProcessThatAsksForIt) {
    // Its own command does, and the signal stays pending.
    sigset_t mask;
    sigemptyset(&mask);
    sigaddset(&mask, SIGTERM);
    sigprocmask(SIG_BLOCK, &mask, nullptr);
    EXPECT_EQ(sh("kill -TERM $PPID; exec sleep $mark").failure, "interrupted");
    EXPECT_EQ(sigwaitinfo(&mask, nullptr), SIGTERM);
    sigprocmask(SIG_UNBLOCK, &mask, nullptr);
}

}  // namespace
}  // namespace orvel
