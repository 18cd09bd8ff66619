#include "model/widget_store.h"

#include <utility>

#include "model/store_files.h"
#include "platform/foundation/unicode.h"

namespace orvel::WidgetStore {

std::filesystem::path dir(const Platform& platform) {
    return StoreFiles::folder(platform);
}

std::vector<WidgetSpec> load(const Platform& platform) {
    auto specs = StoreFiles::readList(platform);
    if (!specs) return {};
    return *std::move(specs);
}

void save(const std::vector<WidgetSpec>& specs, const Platform& platform) {
    (void)StoreFiles::writeList(specs, platform);
}

std::vector<WidgetSpec> add(WidgetSpec spec, const Platform& platform) {
    auto specs = adding(std::move(spec), load(platform));
    save(specs, platform);
    return specs;
}

void remove(std::string_view id, const Platform& platform) {
    save(removing(id, load(platform)), platform);
}

void setPending(const std::optional<WidgetSpec>& spec, const Platform& platform) {
    (void)StoreFiles::replacePending(spec, platform);
}

std::optional<WidgetSpec> pending(const Platform& platform) {
    auto spec = StoreFiles::readPending(platform);
    if (!spec) return std::nullopt;
    return *std::move(spec);
}

std::vector<WidgetSpec> adding(WidgetSpec spec, std::vector<WidgetSpec> specs) {
    specs = removing(spec.id, std::move(specs));
    specs.insert(specs.begin(), std::move(spec));
    return specs;
}

std::vector<WidgetSpec> removing(std::string_view id, std::vector<WidgetSpec> specs) {
    std::erase_if(specs, [&](const WidgetSpec& spec) { return unicode::canonicallyEquivalent(spec.id, id); });
    return specs;
}

}  // namespace orvel::WidgetStore
