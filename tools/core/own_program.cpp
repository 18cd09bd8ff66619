#include "tools/core/own_program.h"

#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "platform/foundation/installation.h"
#include "platform/language/sentence.h"

namespace orvel::tools {

std::filesystem::path ownProgram(const std::string& name) {
    const auto programs = installedPrograms();
    const auto beside = programs / name;
    std::error_code code;
    if (std::filesystem::exists(beside, code)) return beside;
    return programs.parent_path() / "libexec" / "orvel" / name;
}

Failure become(const std::string& program, std::string_view cantStart, std::vector<std::string> arguments,
               Console& console) {
    const std::string path = ownProgram(program);
    arguments.insert(arguments.begin(), path);
    std::vector<char*> pointers;
    for (std::string& word : arguments) pointers.push_back(word.data());
    pointers.push_back(nullptr);
    console.out.flush();
    ::execv(path.c_str(), pointers.data());
    return Failure{path + ": " + sentence(cantStart, std::strerror(errno))};
}

}  // namespace orvel::tools
