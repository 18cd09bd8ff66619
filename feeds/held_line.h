// The line "no news since …" on a design, and the text that it replaces: kept in "orvel/feeds" below the person's state
// folder, a file for each feed, for as long as the line is shown.
#pragma once

#include <optional>
#include <string>

#include "model/widget_fields.h"
#include "platform/foundation/outcome.h"
#include "platform/foundation/platform.h"

namespace orvel {

struct HeldLine {
    Date since;                         ///< the last news
    std::string line;                   ///< what the design says meanwhile
    std::optional<std::string> former;  ///< what the design says otherwise
};

namespace HeldLines {

/// Absent when there is no such file, or it isn't understood.
std::optional<HeldLine> read(const std::string& feed, const Platform& platform);
Outcome<Done> write(const std::string& feed, const HeldLine& held, const Platform& platform);
void remove(const std::string& feed, const Platform& platform);

/// "no news since 14:02"; of another day "no news since 2026-01-31"; in the language of the cards.
std::string text(Date since, const Platform& platform);

}  // namespace HeldLines
}  // namespace orvel
