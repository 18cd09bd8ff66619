#include "model/store_files.h"

#include <new>
#include <utility>

#include "model/widget_store.h"

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

Result<Done, StoreFailure> write(const std::filesystem::path& file, const std::string& json, const Platform& platform) {
    const auto written = platform.files.replace(file, json);
    if (!written) return StoreFailure{file, written.failure()};
    return Done{};
}

}  // namespace

bool StoreFailure::isMissing() const {
    const auto* failure = std::get_if<FileFailure>(&reason);
    return failure && failure->code == std::errc::no_such_file_or_directory;
}

std::string StoreFailure::message() const {
    std::string why = "a progress that isn't finite, or a text that isn't valid UTF-8, can't be stored";
    if (const auto* failure = std::get_if<FileFailure>(&reason)) why = failure->message();
    if (const auto* failure = std::get_if<DecodingFailure>(&reason)) why = failure->message();
    return file.string() + ": " + why;
}

namespace StoreFiles {

std::filesystem::path list(const Platform& platform) {
    return WidgetStore::dir(platform) / "widgets.json";
}

std::filesystem::path pending(const Platform& platform) {
    return WidgetStore::dir(platform) / "widget_pending.json";
}

Result<std::vector<WidgetSpec>, StoreFailure> readList(const Platform& platform) {
    return readAs(list(platform), WidgetSpecJSON::decodeList, platform);
}

Result<Done, StoreFailure> writeList(const std::vector<WidgetSpec>& specs, const Platform& platform) {
    const auto json = WidgetSpecJSON::encodeList(specs);
    if (!json) return StoreFailure{"widgets.json", EncodingFailure{}};
    return write(list(platform), *json, platform);
}

Result<WidgetSpec, StoreFailure> readPending(const Platform& platform) {
    return readAs(pending(platform), WidgetSpecJSON::decode, platform);
}

Result<Done, StoreFailure> writePending(const WidgetSpec& spec, const Platform& platform) {
    const auto file = pending(platform);
    const auto json = WidgetSpecJSON::encode(spec);
    if (!json) return StoreFailure{file, EncodingFailure{}};
    return write(file, *json, platform);
}

Result<Done, StoreFailure> removePending(const Platform& platform) {
    const auto file = pending(platform);
    const auto removed = platform.files.remove(file);
    if (!removed) return StoreFailure{file, removed.failure()};
    return Done{};
}

}  // namespace StoreFiles
}  // namespace orvel
