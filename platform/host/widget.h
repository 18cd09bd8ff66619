// How a program declares its widgets to the host: kind, names, sizes, the provider of entries, and an entry's view.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/foundation/platform.h"
#include "platform/host/timeline.h"
#include "platform/ui/localized.h"
#include "platform/ui/view.h"

namespace orvel {

/// An entry as the host sees it: when it is due, and its view, which is built at each call.
struct HostedEntry {
    Date date;
    std::function<View(const Platform&)> view;
};

/// One widget's declaration. The provider's and the entry's own types are behind it.
struct WidgetConfiguration {
    std::string kind;
    LocalizedStringKey displayName{""};
    LocalizedStringKey description{""};
    std::vector<WidgetFamily> supportedFamilies;

    std::function<HostedEntry(const TimelineProviderContext&, const Platform&)> placeholder;
    std::function<HostedEntry(const TimelineProviderContext&, const Platform&)> snapshot;
    std::function<Timeline<HostedEntry>(const TimelineProviderContext&, const Platform&)> timeline;
};

/// Binds a kind to its provider and to the closure that builds the view of one entry; both are kept by value.
template <class Provider, class Content>
class StaticConfiguration {
public:
    StaticConfiguration(std::string kind, Provider provider, Content content) {
        using Entry = decltype(provider.placeholder(TimelineProviderContext{}, Platform::system()));
        const auto hosted = [content](Entry entry) -> HostedEntry {
            const Date date = entry.date;
            return {date,
                    [content, entry = std::move(entry)](const Platform& platform) { return content(entry, platform); }};
        };
        configuration_.kind = std::move(kind);
        configuration_.placeholder = [=](const TimelineProviderContext& context, const Platform& platform) {
            return hosted(provider.placeholder(context, platform));
        };
        configuration_.snapshot = [=](const TimelineProviderContext& context, const Platform& platform) {
            std::optional<HostedEntry> answer;
            provider.getSnapshot(
                context, [&](Entry entry) { answer = hosted(std::move(entry)); }, platform);
            return *std::move(answer);
        };
        configuration_.timeline = [=](const TimelineProviderContext& context, const Platform& platform) {
            std::optional<Timeline<HostedEntry>> answer;
            const auto completion = [&](Timeline<Entry> timeline) {
                answer.emplace(Timeline<HostedEntry>{{}, timeline.policy});
                for (Entry& entry : timeline.entries) answer->entries.push_back(hosted(std::move(entry)));
            };
            provider.getTimeline(context, completion, platform);
            return *std::move(answer);
        };
    }

    StaticConfiguration& configurationDisplayName(LocalizedStringKey name) {
        configuration_.displayName = std::move(name);
        return *this;
    }
    StaticConfiguration& description(LocalizedStringKey text) {
        configuration_.description = std::move(text);
        return *this;
    }
    StaticConfiguration& supportedFamilies(std::vector<WidgetFamily> families) {
        configuration_.supportedFamilies = std::move(families);
        return *this;
    }

    operator WidgetConfiguration() const { return configuration_; }

private:
    WidgetConfiguration configuration_;
};

}  // namespace orvel
