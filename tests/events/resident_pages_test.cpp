#include "platform/events/resident_pages.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <numeric>
#include <vector>

#include "platform/foundation/descriptor.h"

namespace orvel {
namespace {

// A part of the program's file that nothing but this test reads.
constexpr std::size_t length = 8 << 20;
alignas(4096) constexpr std::array<unsigned char, length> constants{3};
std::array<unsigned char, 8192> variables{5};  // differs from the file as soon as it is written

unsigned long sumOfConstants() {
    const volatile unsigned char* const bytes = constants.data();  // read from memory, whatever the compiler knows
    return std::accumulate(bytes, bytes + length, 0UL);
}

/// How many of the constants' pages this process holds, as the kernel says (proc(5), pagemap).
std::size_t residentPages() {
    const auto page = static_cast<std::size_t>(::sysconf(_SC_PAGESIZE));
    std::vector<std::uint64_t> entries(length / page);
    const std::size_t bytes = entries.size() * sizeof entries[0];
    const auto first = reinterpret_cast<std::uintptr_t>(constants.data()) / page * sizeof entries[0];
    const Descriptor map(::open("/proc/self/pagemap", O_RDONLY | O_CLOEXEC));
    EXPECT_EQ(::pread(map.get(), entries.data(), bytes, static_cast<off_t>(first)), static_cast<ssize_t>(bytes));
    return static_cast<std::size_t>(
        std::count_if(entries.begin(), entries.end(), [](std::uint64_t entry) { return entry >> 63; }));
}

TEST(ResidentPages, AreLetGoAndComeBackAsTheyWere) {
    const unsigned long sum = sumOfConstants();
    variables[0] = 7;
    const std::size_t before = residentPages();
    releaseProgramPages();
    EXPECT_LT(residentPages(), before / 2)
        << "of " << before << "; the kernel maps some beside those that are used, of which there are few";
    EXPECT_EQ(sumOfConstants(), sum);
    EXPECT_EQ(variables[0], 7) << "what was written isn't the file's";
}

}  // namespace
}  // namespace orvel
