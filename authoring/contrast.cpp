#include "authoring/contrast.h"

#include <algorithm>
#include <cmath>

namespace orvel {
namespace {

double luminance(const Color& color) {
    const auto linear = [](double component) {
        return component <= 0.04045 ? component / 12.92 : std::pow((component + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.red) + 0.7152 * linear(color.green) + 0.0722 * linear(color.blue);
}

}  // namespace

double contrast(const Color& a, const Color& b) {
    const auto [darker, lighter] = std::minmax({luminance(a), luminance(b)});
    return (lighter + 0.05) / (darker + 0.05);
}

Color lightened(const Color& color, const Color& ground, double wanted) {
    constexpr int steps = 100;
    for (int step = 0; step < steps; ++step) {
        const double white = static_cast<double>(step) / steps;
        const auto mixed = [white](double component) { return component + (1 - component) * white; };
        const Color candidate{mixed(color.red), mixed(color.green), mixed(color.blue), 1};
        if (contrast(candidate, ground) >= wanted) return candidate;
    }
    return {1, 1, 1, 1};
}

}  // namespace orvel
