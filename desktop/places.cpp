#include "desktop/places.h"

#include "authoring/keep_beside.h"
#include "desktop/places_json.h"
#include "platform/foundation/text_position.h"

namespace orvel {
namespace {

struct Unread {
    Failure failure;
    bool isOnlyUnread;  ///< the file couldn't be read, so its content may be valid
};

Result<std::vector<Place>, Unread> read(const Platform& platform) {
    const auto file = placesFile(platform);
    const auto bytes = platform.files.read(file);
    if (!bytes) {
        if (bytes.failure().code == std::errc::no_such_file_or_directory) return std::vector<Place>();
        return Unread{{file.string() + ": " + bytes.failure().message()}, true};
    }
    auto places = PlacesJSON::decode(*bytes);
    if (places) return *std::move(places);
    const auto& [reason, offset] = places.failure();
    return Unread{{file.string() + ":" + textPosition(*bytes, offset).text() + ": " + reason}, false};
}

}  // namespace

std::filesystem::path placesFile(const Platform& platform) {
    return std::filesystem::path(configurationDirectory(platform.accounts)) / "orvel" / "places.json";
}

Outcome<std::vector<Place>> readPlaces(const Platform& platform) {
    auto places = read(platform);
    if (!places) return places.failure().failure;
    return *std::move(places);
}

Outcome<std::optional<std::string>> changePlaces(const std::function<Outcome<Done>(std::vector<Place>&)>& change,
                                                 const Platform& platform) {
    const auto file = placesFile(platform);
    const auto folder = file.parent_path();
    if (const auto made = platform.files.createFolders(folder); !made)
        return Failure{folder.string() + ": " + made.failure().message()};
    const auto lock = platform.files.lock(folder);
    if (!lock) return Failure{folder.string() + ": " + lock.failure().message()};

    auto read = orvel::read(platform);
    if (!read && read.failure().isOnlyUnread) return read.failure().failure;
    std::vector<Place> places = read ? *read : std::vector<Place>();
    if (const auto changed = change(places); !changed) return changed.failure();

    std::optional<std::string> notice;
    if (!read) {
        const auto kept = keepBeside(file, Kept::invalid, platform);
        if (!kept) return kept.failure();
        notice = read.failure().failure.reason + "; kept as " + *kept;
    }
    const auto written = platform.files.replace(file, PlacesJSON::encode(places));
    if (!written) return Failure{file.string() + ": " + written.failure().message()};
    if (written->unsynced) return doneForNow(file.string() + ": " + written->unsynced->message());
    return notice;
}

}  // namespace orvel
