#include "tools/store/check.h"

#include <algorithm>

#include "authoring/warnings.h"
#include "model/store_files.h"
#include "platform/foundation/unicode.h"
#include "platform/language/sentence.h"
#include "tools/core/input_output.h"
#include "tools/store/list.h"

namespace orvel::tools {
namespace {

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
        // A store of that size is refused without reading it.
        const FileFailure tooLarge{"read", std::make_error_code(std::errc::file_too_large)};
        if (text->size() > Files::largest) return Failure{displayName(*file) + ": " + tooLarge.message()};
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
        console.out << sentence(noDesignsYet) << '\n';
        return Done{};
    }
    const auto& [name, text] = **source;
    const auto specs = WidgetSpecJSON::decodeList(text);
    if (!specs) return Failure{name + ":" + specs.failure().position.text() + ": " + specs.failure().message()};

    const Symbols symbols;
    auto found = unknownMembers(text);
    for (auto& warning : warnings(*specs, symbols)) found.push_back(std::move(warning));
    std::ranges::stable_sort(found, {}, &DesignWarning::index);
    for (const auto& [index, warning] : found)
        console.out << sentence("design @{0}", index + 1) << ": " << unicode::onOneLine(warning.text) << '\n';
    console.out << unicode::onOneLine(name) << ": " << counted("{0} design loads", "{0} designs load", specs->size())
                << '\n';
    return Done{};
}

}  // namespace orvel::tools
