#include "widget/orvel_widget.h"

#include "model/store_files.h"
#include "views/entry_view.h"

namespace orvel {
namespace {

// A near-black with a faint blue cast, the same for every design, family and appearance.
constexpr Color background{22 / 255.0, 22 / 255.0, 25 / 255.0, 1.0};

}  // namespace

WidgetConfiguration OrvelWidget::body() const {
    return StaticConfiguration(kind_, Provider(), content)
        .configurationDisplayName(LocalizedStringKey("Orvel"))
        .description(LocalizedStringKey("A minimal widget you designed with Orvel."))
        .supportedFamilies({WidgetFamily::systemSmall, WidgetFamily::systemMedium});
}

View OrvelWidget::content(const WidgetEntry& entry, const Platform& platform) {
    return OrvelWidgetEntryView(entry.spec)
        .body(platform)
        .containerBackground(background, ContainerBackgroundPlacement::widget);
}

ExtensionInfo OrvelWidgetBundle::info() {
    return {.program = "orvel-widget", .watchedFolder = [](const Platform& platform) {
                return StoreFiles::list(platform).parent_path().string();
            }};
}

}  // namespace orvel
