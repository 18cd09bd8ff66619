#include "platform/symbols/contours.h"

#include <algorithm>

namespace orvel {
namespace {

using Segment = SymbolOutline::Segment;
using Verb = SymbolOutline::Verb;

int pointCount(Verb verb) {
    return verb == Verb::cubic ? 3 : verb == Verb::quadratic ? 2 : 1;
}

Point endPoint(const Segment& segment) {
    return segment.points[pointCount(segment.verb) - 1];
}

// The point between two, by de Casteljau's construction of a curve.
Point between(Point a, Point b, double t) {
    return {a.x + (b.x - a.x) * t, a.y + (b.y - a.y) * t};
}

Point onCurve(Point from, const Segment& segment, double t) {
    Point points[4] = {from, segment.points[0], segment.points[1], segment.points[2]};
    for (int count = pointCount(segment.verb); count > 0; --count)
        for (int i = 0; i < count; ++i) points[i] = between(points[i], points[i + 1], t);
    return points[0];
}

bool isInside(Point point, const Polygon& polygon) {
    bool inside = false;
    Point a = polygon.back();
    for (const Point& b : polygon) {
        const bool crosses = (a.y > point.y) != (b.y > point.y);
        if (crosses && point.x < a.x + (b.x - a.x) * (point.y - a.y) / (b.y - a.y)) inside = !inside;
        a = b;
    }
    return inside;
}

Turn turn(const Polygon& polygon) {
    double twiceArea = 0;
    Point from = polygon.back();
    for (const Point& to : polygon) {
        twiceArea += from.x * to.y - to.x * from.y;
        from = to;
    }
    return twiceArea > 0 ? Turn::clockwise : Turn::counterclockwise;
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

}  // namespace

std::vector<Contour> contours(const SymbolOutline& outline) {
    std::vector<Contour> result;
    for (const Segment& segment : outline.segments) {
        if (segment.verb == Verb::move) result.emplace_back();
        result.back().push_back(segment);
    }
    return result;
}

Polygon flattened(const Contour& contour) {
    constexpr int lines = 16;  // for a curve; a quarter of a circle bends by less than a thousandth between them
    Polygon result;
    for (const Segment& segment : contour) {
        const bool curved = pointCount(segment.verb) > 1;
        const Point from = result.empty() ? Point{} : result.back();
        for (int i = 1; curved && i < lines; ++i)
            result.push_back(onCurve(from, segment, static_cast<double>(i) / lines));
        result.push_back(endPoint(segment));
    }
    return result;
}

Contour contour(const Polygon& polygon) {
    Contour result;
    for (const Point& point : polygon) result.push_back({result.empty() ? Verb::move : Verb::line, {point}});
    return result;
}

int windings(const Polygon& polygon, Point point) {
    int count = 0;
    Point a = polygon.back();
    for (const Point& b : polygon) {
        const double side = (b.x - a.x) * (point.y - a.y) - (b.y - a.y) * (point.x - a.x);
        if (a.y <= point.y && b.y > point.y && side > 0) ++count;
        if (a.y > point.y && b.y <= point.y && side < 0) --count;
        a = b;
    }
    return count;
}

SymbolOutline running(const SymbolOutline& outline, Turn areas) {
    const std::vector<Contour> parts = contours(outline);
    std::vector<Polygon> polygons;
    for (const Contour& part : parts) polygons.push_back(flattened(part));

    SymbolOutline result;
    for (std::size_t i = 0; i < parts.size(); ++i) {
        bool isHole = false;
        for (std::size_t j = 0; j < parts.size(); ++j)
            if (j != i && isInside(polygons[i].front(), polygons[j])) isHole = !isHole;
        const bool isRight = (turn(polygons[i]) == areas) != isHole;
        const Contour part = isRight ? parts[i] : reversed(parts[i]);
        result.segments.insert(result.segments.end(), part.begin(), part.end());
    }
    return result;
}

}  // namespace orvel
