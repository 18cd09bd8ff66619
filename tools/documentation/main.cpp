// Writes the manual pages and the completions into a folder: orvel_documentation DOCUMENTS FOLDER. Run while building.
#include <CLI/CLI.hpp>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>

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

std::string read(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

}  // namespace

int main(int argc, char** argv) {
    using namespace orvel::tools;
    if (argc != 3) {
        std::cerr << "usage: orvel_documentation DOCUMENTS FOLDER\n";
        return wrongUsage;
    }
    const std::string store = read(std::filesystem::path(argv[1]) / "store.md");
    const std::filesystem::path folder = argv[2];
    Session session{{std::cin, std::cout, std::cerr}};
    const auto app = makeApp(session);
    const PageTitle storePage{"orvel", 5, app->version(), "how designs are stored"};
    if (store.empty()) {
        std::cerr << "orvel_documentation: can't read " << argv[1] << "/store.md\n";
        return failed;
    }
    const bool isWritten =
        write(folder / "orvel.1", manualPage(*app)) && write(folder / "orvel.5", manualPage(storePage, store)) &&
        write(folder / "orvel.bash", bashCompletion(*app)) && write(folder / "_orvel", zshCompletion(*app)) &&
        write(folder / "orvel.fish", fishCompletion(*app));
    return isWritten ? done : failed;
}
