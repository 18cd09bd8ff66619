// One load of a store from disk, in a process that has done nothing else: its time and the growth of peak memory, next
// to its peers and to the size of the records themselves. bench_load_once [DESIGNS]
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <charconv>
#include <chrono>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iomanip>
#include <iostream>

#include "bench/own_size.h"
#include "bench/peers.h"
#include "bench/sample_store.h"
#include "model/widget_store.h"
#include "platform/foundation/posix_files.h"

namespace orvel::bench {
namespace {

namespace fs = std::filesystem;

class TemporaryHome final : public Accounts {
public:
    TemporaryHome() {
        std::string name = fs::temp_directory_path() / "orvel-bench-XXXXXX";
        if (!::mkdtemp(name.data())) throw std::system_error(errno, std::generic_category(), name);
        folder_ = name;
    }
    TemporaryHome(const TemporaryHome&) = delete;
    TemporaryHome& operator=(const TemporaryHome&) = delete;
    ~TemporaryHome() override {
        std::error_code ignored;
        fs::remove_all(folder_, ignored);
    }

    std::optional<Account> current() const override { return Account{folder_}; }
    std::string processHomeDirectory() const override { return folder_; }

private:
    std::string folder_;
};

// The most memory this process has had in use so far, in bytes.
std::size_t peakMemory() {
    std::ifstream status("/proc/self/status");
    std::string word;
    std::size_t kilobytes = 0;
    while (status >> word)
        if (word == "VmHWM:") status >> kilobytes;
    return kilobytes * 1024;
}

struct Answer {
    bool succeeded = false;
    double seconds = 0;
    std::size_t growth = 0;   // of the peak, in bytes
    std::size_t ownSize = 0;  // of the records, in bytes
};

// The answer that `work` gives in a process forked for it. That process's peak starts from what this one has in use.
Answer inOwnProcess(const std::function<Answer()>& work) {
    int ends[2];
    if (::pipe(ends) != 0) return {};
    const pid_t child = ::fork();
    if (child == 0) {
        const Answer answer = work();
        const bool told = ::write(ends[1], &answer, sizeof answer) == sizeof answer;
        ::_exit(told ? 0 : 1);
    }
    ::close(ends[1]);
    Answer answer;
    if (child < 0 || ::read(ends[0], &answer, sizeof answer) != sizeof answer) answer = {};
    ::close(ends[0]);
    if (child > 0) ::waitpid(child, nullptr, 0);
    return answer;
}

bool isLoaded(const std::vector<WidgetSpec>& specs) {
    return !specs.empty();
}
bool isLoaded(const std::unique_ptr<BareParser>& parser) {
    return parser != nullptr;
}

// `load` returns what it loaded, which is still there when the peak is read.
template <class Load>
Answer measured(Load load) {
    using Clock = std::chrono::steady_clock;
    const std::size_t before = peakMemory();
    const auto start = Clock::now();
    const auto loaded = load();
    const std::chrono::duration<double> time = Clock::now() - start;
    Answer answer{isLoaded(loaded), time.count(), peakMemory() - before, 0};
    if constexpr (requires { ownSize(loaded); }) answer.ownSize = ownSize(loaded);
    return answer;
}

template <class Member>
double median(std::vector<Answer> answers, Member member) {
    const auto middle = answers.begin() + static_cast<std::ptrdiff_t>(answers.size() / 2);
    std::ranges::nth_element(answers, middle, {}, member);
    return static_cast<double>((*middle).*member);
}

struct Subject {
    const char* name;
    std::function<Answer()> work;
    std::vector<Answer> answers = {};
};

void print(const std::vector<Subject>& subjects) {
    const auto& reference = subjects.front().answers;
    const double time = median(reference, &Answer::seconds);
    const double records = median(reference, &Answer::ownSize);
    std::cout << "records " << records / 1e6 << " MB\n\n"
              << "                      time  times load   peak memory  times records\n"
              << std::fixed;
    for (const Subject& subject : subjects) {
        const double seconds = median(subject.answers, &Answer::seconds);
        const double growth = median(subject.answers, &Answer::growth);
        std::cout << std::left << std::setw(16) << subject.name << std::right << std::setprecision(1) << std::setw(7)
                  << seconds * 1e3 << " ms" << std::setprecision(2) << std::setw(12) << seconds / time
                  << std::setprecision(1) << std::setw(11) << growth / 1e6 << " MB" << std::setprecision(2)
                  << std::setw(15) << growth / records << '\n';
    }
}

int compare(std::size_t designs) {
    constexpr int rounds = 15;
    const TemporaryHome home;
    PosixFiles files;
    const Platform& system = Platform::system();
    const Platform platform{system.clock, files, home, system.timeZone, system.identities};
    const fs::path store = WidgetStore::dir(platform) / "widgets.json";

    const auto write = [&] { return Answer{static_cast<bool>(files.replace(store, sampleStore(designs))), 0, 0, 0}; };
    const auto parse = [&] {
        auto parser = std::make_unique<BareParser>();
        if (!parser->parse(*files.read(store))) parser.reset();
        return parser;
    };
    std::vector<Subject> subjects{
        {"load", [&] { return measured([&] { return WidgetStore::load(platform); }); }},
        {"nlohmann", [&] { return measured([&] { return loadWithNlohmann(*files.read(store)); }); }},
        {"simdjson_parse", [&] { return measured(parse); }},
    };

    bool succeeded = inOwnProcess(write).succeeded;
    for (int round = 0; succeeded && round < rounds; ++round)
        for (Subject& subject : subjects)
            succeeded = succeeded && subject.answers.emplace_back(inOwnProcess(subject.work)).succeeded;
    if (!succeeded) {
        std::cerr << "the store wasn't written and read everywhere\n";
        return 1;
    }
    std::cout << designs << " designs: text " << static_cast<double>(fs::file_size(store)) / 1e6 << " MB, ";
    print(subjects);
    return 0;
}

}  // namespace
}  // namespace orvel::bench

int main(int argc, char** argv) {
    std::size_t designs = 100'000;
    const char* const end = argc == 2 ? argv[1] + std::strlen(argv[1]) : nullptr;
    if (argc > 2 || (end && (std::from_chars(argv[1], end, designs).ptr != end || designs == 0))) {
        std::cerr << "usage: bench_load_once [DESIGNS]\n";
        return 2;
    }
    return orvel::bench::compare(designs);
}
