#include "authoring/sample_designs.h"

namespace orvel {

WidgetSpec::Fields sampleDesign(WidgetKind kind) {
    using enum WidgetKind;
    switch (kind) {
        case metric:
            return {.title = "Active users",
                    .kind = kind,
                    .accentHex = "#0A84FF",
                    .symbol = "person.2.fill",
                    .primary = "42",
                    .secondary = "12 more than last week"};
        case progress:
            return {
                .title = "Reading goal", .kind = kind, .accentHex = "#30D158", .symbol = "book.fill", .progress = 0.38};
        case list:
            return {.title = "Groceries",
                    .kind = kind,
                    .accentHex = "#FF9F0A",
                    .symbol = "cart",
                    .items = std::vector<std::string>{"Oat milk", "Tomatoes", "Crème fraîche", "Sourdough bread",
                                                      "Dark chocolate"}};
        case note:
            return {.title = "Note to self",
                    .kind = kind,
                    .accentHex = "#FFD60A",
                    .symbol = "quote.bubble",
                    .primary = "Less, but better",
                    .secondary = "every day"};
        case countdown:
            return {.title = "To the release",
                    .kind = kind,
                    .accentHex = "#FF375F",
                    .symbol = "flag.fill",
                    .secondary = "code freeze a week before",
                    .targetISO8601 = "2026-01-13T18:00:00Z"};
    }
    return {.title = "", .kind = kind};
}

}  // namespace orvel
