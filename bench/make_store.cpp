// Prints a sample store: bench_make_store DESIGNS
#include <charconv>
#include <cstring>
#include <iostream>

#include "bench/sample_store.h"

int main(int argc, char** argv) {
    std::size_t designs = 0;
    const char* const end = argc == 2 ? argv[1] + std::strlen(argv[1]) : nullptr;
    if (!end || std::from_chars(argv[1], end, designs).ptr != end || end == argv[1]) {
        std::cerr << "usage: bench_make_store DESIGNS\n";
        return 2;
    }
    std::cout << orvel::bench::sampleStore(designs) << std::flush;
    return std::cout ? 0 : 1;
}
