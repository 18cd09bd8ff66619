// Writes the manual page and the completions into a folder: orvel_documentation FOLDER. Run while building.
#include <CLI/CLI.hpp>
#include <filesystem>
#include <fstream>
#include <iostream>

#include "tools/app.h"
#include "tools/documentation/documentation.h"

namespace {

bool write(const std::filesystem::path& file, const std::string& text) {
    std::ofstream stream(file, std::ios::binary);
    stream << text;
    stream.close();
    if (!stream) std::cerr << "orvel_documentation: can't write " << file.string() << '\n';
    return !stream.fail();
}

}  // namespace

int main(int argc, char** argv) {
    using namespace orvel::tools;
    if (argc != 2) {
        std::cerr << "usage: orvel_documentation FOLDER\n";
        return wrongUsage;
    }
    const std::filesystem::path folder = argv[1];
    Session session{{std::cin, std::cout, std::cerr}};
    const auto app = makeApp(session);
    const bool isWritten =
        write(folder / "orvel.1", manualPage(*app)) && write(folder / "orvel.bash", bashCompletion(*app)) &&
        write(folder / "_orvel", zshCompletion(*app)) && write(folder / "orvel.fish", fishCompletion(*app));
    return isWritten ? done : failed;
}
