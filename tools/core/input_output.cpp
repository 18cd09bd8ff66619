#include "tools/core/input_output.h"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "platform/foundation/unicode.h"
#include "platform/language/sentence.h"

namespace orvel::tools {
namespace {

std::string readAll(std::istream& stream) {
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

}  // namespace

Outcome<std::string> readInput(const std::string& name, Console& console) {
    if (name == "-") {
        errno = 0;
        std::string text = readAll(console.in);
        const int why = errno;
        if (text.empty() && (why == EISDIR || why == EBADF || why == EIO))
            return Failure{displayName(name) + ": " + sentence("can't read: {0}", std::strerror(why))};
        return text;
    }
    if (std::error_code code; std::filesystem::is_directory(name, code))
        return Failure{name + ": " + sentence("can't read: {0}", std::strerror(EISDIR))};
    errno = 0;
    std::ifstream file(name, std::ios::binary);
    if (!file) return Failure{name + ": " + sentence("can't open: {0}", std::strerror(errno))};
    std::string text = readAll(file);
    if (file.bad()) return Failure{name + ": " + sentence("can't read: {0}", std::strerror(errno))};
    return text;
}

Outcome<Done> writeOutput(const std::string& name, std::string_view bytes, Files& files, Console& console) {
    if (name == "-") {
        console.out.write(bytes.data(), static_cast<std::streamsize>(bytes.size())).flush();
        return Done{};
    }
    const auto replaced = files.replace(name, bytes);
    if (!replaced) return Failure{name + ": " + replaced.failure().message()};
    if (replaced->unsynced) return doneForNow(name + ": " + replaced->unsynced->message());
    return Done{};
}

Outcome<Done> printJson(const std::optional<std::string>& json, const char* what, Console& console) {
    if (!json)
        return Failure{
            sentence("{0} can't be written as JSON: a text isn't UTF-8, or a number isn't finite", sentence(what))};
    console.out << unicode::escapingForJson(*json) << '\n' << std::flush;
    return Done{};
}

Outcome<Done> printAfterwards(std::string_view line, Console& console) try {
    console.out << unicode::onOneLine(line) << '\n' << std::flush;
    return Done{};
} catch (const std::ios_base::failure&) {
    const int why = errno;
    console.out.exceptions(std::ios::goodbit);  // the failure is reported once
    if (why == EPIPE) return Done{};
    return Failure{sentence("the change is made, but standard output can't be written: {0}", std::strerror(why)),
                   Failure::Cause::afterwards};
}

std::string displayName(const std::string& name) {
    return name == "-" ? sentence("standard input") : name;
}

}  // namespace orvel::tools
