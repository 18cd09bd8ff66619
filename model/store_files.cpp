#include "model/store_files.h"

#include <new>
#include <utility>

#include "platform/language/sentence.h"

namespace orvel {
namespace {

FileFailure outOfMemory() {
    return {"read", std::make_error_code(std::errc::not_enough_memory)};
}

// Reads and decodes a whole file.
template <class Decode>
auto readAs(const std::filesystem::path& file, Decode decode, const Platform& platform)
    -> Result<std::decay_t<decltype(*decode(std::string()))>, StoreFailure> try {
    auto bytes = platform.files.read(file);
    if (!bytes) return StoreFailure{file, bytes.failure()};
    auto decoded = decode(*std::move(bytes));
    if (!decoded) return StoreFailure{file, decoded.failure()};
    return *std::move(decoded);
} catch (const std::bad_alloc&) {
    return StoreFailure{file, outOfMemory()};
}

Result<Written, StoreFailure> write(const std::filesystem::path& file, const std::string& json,
                                    const Platform& platform) {
    const auto replaced = platform.files.replace(file, json);
    if (!replaced) return StoreFailure{file, replaced.failure()};
    if (replaced->unsynced) return Written{StoreFailure{file, *replaced->unsynced}};
    return Written{};
}

}  // namespace

bool StoreFailure::isMissing() const {
    const auto* failure = std::get_if<FileFailure>(&reason);
    return failure && failure->code == std::errc::no_such_file_or_directory;
}

bool StoreFailure::isInvalid() const {
    return std::holds_alternative<DecodingFailure>(reason);
}

std::string StoreFailure::message() const {
    std::string why = sentence("a progress that isn't finite, or a text that isn't valid UTF-8, can't be stored");
    if (const auto* failure = std::get_if<FileFailure>(&reason)) why = failure->message();
    if (const auto* failure = std::get_if<DecodingFailure>(&reason))
        return file.string() + ":" + failure->position.text() + ": " + failure->message();
    return file.string() + ": " + why;
}

namespace StoreFiles {

std::filesystem::path folder(const Platform& platform) {
    // The slash at the end says that it is a folder.
    const std::filesystem::path home = homeDirectory(platform.accounts);
    std::filesystem::path folder = home / "Library/Application Support/Orvel/";
    (void)platform.files.createFolders(folder);
    return folder;
}

std::filesystem::path list(const Platform& platform) {
    return folder(platform) / "widgets.json";
}

std::filesystem::path pending(const Platform& platform) {
    return folder(platform) / "widget_pending.json";
}

Result<std::vector<WidgetSpec>, StoreFailure> readList(const Platform& platform) {
    return readAs(list(platform), WidgetSpecJSON::decodeList, platform);
}

Result<Written, StoreFailure> writeList(const std::vector<WidgetSpec>& specs, const Platform& platform) {
    const auto json = WidgetSpecJSON::encodeList(specs);
    if (!json) return StoreFailure{"widgets.json", EncodingFailure{}};
    return write(list(platform), *json, platform);
}

Result<WidgetSpec, StoreFailure> readPending(const Platform& platform) {
    return readAs(pending(platform), WidgetSpecJSON::decode, platform);
}

Result<Written, StoreFailure> writePending(const WidgetSpec& spec, const Platform& platform) {
    const auto json = WidgetSpecJSON::encode(spec);
    if (!json) return StoreFailure{"widget_pending.json", EncodingFailure{}};
    return write(pending(platform), *json, platform);
}

Result<Written, StoreFailure> removePending(const Platform& platform) {
    return replacePending(std::nullopt, platform);
}

Result<Written, StoreFailure> replacePending(const std::optional<WidgetSpec>& spec, const Platform& platform) {
    const auto file = pending(platform);
    if (const auto json = spec ? WidgetSpecJSON::encode(*spec) : std::nullopt) return write(file, *json, platform);
    const auto removed = platform.files.remove(file);
    if (!removed) return StoreFailure{file, removed.failure()};
    return Written{};
}

}  // namespace StoreFiles
}  // namespace orvel
