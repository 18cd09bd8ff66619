#include "authoring/keep_beside.h"

#include <algorithm>
#include <charconv>
#include <optional>

#include "model/store_files.h"
#include "model/widget_spec_json.h"
#include "platform/foundation/iso8601.h"
#include "platform/language/sentence.h"

namespace orvel {
namespace {

using std::filesystem::path;

std::string_view word(Kept why) {
    return why == Kept::invalid ? ".invalid-" : ".replaced-";
}

std::string compactTime(Date now) {
    std::string text = iso8601::format(now);
    std::erase_if(text, [](char c) { return c == '-' || c == ':'; });
    return text;
}

Failure failure(const path& file, const FileFailure& failure) {
    return {file.string() + ": " + failure.message()};
}

struct Copy {
    std::string time;
    int number = 1;
    path file;
};

// What a name behind "widgets.json" says: ".invalid-20260131T090000Z-2".
std::optional<Copy> copyNamed(std::string_view ending) {
    for (const Kept why : {Kept::invalid, Kept::replaced}) {
        if (!ending.starts_with(word(why))) continue;
        const std::string_view text = ending.substr(word(why).size());
        Copy copy{.time = std::string(text.substr(0, text.find('-'))), .file = {}};
        if (copy.time.size() == text.size()) return copy;
        const char* const end = text.data() + text.size();
        const auto [parsed, error] = std::from_chars(text.data() + copy.time.size() + 1, end, copy.number);
        if (error == std::errc{} && parsed == end) return copy;
    }
    return std::nullopt;
}

}  // namespace

Outcome<std::string> keepBeside(const path& file, Kept why, const Platform& platform) {
    const auto bytes = platform.files.read(file);
    if (!bytes) return failure(file, bytes.failure());
    const std::string base = file.string() + std::string(word(why)) + compactTime(platform.clock.now());
    for (int number = 1; number < 1000; ++number) {
        const std::string name = number == 1 ? base : base + "-" + std::to_string(number);
        const auto taken = platform.files.read(name);
        if (taken || taken.failure().code != std::errc::no_such_file_or_directory) continue;
        const auto kept = platform.files.replace(name, *bytes, NewFile::ownerOnly);
        if (!kept) return failure(name, kept.failure());
        if (!kept->unsynced) return name;
        (void)platform.files.remove(name);
        return failure(name, *kept->unsynced);
    }
    return Failure{base + ": " + sentence("this name and the next are taken")};
}

Outcome<std::vector<path>> keptBeside(const path& file, const Platform& platform) {
    const auto names = platform.files.names(file.parent_path());
    if (!names) return failure(file.parent_path(), names.failure());
    const std::string beginning = file.filename().string();
    std::vector<Copy> copies;
    for (const std::string& name : *names) {
        if (!name.starts_with(beginning)) continue;
        auto copy = copyNamed(std::string_view(name).substr(beginning.size()));
        if (!copy) continue;
        copy->file = file.parent_path() / name;
        copies.push_back(*std::move(copy));
    }
    std::ranges::stable_sort(
        copies, [](const Copy& a, const Copy& b) { return std::pair(a.time, a.number) > std::pair(b.time, b.number); });
    std::vector<path> files;
    for (Copy& copy : copies) files.push_back(std::move(copy.file));
    return files;
}

Outcome<BroughtBack> bringBack(const path& copy, const Platform& platform) {
    const auto bytes = platform.files.read(copy);
    if (!bytes) return failure(copy, bytes.failure());
    const path list = StoreFiles::list(platform);
    const auto now = platform.files.read(list);
    if (!now && now.failure().code != std::errc::no_such_file_or_directory) return failure(list, now.failure());
    if (now && *now == *bytes) return BroughtBack{.wroteAnything = false};

    BroughtBack done;
    const auto specs = WidgetSpecJSON::decodeList(now ? *now : "[]");
    if (!specs || !specs->empty()) {
        auto kept = keepBeside(list, specs ? Kept::replaced : Kept::invalid, platform);
        if (!kept) return kept.failure();
        done.keptAs = *std::move(kept);
    }
    const auto replaced = platform.files.replace(list, *bytes);
    if (!replaced) {
        if (done.keptAs) (void)platform.files.remove(*done.keptAs);
        return failure(list, replaced.failure());
    }
    if (replaced->unsynced) done.mayBeLost = failure(list, *replaced->unsynced).reason;
    return done;
}

}  // namespace orvel
