// Loading a store's designs, next to loading the same records with a general-purpose library and to the bare parse of
// a fast one, from 1 to 1,000,000 designs. In memory that the process has at hand: bench_load_once shows the first
// load.
#include <benchmark/benchmark.h>
#include <malloc.h>

#include <iostream>
#include <map>

#include "bench/machine_with_store.h"
#include "bench/peers.h"
#include "bench/ratios.h"
#include "bench/sample_store.h"
#include "model/widget_store.h"

namespace orvel::bench {
namespace {

const std::string& storeOf(std::size_t designs) {
    static std::map<std::size_t, std::string> stores;
    auto& store = stores[designs];
    if (store.empty()) store = sampleStore(designs);
    return store;
}

using Work = bool (*)(const std::string& text);

// Times the work, which includes letting go of what was loaded.
void measure(benchmark::State& state, Work work) {
    const auto designs = static_cast<std::size_t>(state.range(0));
    const std::string& text = storeOf(designs);
    work(text);  // whoever ran before has left the allocator with work to do, and perhaps without this much memory
    for (auto _ : state) {
        if (work(text)) continue;
        state.SkipWithError("the store wasn't read");
        break;
    }
    using benchmark::Counter;
    state.SetComplexityN(state.range(0));
    state.counters["per_design"] =
        Counter(static_cast<double>(designs), Counter::kIsIterationInvariantRate | Counter::kInvert);
    state.counters["text"] = Counter(static_cast<double>(text.size()), Counter::kIsIterationInvariantRate);
}

bool load(const std::string& text) {
    const MachineWithStore machine(text);
    return !WidgetStore::load(machine.platform()).empty();
}

bool nlohmann(const std::string& text) {
    return !loadWithNlohmann(copied(text)).empty();
}

bool simdjsonParse(const std::string& text) {
    BareParser parser;
    return parser.parse(copied(text));
}

bool simdjsonParseAgain(const std::string& text) {
    static BareParser parser;
    return parser.parse(copied(text));
}

void add(const char* subject, Work work) {
    benchmark::RegisterBenchmark(subject, [work](benchmark::State& state) { measure(state, work); })
        ->RangeMultiplier(10)
        ->Range(1, 1'000'000)
        ->Complexity(benchmark::oN)
        ->Unit(benchmark::kMicrosecond);
}

// By itself the allocator gives memory back depending on what was freed before, and the order of the runs would count.
void keepMemory() {
    ::mallopt(M_MMAP_MAX, 0);
    ::mallopt(M_TRIM_THRESHOLD, -1);
}

bool loadersAgree(std::size_t designs) {
    const std::string& text = storeOf(designs);
    const MachineWithStore machine(text);
    const auto ours = WidgetStore::load(machine.platform());
    return ours.size() == designs && ours == loadWithNlohmann(copied(text));
}

}  // namespace
}  // namespace orvel::bench

int main(int argc, char** argv) {
    using namespace orvel::bench;
    keepMemory();
    if (!loadersAgree(100'000)) {
        std::cerr << "the loaders read different designs\n";
        return 1;
    }
    add("load", load);
    add("nlohmann", nlohmann);
    add("simdjson_parse", simdjsonParse);
    add("simdjson_parse_again", simdjsonParseAgain);
    return runAndCompare(argc, argv, "load");
}
