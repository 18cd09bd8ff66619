#include "tools/store/restore.h"

#include <charconv>
#include <filesystem>
#include <vector>

#include "authoring/keep_beside.h"
#include "model/store_files.h"
#include "model/widget_spec_json.h"
#include "platform/language/sentence.h"
#include "tools/core/input_output.h"
#include "tools/core/terminal.h"
#include "tools/store/operations.h"

namespace orvel::tools {
namespace {

using std::filesystem::path;

std::string whatLoads(const path& file, const Platform& platform) {
    auto bytes = platform.files.read(file);
    if (!bytes) return bytes.failure().message();
    const auto specs = WidgetSpecJSON::decodeList(*std::move(bytes));
    if (!specs) return sentence("doesn't load: {0}", specs.failure().message());
    return counted("{0} design", "{0} designs", specs->size());
}

void print(const std::vector<path>& copies, const Platform& platform, Console& console) {
    std::vector<std::vector<std::string>> rows;
    for (std::size_t i = 0; i < copies.size(); ++i)
        rows.push_back({std::to_string(i + 1), copies[i].filename().string(), whatLoads(copies[i], platform)});
    if (!rows.empty()) printColumns(rows, console);
}

std::optional<path> chosen(const std::string& choice, const std::vector<path>& copies) {
    for (const path& copy : copies)
        if (choice == copy || choice == copy.filename()) return copy;
    std::size_t number = 0;
    const char* const end = choice.data() + choice.size();
    const auto [parsed, error] = std::from_chars(choice.data(), end, number);
    if (error != std::errc{} || parsed != end || number == 0 || number > copies.size()) return std::nullopt;
    return copies[number - 1];
}

}  // namespace

Outcome<Done> restore(const std::optional<std::string>& choice, const Platform& platform, Console& console) {
    const path list = StoreFiles::list(platform);
    std::unique_ptr<FolderLock> lock;
    if (choice) {
        auto taken = lockStore(platform, patience(console));
        if (!taken) return taken.failure();
        lock = *std::move(taken);
    }
    const auto copies = keptBeside(list, platform);
    if (!copies) return copies.failure();
    if (!choice) {
        print(*copies, platform, console);
        return Done{};
    }
    const auto copy = chosen(*choice, *copies);
    if (!copy)
        return Failure{*choice + ": " +
                       counted("nothing is kept by that name or number ({0} file is kept; orvel restore "
                               "lists them)",
                               "nothing is kept by that name or number ({0} files are kept; orvel "
                               "restore lists them)",
                               copies->size())};
    const auto done = bringBack(*copy, platform);
    if (!done) return done.failure();
    const std::string name = copy->filename().string();
    std::string line = done->wroteAnything ? sentence("{0} is back: {1}", name, whatLoads(list, platform))
                                           : sentence("{0} is in place already: {1}", name, whatLoads(list, platform));
    if (done->keptAs)
        line = clauses(line, sentence("what was there is kept as {0}", path(*done->keptAs).filename().string()));
    const auto printed = printAfterwards(line, console);
    if (done->mayBeLost) return doneForNow(*done->mayBeLost);
    return printed;
}

}  // namespace orvel::tools
