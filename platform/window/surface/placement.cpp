#include "platform/window/surface/placement.h"

#include <algorithm>

namespace orvel {
namespace {

int along(int start, int room, int length, int towards, int margin) {
    if (towards < 0) return start + margin;
    if (towards > 0) return start + room - length - margin;
    return start + (room - length) / 2;
}

}  // namespace

PixelRect placed(PixelRect box, const PixelRect& area, Anchor anchor, int marginXPx, int marginYPx) {
    box.x = along(area.x, area.width, box.width, anchor.horizontal, marginXPx);
    box.y = along(area.y, area.height, box.height, anchor.vertical, marginYPx);
    return box;
}

PixelRect intersection(const PixelRect& a, const PixelRect& b) {
    const int left = std::max(a.x, b.x);
    const int top = std::max(a.y, b.y);
    const int right = std::min(a.x + a.width, b.x + b.width);
    const int bottom = std::min(a.y + a.height, b.y + b.height);
    return {left, top, std::max(right - left, 0), std::max(bottom - top, 0)};
}

}  // namespace orvel
