#include "tools/input_output.h"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace orvel::tools {
namespace {

std::string readAll(std::istream& stream) {
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

}  // namespace

Outcome<std::string> readInput(const std::string& name, Console& console) {
    if (name == "-") return readAll(console.in);
    if (std::error_code code; std::filesystem::is_directory(name, code))
        return Failure{name + ": can't read: " + std::strerror(EISDIR)};
    errno = 0;
    std::ifstream file(name, std::ios::binary);
    if (!file) return Failure{name + ": can't open: " + std::strerror(errno)};
    std::string text = readAll(file);
    if (file.bad()) return Failure{name + ": can't read: " + std::strerror(errno)};
    return text;
}

Outcome<Done> writeOutput(const std::string& name, std::string_view bytes, Files& files, Console& console) {
    if (name == "-") {
        console.out.write(bytes.data(), static_cast<std::streamsize>(bytes.size())).flush();
        if (!console.out) return Failure{"standard output: can't write"};
        return Done{};
    }
    const auto replaced = files.replace(name, bytes);
    if (!replaced) return Failure{name + ": " + replaced.failure().message()};
    return Done{};
}

std::string displayName(const std::string& name) {
    return name == "-" ? "standard input" : name;
}

}  // namespace orvel::tools
