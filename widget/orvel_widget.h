// The declaration of the one widget: its kind, its names in the gallery, its sizes and its background.
#pragma once

#include <string>
#include <vector>

#include "platform/host/widget_bundle.h"
#include "widget/provider.h"

namespace orvel {

class OrvelWidget {
public:
    const std::string& kind() const { return kind_; }
    WidgetConfiguration body() const;

    /// The view of one entry, on the widget's background. It doesn't depend on the entry's date.
    static View content(const WidgetEntry& entry, const Platform& platform);

private:
    std::string kind_ = "OrvelWidget";
};

class OrvelWidgetBundle : public WidgetBundle<OrvelWidgetBundle> {
public:
    std::vector<OrvelWidget> body() const { return {OrvelWidget()}; }

    /// Changes in the store's folder cause a request for a new timeline.
    static ExtensionInfo info();
};

}  // namespace orvel
