// Both kinds of corner are three Bezier curves, so that a continuous corner that has too little room
// can be blended smoothly towards the circular one.
#include "simulator/rendering/outline.hpp"

#include <algorithm>
#include <array>

namespace simulator::rendering {

namespace {

// A corner in units of its radius: (along, across) runs from the corner along the first edge and
// into the rectangle. The second half is the first one mirrored.
struct CornerShape {
    double reach;         // where the first edge ends
    double firstControl;  // on the edge
    Point secondControl;  // before the first joint
    Point joint;          // between the edge curve and the middle curve
    Point middleControl;  // of the middle curve, mirrored for its other end
};

// The circle is cut at the angle of the continuous corner's joint (about 21.6 degrees).
constexpr CornerShape circular{
    1.0, 0.8740, {0.7486, 0.0240}, {0.63149, 0.07040}, {0.37480, 0.17210}};
constexpr CornerShape continuousShape{
    cornerReach, 1.08849, {0.86841, 0.0}, {0.63149, 0.07491}, {0.37282, 0.16906}};

double mix(double from, double to, double part) { return from + (to - from) * part; }
Point mix(Point from, Point to, double part) {
    return {mix(from.x, to.x, part), mix(from.y, to.y, part)};
}

CornerShape shapeFor(double radius, double room, bool continuous) {
    if (!continuous) return circular;
    const double reach = std::min(continuousShape.reach, room / radius);
    const double part = (reach - circular.reach) / (continuousShape.reach - circular.reach);
    return {reach, mix(circular.firstControl, continuousShape.firstControl, part),
            mix(circular.secondControl, continuousShape.secondControl, part),
            mix(circular.joint, continuousShape.joint, part),
            mix(circular.middleControl, continuousShape.middleControl, part)};
}

// One corner, walked from the incoming edge to the outgoing one.
struct Corner {
    Point corner;
    Point incoming;  // unit vector from the corner back along the incoming edge
    Point outgoing;  // unit vector from the corner along the outgoing edge
};

void addCorner(cairo_t* context, const Corner& corner, const CornerShape& shape, double radius) {
    const auto at = [&](double along, double across) {
        return Point{
            corner.corner.x + radius * (corner.incoming.x * along + corner.outgoing.x * across),
            corner.corner.y + radius * (corner.incoming.y * along + corner.outgoing.y * across)};
    };
    const auto curve = [&](Point one, Point two, Point end) {
        cairo_curve_to(context, one.x, one.y, two.x, two.y, end.x, end.y);
    };
    const Point start = at(shape.reach, 0);
    cairo_line_to(context, start.x, start.y);
    curve(at(shape.firstControl, 0), at(shape.secondControl.x, shape.secondControl.y),
          at(shape.joint.x, shape.joint.y));
    curve(at(shape.middleControl.x, shape.middleControl.y),
          at(shape.middleControl.y, shape.middleControl.x), at(shape.joint.y, shape.joint.x));
    curve(at(shape.secondControl.y, shape.secondControl.x), at(0, shape.firstControl),
          at(0, shape.reach));
}

}  // namespace

void addOutline(cairo_t* context, Rect rect, double radius, bool continuous) {
    const auto [x, y] = rect.origin;
    const auto [width, height] = rect.size;
    const double room = std::min(width, height) / 2;
    radius = std::min(radius, room);
    if (!(radius > 0)) {
        cairo_rectangle(context, x, y, width, height);
        return;
    }
    const CornerShape shape = shapeFor(radius, room, continuous);
    const std::array<Corner, 4> corners{{
        {{x + width, y}, {-1, 0}, {0, 1}},
        {{x + width, y + height}, {0, -1}, {-1, 0}},
        {{x, y + height}, {1, 0}, {0, -1}},
        {{x, y}, {0, 1}, {1, 0}},
    }};
    cairo_new_sub_path(context);
    for (const Corner& corner : corners) addCorner(context, corner, shape, radius);
    cairo_close_path(context);
}

}  // namespace simulator::rendering
