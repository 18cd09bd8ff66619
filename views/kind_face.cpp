#include "views/kind_face.h"

#include <array>

namespace orvel {
namespace {

namespace shown {

using enum WidgetField;

constexpr std::array value{accentHex, symbol, primary, title, secondary};
constexpr std::array remainingTime{accentHex, symbol, targetISO8601, title, secondary};
constexpr std::array ring{accentHex, symbol, progress, title};
constexpr std::array rows{accentHex, title, items};

}  // namespace shown
}  // namespace

KindFace face(WidgetKind kind) {
    switch (kind) {
        case WidgetKind::metric: return {CardLayout::value, shown::value};
        case WidgetKind::progress: return {CardLayout::ring, shown::ring};
        case WidgetKind::list: return {CardLayout::rows, shown::rows};
        case WidgetKind::note: return {CardLayout::value, shown::value};
        case WidgetKind::countdown: return {CardLayout::value, shown::remainingTime};
    }
    return {CardLayout::value, shown::value};
}

}  // namespace orvel
