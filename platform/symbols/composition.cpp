#include "platform/symbols/composition.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <numbers>
#include <string>

#include "platform/symbols/clearing.h"

namespace orvel {
namespace {

struct Place {
    Point middle{0.5, 0.5};
    double size = 1;  ///< negative: mirrored
    double turn = 0;  ///< radians, clockwise
};

constexpr Place badge{{0.76, 0.76}, 0.5};
constexpr Place within{{0.5, 0.5}, 0.56};
constexpr double gap = 0.055;  // around what stands in front

std::string_view nextWord(std::string_view& text) {
    const std::string_view word = text.substr(0, text.find(' '));
    text.remove_prefix(std::min(word.size() + 1, text.size()));
    return word;
}

// "50,46,50" or "50,46,50,90"; what is not a number stays as it is.
Place placeOf(std::string_view text, char sign) {
    if (text.empty() && sign == '+') return badge;
    if (text.empty() && sign == '*') return within;
    double numbers[4] = {50, 50, 100, 0};
    const char* next = text.data();
    const char* const end = next + text.size();
    for (double& number : numbers) {
        int value = 0;
        const auto [after, error] = std::from_chars(next, end, value);
        if (error != std::errc()) break;
        number = value;
        next = after == end ? end : after + 1;
    }
    return {{numbers[0] / 100, numbers[1] / 100}, numbers[2] / 100, numbers[3] * std::numbers::pi / 180};
}

SymbolOutline at(const Place& place, SymbolOutline outline) {
    const double cosine = std::cos(place.turn), sine = std::sin(place.turn), height = std::abs(place.size);
    for (auto& segment : outline.segments)
        for (Point& point : segment.points) {
            const double x = (point.x - 0.5) * place.size, y = (point.y - 0.5) * height;
            point = {place.middle.x + x * cosine - y * sine, place.middle.y + x * sine + y * cosine};
        }
    return outline;
}

}  // namespace

std::optional<SymbolOutline> composed(std::string_view text, SymbolWeight weight, const Parts& parts) {
    SymbolOutline result;
    bool isFirst = true;
    for (char sign = '|'; !text.empty();) {
        const std::string_view word = nextWord(text);
        const std::string_view name = word.substr(0, word.find('@'));
        const std::string_view place = word.substr(std::min(name.size() + 1, word.size()));
        auto part = weight == SymbolWeight::filled && sign != '*' ? parts(std::string(name) + ".fill") : std::nullopt;
        if (!part && (!isFirst || weight == SymbolWeight::outlined)) part = parts(name);
        if (!part) return std::nullopt;
        isFirst = false;
        // Where two areas that run opposite ways lie one on the other, nothing is filled.
        const SymbolOutline layer =
            running(at(placeOf(place, sign), *part), sign == '*' ? Turn::counterclockwise : Turn::clockwise);
        if (sign == '+' || sign == '-') result = cleared(result, areaAround(layer, sign == '+' ? gap : 0));
        if (sign != '-') result.segments.insert(result.segments.end(), layer.segments.begin(), layer.segments.end());
        const std::string_view next = nextWord(text);
        if (next.empty()) return result;
        sign = next.front();
    }
    return std::nullopt;
}

}  // namespace orvel
