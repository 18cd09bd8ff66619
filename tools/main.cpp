#include <clocale>
#include <iostream>

#include "tools/command_line.h"

int main(int argc, char** argv) {
    std::setlocale(LC_MESSAGES, "");
    return orvel::tools::run(argc, argv, orvel::Platform::system(), {std::cin, std::cout, std::cerr});
}
