#include "platform/symbols/enclosed.h"

#include <algorithm>

namespace orvel {
namespace {

using Segment = SymbolOutline::Segment;
using Verb = SymbolOutline::Verb;
using Contour = std::vector<Segment>;

int pointCount(Verb verb) {
    return verb == Verb::cubic ? 3 : verb == Verb::quadratic ? 2 : 1;
}

Point endPoint(const Segment& segment) {
    return segment.points[pointCount(segment.verb) - 1];
}

std::vector<Contour> contours(const SymbolOutline& outline) {
    std::vector<Contour> result;
    for (const Segment& segment : outline.segments) {
        if (segment.verb == Verb::move) result.emplace_back();
        result.back().push_back(segment);
    }
    return result;
}

// The polygon through all points of a contour; near enough to tell what lies in it and which way it runs.
std::vector<Point> polygon(const Contour& contour) {
    std::vector<Point> points;
    for (const Segment& segment : contour)
        points.insert(points.end(), segment.points, segment.points + pointCount(segment.verb));
    return points;
}

bool runsClockwise(const std::vector<Point>& polygon) {
    double twiceArea = 0;
    Point from = polygon.back();
    for (const Point& to : polygon) {
        twiceArea += from.x * to.y - to.x * from.y;
        from = to;
    }
    return twiceArea > 0;
}

bool isInside(Point point, const std::vector<Point>& polygon) {
    bool inside = false;
    Point a = polygon.back();
    for (const Point& b : polygon) {
        const bool crosses = (a.y > point.y) != (b.y > point.y);
        if (crosses && point.x < a.x + (b.x - a.x) * (point.y - a.y) / (b.y - a.y)) inside = !inside;
        a = b;
    }
    return inside;
}

Contour reversed(const Contour& contour) {
    Contour result{{Verb::move, {endPoint(contour.back())}}};
    for (std::size_t i = contour.size() - 1; i > 0; --i) {
        Segment segment = contour[i];
        const int controls = pointCount(segment.verb) - 1;
        std::reverse(segment.points, segment.points + controls);
        segment.points[controls] = endPoint(contour[i - 1]);
        result.push_back(segment);
    }
    return result;
}

// The areas run one way, the holes in them the other way. Fonts don't always hold to that.
SymbolOutline running(const SymbolOutline& outline, bool areasClockwise) {
    const std::vector<Contour> parts = contours(outline);
    std::vector<std::vector<Point>> polygons;
    for (const Contour& part : parts) polygons.push_back(polygon(part));

    SymbolOutline result;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        bool isHole = false;
        for (std::size_t j = 0; j < parts.size(); ++j)
            if (j != i && isInside(polygons[i].front(), polygons[j])) isHole = !isHole;
        const bool turns = runsClockwise(polygons[i]) != (areasClockwise != isHole);
        const Contour part = turns ? reversed(parts[i]) : parts[i];
        result.segments.insert(result.segments.end(), part.begin(), part.end());
    }
    return result;
}

}  // namespace

SymbolOutline enclosed(const SymbolOutline& symbol, const SymbolOutline& shape) {
    constexpr double size = 0.56;  // of the shape
    // Where two areas that run opposite ways lie one on the other, nothing is filled.
    SymbolOutline result = running(shape, true);
    SymbolOutline inner = running(symbol, false);
    for (Segment& segment : inner.segments)
        for (Point& point : segment.points) point = {0.5 + (point.x - 0.5) * size, 0.5 + (point.y - 0.5) * size};
    result.segments.insert(result.segments.end(), inner.segments.begin(), inner.segments.end());
    return result;
}

}  // namespace orvel
