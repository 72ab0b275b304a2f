// A thin drawing tool for vector art: paths in units of the caller's grid, filled or stroked with the
// current colour, round ends and joints.
#pragma once

#include <cairo.h>

#include <initializer_list>

#include "simulator/rendering/outline.hpp"
#include "simulator/rendering/surface.hpp"

namespace simulator::rendering {

class Pen {
  public:
    explicit Pen(cairo_t* context) : context_(context) {
        cairo_set_line_cap(context, CAIRO_LINE_CAP_ROUND);
        cairo_set_line_join(context, CAIRO_LINE_JOIN_ROUND);
    }

    cairo_t* context() const { return context_; }
    Pen& colour(Colour ink) {
        setSource(context_, ink);
        return *this;
    }
    Pen& polygon(std::initializer_list<Point> points) {
        lines(points);
        cairo_close_path(context_);
        return *this;
    }
    Pen& lines(std::initializer_list<Point> points) {
        cairo_new_sub_path(context_);
        for (const Point& point : points) cairo_line_to(context_, point.x, point.y);
        return *this;
    }
    Pen& circle(double x, double y, double radius) { return arc(x, y, radius, 0, 360); }
    // Degrees, clockwise from the right.
    Pen& arc(double x, double y, double radius, double from, double to) {
        constexpr double degree = 3.14159265358979323846 / 180;
        cairo_new_sub_path(context_);
        cairo_arc(context_, x, y, radius, from * degree, to * degree);
        return *this;
    }
    Pen& box(double x, double y, double width, double height, double radius = 0) {
        addOutline(context_, {{x, y}, {width, height}}, radius, false);
        return *this;
    }
    Pen& move(double x, double y) {
        cairo_move_to(context_, x, y);
        return *this;
    }
    Pen& line(double x, double y) {
        cairo_line_to(context_, x, y);
        return *this;
    }
    Pen& curve(double x1, double y1, double x2, double y2, double x, double y) {
        cairo_curve_to(context_, x1, y1, x2, y2, x, y);
        return *this;
    }
    Pen& close() {
        cairo_close_path(context_);
        return *this;
    }
    Pen& fill() {
        cairo_fill(context_);
        return *this;
    }
    // Overlapping parts of the path become holes.
    Pen& fillEvenOdd() {
        cairo_set_fill_rule(context_, CAIRO_FILL_RULE_EVEN_ODD);
        cairo_fill(context_);
        cairo_set_fill_rule(context_, CAIRO_FILL_RULE_WINDING);
        return *this;
    }
    Pen& stroke(double width) {
        cairo_set_line_width(context_, width);
        cairo_stroke(context_);
        return *this;
    }

  private:
    cairo_t* context_;
};

}  // namespace simulator::rendering
