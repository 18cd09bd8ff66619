// One widget design: a plain record, identified by `id`. Every field may be read and written; only the constructor
// normalises. The table in widget_fields.h has a row for each field.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "model/widget_kind.h"
#include "platform/foundation/date.h"
#include "platform/foundation/platform.h"

namespace orvel {

struct WidgetSpec {
    using Kind = WidgetKind;

    static constexpr auto allCases = allWidgetKinds;

    /// The constructor's arguments, in field order. `title` and `kind` must be given; an absent `id` becomes a fresh
    /// random UUID and an absent `createdAt` the current instant.
    struct Fields {
        std::optional<std::string> id = {};
        std::string title;
        Kind kind;
        std::string accentHex = "#3D2A9A";
        std::string symbol = "square.grid.2x2";
        std::optional<std::string> primary = {};
        std::optional<std::string> secondary = {};
        std::optional<std::vector<std::string>> items = {};
        std::optional<double> progress = {};
        std::optional<std::string> targetISO8601 = {};
        std::optional<Date> createdAt = {};
    };

    /// Keeps at most the first 5 `items` and limits `progress` to [0, 1] (not-a-number becomes 0). Everything else is
    /// stored as given.
    explicit WidgetSpec(Fields fields, const Platform& platform = Platform::system());

    std::string id;
    std::string title;
    Kind kind;
    std::string accentHex;  ///< such as "#3D2A9A"; any text
    std::string symbol;     ///< a name of the system's symbol set; any text
    std::optional<std::string> primary;
    std::optional<std::string> secondary;
    std::optional<std::vector<std::string>> items;
    std::optional<double> progress;  ///< 0 to 1 when set through the constructor
    std::optional<std::string> targetISO8601;
    Date createdAt;
};

/// Whether all fields are equal; texts are compared by canonical equivalence, numbers as numbers.
bool operator==(const WidgetSpec& a, const WidgetSpec& b);

}  // namespace orvel
