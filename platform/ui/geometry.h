// Sizes, points and boxes in points (1/72 inch at scale 1), x to the right and y down. Boxes are half-open.
#pragma once

#include <limits>
#include <optional>

namespace orvel {

inline constexpr double infinity = std::numeric_limits<double>::infinity();

struct Point {
    double x = 0;
    double y = 0;
    friend bool operator==(const Point&, const Point&) = default;
};

struct Size {
    double width = 0;
    double height = 0;
    friend bool operator==(const Size&, const Size&) = default;
};

struct Rect {
    Point origin;
    Size size;
    Point center() const { return {origin.x + size.width / 2, origin.y + size.height / 2}; }
    friend bool operator==(const Rect&, const Rect&) = default;
};

/// A point as fractions of a box.
struct UnitPoint {
    double x = 0;
    double y = 0;
    static constexpr UnitPoint center() { return {0.5, 0.5}; }
    friend bool operator==(const UnitPoint&, const UnitPoint&) = default;
};

struct Angle {
    double degrees = 0;  ///< clockwise on screen
    friend bool operator==(const Angle&, const Angle&) = default;
};

/// The size that a parent proposes to a child. Absent asks for the ideal size, zero for the minimum, infinity for the
/// maximum.
struct ProposedSize {
    std::optional<double> width;
    std::optional<double> height;
    friend bool operator==(const ProposedSize&, const ProposedSize&) = default;
};

enum class HorizontalAlignment { leading, center, trailing };
enum class VerticalAlignment { top, center, bottom };

struct Alignment {
    HorizontalAlignment horizontal = HorizontalAlignment::center;
    VerticalAlignment vertical = VerticalAlignment::center;

    static const Alignment center;
    static const Alignment topLeading;
    friend bool operator==(const Alignment&, const Alignment&) = default;
};

inline constexpr Alignment Alignment::center{HorizontalAlignment::center, VerticalAlignment::center};
inline constexpr Alignment Alignment::topLeading{HorizontalAlignment::leading, VerticalAlignment::top};

}  // namespace orvel
