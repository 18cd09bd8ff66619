#include "designer/editing/kept_base.h"

#include "authoring/history.h"
#include "model/widget_spec_json.h"

namespace orvel::designer {
namespace {

std::filesystem::path baseFile(const Platform& platform) {
    return History::file(platform).parent_path() / "edited-design.json";
}

}  // namespace

std::optional<WidgetSpec> readBase(const WidgetSpec& pending, const Platform& platform) {
    auto bytes = platform.files.read(baseFile(platform));
    if (!bytes) return std::nullopt;
    auto base = WidgetSpecJSON::decode(*std::move(bytes));
    if (!base || base->id != pending.id) return std::nullopt;
    return *std::move(base);
}

void keepBase(const std::optional<WidgetSpec>& base, const Platform& platform) {
    const auto file = baseFile(platform);
    const auto bytes = base ? WidgetSpecJSON::encode(*base) : std::nullopt;
    if (!bytes) return (void)platform.files.remove(file);
    (void)platform.files.createFolders(file.parent_path());
    (void)platform.files.replace(file, *bytes, NewFile::ownerOnly);
}

}  // namespace orvel::designer
