#include "tools/check.h"

#include <algorithm>

#include "model/store_files.h"
#include "tools/design_warnings.h"
#include "tools/input_output.h"

namespace orvel::tools {
namespace {

// "LINE:COLUMN" of a byte in a text.
std::string position(std::string_view text, std::size_t offset) {
    const std::string_view before = text.substr(0, offset);
    const auto line = 1 + std::count(before.begin(), before.end(), '\n');
    const std::string_view inLine = before.substr(before.rfind('\n') + 1);
    const auto continues = [](char c) { return (static_cast<unsigned char>(c) & 0xC0) == 0x80; };
    const auto column = 1 + static_cast<std::ptrdiff_t>(inLine.size()) - std::ranges::count_if(inLine, continues);
    return std::to_string(line) + ":" + std::to_string(column);
}

struct Input {
    std::string name;
    std::string text;
};

// Absent when nothing has been stored yet.
Outcome<std::optional<Input>> input(const std::optional<std::string>& file, const Platform& platform,
                                    Console& console) {
    if (file) {
        auto text = readInput(*file, console);
        if (!text) return text.failure();
        return std::optional(Input{displayName(*file), *std::move(text)});
    }
    const auto path = StoreFiles::list(platform);
    auto bytes = platform.files.read(path);
    if (bytes) return std::optional(Input{path.string(), *std::move(bytes)});
    const StoreFailure failure{path, bytes.failure()};
    if (failure.isMissing()) return std::optional<Input>();
    return Failure{failure.message()};
}

}  // namespace

Outcome<Done> check(const std::optional<std::string>& file, const Platform& platform, Console& console) {
    const auto source = input(file, platform, console);
    if (!source) return source.failure();
    if (!*source) {
        console.out << "no designs are stored yet\n";
        return Done{};
    }
    const auto& [name, text] = **source;
    const auto specs = WidgetSpecJSON::decodeList(text);
    if (!specs) return Failure{name + ":" + position(text, specs.failure().offset) + ": " + specs.failure().message()};

    const Symbols symbols;
    for (const std::string& line : warnings(*specs, symbols)) console.out << line << '\n';
    console.out << name << ": " << specs->size() << (specs->size() == 1 ? " design loads\n" : " designs load\n");
    return Done{};
}

}  // namespace orvel::tools
