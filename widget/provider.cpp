#include "widget/provider.h"

#include "model/widget_store.h"

namespace orvel {
namespace {

constexpr double reloadInterval = 3600.0;  // seconds

WidgetEntry currentEntry(const Platform& platform) {
    const Date now = platform.clock.now();
    auto specs = WidgetStore::load(platform);
    if (specs.empty()) return {now, std::nullopt};
    return {now, std::move(specs.front())};
}

}  // namespace

WidgetEntry Provider::placeholder(const TimelineProviderContext&, const Platform& platform) const {
    return currentEntry(platform);
}

void Provider::getSnapshot(const TimelineProviderContext&, FunctionRef<void(WidgetEntry)> completion,
                           const Platform& platform) const {
    completion(currentEntry(platform));
}

void Provider::getTimeline(const TimelineProviderContext&, FunctionRef<void(Timeline<WidgetEntry>)> completion,
                           const Platform& platform) const {
    std::vector<WidgetEntry> entries;
    entries.push_back(currentEntry(platform));
    const Date reload = platform.clock.now().addingTimeInterval(reloadInterval);
    completion({std::move(entries), TimelineReloadPolicy::after(reload)});
}

}  // namespace orvel
