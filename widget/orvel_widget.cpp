#include "widget/orvel_widget.h"

#include "model/store_files.h"
#include "views/card_color.h"
#include "views/entry_view.h"

namespace orvel {

WidgetConfiguration OrvelWidget::body() const {
    return StaticConfiguration(kind_, Provider(), content)
        .configurationDisplayName(LocalizedStringKey("Orvel"))
        .description(LocalizedStringKey("A minimal widget you designed with Orvel."))
        .supportedFamilies({WidgetFamily::systemSmall, WidgetFamily::systemMedium});
}

View OrvelWidget::content(const WidgetEntry& entry, const Platform& platform) {
    return OrvelWidgetEntryView(entry.spec)
        .body(platform)
        .containerBackground(cardBackground, ContainerBackgroundPlacement::widget);
}

ExtensionInfo OrvelWidgetBundle::info() {
    return {.program = "orvel-widget",
            .watchedFolder = [](const Platform& platform) { return StoreFiles::folder(platform).string(); },
            .trouble = [](const Platform& platform) -> std::optional<std::string> {
                const auto specs = StoreFiles::readList(platform);
                if (specs || specs.failure().isMissing()) return std::nullopt;
                return specs.failure().message();
            }};
}

}  // namespace orvel
