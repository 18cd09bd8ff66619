#include "feeds/templates.h"

#include <algorithm>

#include "platform/foundation/installation.h"

namespace orvel {
namespace {

std::vector<std::string> parts(std::string_view text, char between) {
    std::vector<std::string> result;
    for (std::size_t start = 0; start < text.size();) {
        const std::size_t end = std::min(text.find(between, start), text.size());
        result.emplace_back(text.substr(start, end - start));
        start = end + 1;
    }
    return result;
}

// Beside the program where it is built.
std::filesystem::path script(const FeedTemplate& source) {
    std::error_code code;
    const auto beside = installedPrograms() / "feed-templates" / source.name;
    return std::filesystem::exists(beside, code) ? beside : installedData() / "orvel" / "feeds" / source.name;
}

}  // namespace

const FeedTemplate* findFeedTemplate(std::string_view name) {
    const auto found = std::ranges::find(feedTemplates, name, &FeedTemplate::name);
    return found == feedTemplates.end() ? nullptr : &*found;
}

std::size_t neededArguments(const FeedTemplate& source) {
    const auto wanted = parts(source.arguments, ' ');
    return static_cast<std::size_t>(
        std::ranges::count_if(wanted, [](const std::string& word) { return !word.starts_with('['); }));
}

Feed feedFrom(const FeedTemplate& source, const std::vector<std::string>& arguments) {
    Feed feed{.name = std::string(source.name), .design = {}, .command = {script(source)}};
    feed.every = *everyText(std::string(source.every));
    feed.first = parts(source.first, ';');
    feed.whenOnline = source.whenOnline;
    feed.pausesOnBattery = source.pausesOnBattery;
    feed.command.insert(feed.command.end(), arguments.begin(), arguments.end());
    return feed;
}

}  // namespace orvel
