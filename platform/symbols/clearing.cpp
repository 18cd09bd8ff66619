// A part of a contour that runs through the area is replaced by a path along the area's border. Outside the area, that
// changes nothing. Inside, all points then have the same winding number, and contours around the whole area make it
// zero.
#include "platform/symbols/clearing.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <optional>

namespace orvel {
namespace {

double cross(Point origin, Point a, Point b) {
    return (a.x - origin.x) * (b.y - origin.y) - (a.y - origin.y) * (b.x - origin.x);
}

// By Andrew's monotone chain.
Polygon convexHull(Polygon points) {
    if (points.size() < 3) return {};
    std::ranges::sort(points, {}, [](const Point& p) { return std::pair(p.x, p.y); });
    Polygon hull;
    const auto add = [&](const Point& point, std::size_t first) {
        while (hull.size() >= first + 2 && cross(hull[hull.size() - 2], hull.back(), point) <= 0) hull.pop_back();
        hull.push_back(point);
    };
    for (const Point& point : points) add(point, 0);
    const std::size_t turning = hull.size() - 1;
    for (std::size_t i = points.size() - 1; i-- > 0;) add(points[i], turning);
    hull.pop_back();
    return hull;
}

struct Box {
    Point low{1e9, 1e9}, high{-1e9, -1e9};

    explicit Box(const Polygon& polygon) {
        for (const Point& p : polygon) {
            low = {std::min(low.x, p.x), std::min(low.y, p.y)};
            high = {std::max(high.x, p.x), std::max(high.y, p.y)};
        }
    }
    bool meets(const Box& other) const {
        return low.x < other.high.x && other.low.x < high.x && low.y < other.high.y && other.low.y < high.y;
    }
};

Point along(Point from, Point to, double t) {
    return {from.x + (to.x - from.x) * t, from.y + (to.y - from.y) * t};
}

// A place on the area's border, by the number of the corner before it.
struct BorderPoint {
    Point point;
    std::size_t corner;
};

class Clearing {
public:
    explicit Clearing(const Polygon& area) : area_(area) {}

    // Empty when all of it lies in the area.
    Polygon outside(const Polygon& contour) {
        result_.clear();
        entry_.reset();
        firstExit_.reset();
        Point from = contour.back();
        for (const Point& to : contour) {
            follow(from, to);
            from = to;
        }
        if (firstExit_ && entry_) goAlongBorder(*entry_, *firstExit_);
        return result_;
    }

private:
    // Adds what of a line is outside. Its start is there already.
    void follow(Point from, Point to) {
        double enters = -1, leaves = 2;  // of the line's length
        std::size_t entered = 0, left = 0;
        for (std::size_t i = 0; i < area_.size(); ++i) {
            const Point next = area_[(i + 1) % area_.size()];
            const double a = cross(area_[i], next, from), b = cross(area_[i], next, to);  // positive within
            if (a <= 0 && b <= 0) return result_.push_back(to);
            if (a <= 0 && a / (a - b) > enters) enters = a / (a - b), entered = i;
            if (b <= 0 && a / (a - b) < leaves) leaves = a / (a - b), left = i;
        }
        if (enters >= leaves) return result_.push_back(to);
        if (enters >= 0) enter({along(from, to, enters), entered});
        if (leaves <= 1) {
            leave({along(from, to, leaves), left});
            result_.push_back(to);
        }
    }

    void enter(BorderPoint entry) {
        entry_ = entry;
        result_.push_back(entry.point);
    }

    void leave(BorderPoint exit) {
        if (entry_)
            goAlongBorder(*entry_, exit);
        else
            firstExit_ = exit;
        entry_.reset();
        result_.push_back(exit.point);
    }

    // Any way will do.
    void goAlongBorder(BorderPoint from, BorderPoint to) {
        for (std::size_t i = from.corner; i < to.corner; ++i) result_.push_back(area_[i + 1]);
        for (std::size_t i = from.corner; i > to.corner; --i) result_.push_back(area_[i]);
    }

    const Polygon& area_;
    Polygon result_;
    std::optional<BorderPoint> entry_, firstExit_;
};

}  // namespace

Polygon areaAround(const SymbolOutline& outline, double gap) {
    constexpr int directions = 16;
    Polygon points;
    for (const Contour& part : contours(outline)) {
        const Polygon lines = flattened(part);
        points.insert(points.end(), lines.begin(), lines.end());
    }
    Polygon grown;
    for (const Point& corner : convexHull(std::move(points)))
        for (int i = 0; i < directions; ++i) {
            const double angle = 2 * std::numbers::pi * i / directions;
            grown.push_back({corner.x + gap * std::cos(angle), corner.y + gap * std::sin(angle)});
        }
    return convexHull(std::move(grown));
}

SymbolOutline cleared(const SymbolOutline& outline, const Polygon& area) {
    if (area.empty()) return outline;
    const Box areaBox(area);
    const Point middle = along(area.front(), area[area.size() / 2], 0.5);
    Clearing clearing(area);
    SymbolOutline result;
    const auto add = [&](const Contour& part) {
        result.segments.insert(result.segments.end(), part.begin(), part.end());
    };
    int inside = 0;
    for (const Contour& part : contours(outline)) {
        const Polygon lines = flattened(part);
        if (!Box(lines).meets(areaBox)) {
            add(part);
            continue;
        }
        const Polygon rest = clearing.outside(lines);
        if (rest.size() < 3) continue;
        add(contour(rest));
        inside += windings(rest, middle);
    }
    const Polygon backwards(area.rbegin(), area.rend());
    for (int i = 0; i < std::abs(inside); ++i) add(contour(inside > 0 ? backwards : area));
    return result;
}

}  // namespace orvel
