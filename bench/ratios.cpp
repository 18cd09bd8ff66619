#include "bench/ratios.h"

#include <benchmark/benchmark.h>
#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <iomanip>
#include <map>
#include <sstream>
#include <utility>
#include <vector>

namespace orvel::bench {
namespace {

using benchmark::ConsoleReporter;

double median(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    if (values.size() % 2 == 1) return *middle;
    return (*middle + *std::max_element(values.begin(), middle)) / 2;
}

std::string timeText(double seconds) {
    std::ostringstream text;
    text << std::setprecision(4);
    if (seconds < 1e-3)
        text << seconds * 1e6 << " us";
    else
        text << seconds * 1e3 << " ms";
    return text.str();
}

// Shows medians only, and the comparison at the end.
class RatioReporter final : public ConsoleReporter {
public:
    explicit RatioReporter(std::string reference)
        : ConsoleReporter(::isatty(STDOUT_FILENO) ? OO_ColorTabular : OO_Tabular), reference_(std::move(reference)) {}

    void ReportRuns(const std::vector<Run>& runs) override {
        std::vector<Run> shown;
        for (const Run& run : runs) {
            if (run.run_type == Run::RT_Iteration && !run.error_occurred) remember(run);
            const bool summary = run.aggregate_name == "median" || run.report_big_o || run.report_rms;
            if (run.repetitions <= 1 || summary || run.error_occurred) shown.push_back(run);
        }
        if (!shown.empty()) ConsoleReporter::ReportRuns(shown);
    }

    void Finalize() override {
        auto& out = GetOutputStream();
        out << "\nCPU time of " << reference_ << ", and the others' as multiples of it (medians):\n" << std::left;
        out << std::setw(24) << "" << std::setw(12) << reference_;
        for (const auto& [place, subject] : subjects_)
            if (subject != reference_) out << "  " << subject;
        for (const auto& [place, name] : cases_) addRow(name);
        out << std::endl;
    }

private:
    using Place = std::pair<std::int64_t, std::int64_t>;

    // Runs come in random order; rows and columns keep the order of registration.
    void remember(const Run& run) {
        const std::string& function = run.run_name.function_name;
        const std::size_t slash = function.find('/');
        const std::string subject = function.substr(0, slash);
        const std::string name = slash == function.npos ? run.run_name.args : function.substr(slash + 1);
        place(subjects_, subject, {run.family_index, 0});
        place(cases_, name, {run.per_family_instance_index, run.family_index});
        seconds_[{subject, name}].push_back(run.cpu_accumulated_time / static_cast<double>(run.iterations));
    }

    static void place(std::map<Place, std::string>& places, const std::string& name, Place place) {
        const auto known = std::ranges::find(places, name, [](const auto& entry) { return entry.second; });
        if (known != places.end()) {
            if (known->first <= place) return;
            places.erase(known);
        }
        places.emplace(place, name);
    }

    void addRow(const std::string& name) {
        const auto own = seconds_.find({reference_, name});
        if (own == seconds_.end()) return;
        const double time = median(own->second);
        auto& out = GetOutputStream();
        out << '\n' << std::setw(24) << name << std::setw(12) << timeText(time);
        for (const auto& [place, subject] : subjects_) {
            if (subject == reference_) continue;
            const auto peer = seconds_.find({subject, name});
            std::ostringstream ratio;
            if (peer != seconds_.end()) ratio << std::setprecision(3) << median(peer->second) / time;
            out << "  " << std::setw(static_cast<int>(subject.size())) << ratio.str();
        }
    }

    std::string reference_;
    std::map<Place, std::string> subjects_;
    std::map<Place, std::string> cases_;
    std::map<std::pair<std::string, std::string>, std::vector<double>> seconds_;
};

}  // namespace

int runAndCompare(int argc, char** argv, const std::string& reference) {
    // Before the caller's arguments, which thereby win.
    char repetitions[] = "--benchmark_repetitions=5";
    char interleaving[] = "--benchmark_enable_random_interleaving=true";
    std::vector<char*> arguments{argv[0], repetitions, interleaving};
    arguments.insert(arguments.end(), argv + 1, argv + argc);
    int count = static_cast<int>(arguments.size());
    arguments.push_back(nullptr);

    benchmark::Initialize(&count, arguments.data());
    if (benchmark::ReportUnrecognizedArguments(count, arguments.data())) return 2;
    RatioReporter reporter(reference);
    benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::Shutdown();
    return 0;
}

}  // namespace orvel::bench
