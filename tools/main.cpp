#include <unistd.h>

#include <clocale>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <new>
#include <string_view>

#include "platform/foundation/platform.h"
#include "tools/command_line.h"
#include "tools/core/standard_descriptors.h"

namespace {

// Handles exceptions that nobody catches: those of the libraries' initialisation before `main`, and a lack of memory
// even for the exception itself.
[[noreturn]] void endInOneLine() {
    try {
        if (std::current_exception()) throw;
    } catch (const std::bad_alloc&) {
    } catch (...) {
        std::abort();
    }
    constexpr std::string_view line = "orvel: out of memory\n";
    (void)!::write(STDERR_FILENO, line.data(), line.size());
    ::_exit(orvel::tools::failed);
}

[[gnu::constructor(101)]] void beforeAllElse() {
    std::set_terminate(endInOneLine);
}

}  // namespace

int main(int argc, char** argv) {
    orvel::tools::holdStandardDescriptors();
    std::setlocale(LC_MESSAGES, "");
    const bool isInteractive = ::isatty(STDIN_FILENO) && ::isatty(STDERR_FILENO);
    return orvel::tools::run(argc, argv, orvel::Platform::system(),
                             {std::cin, std::cout, std::cerr, orvel::tools::columnsOfStandardOutput(), isInteractive});
}
