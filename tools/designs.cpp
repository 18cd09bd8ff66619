#include "tools/designs.h"

#include <algorithm>
#include <charconv>

#include "model/store_files.h"
#include "model/widget_store.h"
#include "platform/foundation/iso8601.h"
#include "platform/foundation/unicode.h"
#include "tools/terminal.h"

namespace orvel::tools {
namespace {

std::string compactTime(Date now) {
    std::string text = iso8601::format(now);
    std::erase_if(text, [](char c) { return c == '-' || c == ':'; });
    return text;
}

// A copy under a name that isn't taken.
Outcome<std::string> keepBeside(const std::filesystem::path& file, const Platform& platform) {
    const auto bytes = platform.files.read(file);
    if (!bytes) return Failure{file.string() + ": " + bytes.failure().message()};
    const std::string base = file.string() + ".invalid-" + compactTime(platform.clock.now());
    for (int number = 1; number < 1000; ++number) {
        const std::string name = number == 1 ? base : base + "-" + std::to_string(number);
        const auto taken = platform.files.read(name);
        if (taken || taken.failure().code != std::errc::no_such_file_or_directory) continue;
        const auto kept = platform.files.replace(name, *bytes);
        if (!kept) return Failure{name + ": " + kept.failure().message()};
        return name;
    }
    return Failure{base + ": this name and the next are taken"};
}

bool beginsWith(std::string_view id, std::string_view reference) {
    const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; };
    return id.size() >= reference.size() && std::equal(reference.begin(), reference.end(), id.begin(),
                                                       [&](char a, char b) { return lower(a) == lower(b); });
}

Outcome<std::vector<std::size_t>> atPosition(const std::vector<WidgetSpec>& specs, const std::string& reference) {
    std::size_t position = 0;
    const char* const end = reference.data() + reference.size();
    const auto [parsed, error] = std::from_chars(reference.data() + 1, end, position);
    if (error != std::errc{} || parsed != end || position == 0 || position > specs.size())
        return Failure{printable(reference) + ": there are " + std::to_string(specs.size()) + " designs"};
    return std::vector{position - 1};
}

}  // namespace

Outcome<std::vector<WidgetSpec>> readDesigns(const Platform& platform) {
    auto specs = StoreFiles::readList(platform);
    if (specs) return *std::move(specs);
    if (specs.failure().isMissing()) return std::vector<WidgetSpec>();
    return Failure{specs.failure().message()};
}

Outcome<OpenDesigns> openDesigns(const Platform& platform, Console& console) {
    const auto folder = WidgetStore::dir(platform);
    auto lock = platform.files.lock(folder);
    if (!lock) return Failure{folder.string() + ": " + lock.failure().message()};

    OpenDesigns designs{*std::move(lock), {}};
    auto specs = StoreFiles::readList(platform);
    if (specs) {
        designs.specs = *std::move(specs);
    } else if (!specs.failure().isMissing()) {
        const auto kept = keepBeside(specs.failure().file, platform);
        if (!kept) return kept.failure();
        console.err << "orvel: " << specs.failure().message() << "; kept as " << *kept << '\n';
    }
    return designs;
}

Outcome<Done> saveDesigns(const std::vector<WidgetSpec>& specs, const Platform& platform) {
    const auto written = StoreFiles::writeList(specs, platform);
    if (!written) return Failure{written.failure().message()};
    return Done{};
}

Outcome<std::vector<std::size_t>> findAll(const std::vector<WidgetSpec>& specs, const std::string& reference) {
    std::vector<std::size_t> same;
    std::vector<std::size_t> beginning;
    for (std::size_t i = 0; i < specs.size(); ++i) {
        if (unicode::canonicallyEquivalent(specs[i].id, reference)) same.push_back(i);
        if (beginsWith(specs[i].id, reference)) beginning.push_back(i);
    }
    if (!same.empty()) return same;
    if (reference.starts_with('@')) return atPosition(specs, reference);
    if (beginning.size() == 1 && !reference.empty()) return beginning;
    if (beginning.empty()) return Failure{printable(reference) + ": no design has that id"};
    return Failure{'"' + printable(reference) + "\" is the beginning of " + std::to_string(beginning.size()) + " ids"};
}

Outcome<std::size_t> findOne(const std::vector<WidgetSpec>& specs, const std::string& reference) {
    const auto found = findAll(specs, reference);
    if (!found) return found.failure();
    if (found->size() > 1)
        return Failure{printable(reference) + ": " + std::to_string(found->size()) +
                       " designs have that id; name one by its position, such as @" +
                       std::to_string(found->front() + 1)};
    return found->front();
}

}  // namespace orvel::tools
