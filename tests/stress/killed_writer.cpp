// Writers that are killed at any moment, and readers that never stop: every read must be one whole list, never an older
// one than was read before, and what killed writers leave must be swept by a later write.
// Usage: stress_killed_writer ROUNDS
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <random>
#include <string>

#include "model/widget_store.h"
#include "platform/foundation/posix_files.h"
#include "tests/support/fakes.h"

namespace orvel {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t designs = 100;

// A machine whose account lives in a temporary folder of the real file system.
struct Machine {
    explicit Machine(const std::string& home) { fake.accounts.account = Account{home}; }

    test::FakeMachine fake;
    PosixFiles files;
    Platform platform{fake.clock, files, fake.accounts, fake.zone, fake.identities};
};

void write(const Machine& machine, long generation) {
    const std::vector<WidgetSpec> specs(designs, WidgetSpec({.id = "A",
                                                             .title = std::to_string(generation),
                                                             .kind = WidgetSpec::Kind::note,
                                                             .primary = std::string(200, 'x'),
                                                             .createdAt = Date{0}}));
    WidgetStore::save(specs, machine.platform);
}

[[noreturn]] void fail(const char* what) {
    std::fprintf(stderr, "FAILED: a read gave %s\n", what);
    std::_Exit(1);
}

// The generation of a whole list; anything else ends the process.
long read(const Machine& machine) {
    const auto specs = WidgetStore::load(machine.platform);
    if (specs.size() != designs) fail("not all designs");
    for (const WidgetSpec& spec : specs)
        if (spec.title != specs.front().title) fail("designs of several writes");
    return std::stol(specs.front().title);
}

[[noreturn]] void readForever(const Machine& machine) {
    for (long newest = 0;;) {
        const long generation = read(machine);
        if (generation < newest) fail("an older list than before");
        newest = generation;
    }
}

[[noreturn]] void writeForever(const Machine& machine) {
    for (long generation = read(machine) + 1;; ++generation) write(machine, generation);
}

template <class Work>
pid_t inProcess(Work work) {
    const pid_t child = ::fork();
    if (child == 0) work();
    return child;
}

std::ptrdiff_t filesIn(const fs::path& folder) {
    return std::distance(fs::directory_iterator(folder), fs::directory_iterator());
}

int run(long rounds) {
    std::string home = (fs::temp_directory_path() / "orvel-stress-XXXXXX").string();
    if (!::mkdtemp(home.data())) return 1;
    const Machine machine(home);
    write(machine, 0);

    const pid_t reader = inProcess([&] { readForever(machine); });
    std::mt19937 random(1);
    std::uniform_int_distribution<useconds_t> microseconds(0, 40000);
    for (long round = 0; round < rounds; ++round) {
        const pid_t writer = inProcess([&] { writeForever(machine); });
        ::usleep(microseconds(random));
        ::kill(writer, SIGKILL);
        int status = 0;
        ::waitpid(writer, &status, 0);
        if (!WIFSIGNALED(status) || ::waitpid(reader, &status, WNOHANG) != 0) return 1;
        read(machine);
    }
    ::kill(reader, SIGKILL);
    ::waitpid(reader, nullptr, 0);

    const fs::path folder = WidgetStore::dir(machine.platform);
    const auto leftovers = filesIn(folder) - 1;
    for (const auto& entry : fs::directory_iterator(folder))
        fs::last_write_time(entry, fs::file_time_type::clock::now() - std::chrono::hours(25));
    const long last = read(machine) + 1;
    write(machine, last);
    const bool swept = filesIn(folder) == 1 && read(machine) == last;
    fs::remove_all(home);
    std::printf("%ld writers killed, %ld writes done, %td files left half written, all swept: %s\n", rounds, last,
                leftovers, swept ? "yes" : "NO");
    return swept && last > 1 ? 0 : 1;
}

}  // namespace
}  // namespace orvel

int main(int argc, char** argv) {
    return orvel::run(argc > 1 ? std::atol(argv[1]) : 200);
}
