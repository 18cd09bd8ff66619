#include "platform/window/x11/shape.h"

#include <algorithm>
#include <cmath>

namespace orvel {

std::vector<PixelRect> roundedShape(int widthPx, int heightPx, double radiusPx) {
    const double radius = std::clamp(radiusPx, 0.0, std::min(widthPx, heightPx) / 2.0);
    const auto inset = [&](int row) {
        const double fromEdge = std::min(row + 0.5, heightPx - row - 0.5);
        if (fromEdge >= radius) return 0;
        const double up = radius - fromEdge;
        return static_cast<int>(std::ceil(radius - std::sqrt(radius * radius - up * up) - 0.5));
    };
    std::vector<PixelRect> rows;
    for (int row = 0; row < heightPx; ++row) {
        const int left = inset(row);
        if (!rows.empty() && rows.back().x == left)
            ++rows.back().height;
        else
            rows.push_back({left, row, widthPx - 2 * left, 1});
    }
    return rows;
}

}  // namespace orvel
