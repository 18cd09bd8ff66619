#include "tools/design/design.h"

#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <vector>

#include "platform/foundation/installation.h"

namespace orvel::tools {
namespace {

// Beside the command where it is built, and apart from the programs that people call where it is installed.
std::filesystem::path designerProgram() {
    const auto programs = installedPrograms();
    const auto beside = programs / "orvel-designer";
    std::error_code code;
    if (std::filesystem::exists(beside, code)) return beside;
    return programs.parent_path() / "libexec" / "orvel" / "orvel-designer";
}

}  // namespace

Outcome<Done> design(const DesignChoices& choices, const Platform&, Console& console) {
    const std::string program = designerProgram();
    std::vector<std::string> words{program};
    if (choices.printsAddress) words.emplace_back("--no-browser");
    if (choices.port) words.insert(words.end(), {"--port", std::to_string(*choices.port)});
    if (choices.reference) words.push_back(*choices.reference);
    std::vector<char*> pointers;
    for (std::string& word : words) pointers.push_back(word.data());
    pointers.push_back(nullptr);
    console.out.flush();
    ::execv(program.c_str(), pointers.data());
    return Failure{program + ": can't start the designer: " + std::strerror(errno)};
}

}  // namespace orvel::tools
