// SPDX-License-Identifier: LicenseRef-ORVALD
// Points as lists of two or three numbers, in drawing units; angles in radians from the X axis.
#include "builtins/tables.h"

#include <cmath>

namespace orvald::lisp {

namespace {

constexpr double kTwoPi = 2.0 * 3.14159265358979323846;

// Lines whose directions differ by less than this angle (radians) have no point in common.
constexpr double kParallelSine = 1e-12;

// In 3-D, lines that pass each other nearer than this part of their length meet.
constexpr double kMeetsWithin = 1e-8;

Value pointOf(World& world, double x, double y, double z, int dimensions)
{
    if (dimensions == 2) return world.makeList({Value::real(x), Value::real(y)});
    return world.makeList({Value::real(x), Value::real(y), Value::real(z)});
}

// 3-D when both points are; else in the plane.
Value distance(World&, Args args)
{
    const Args::Point a = args.point(0);
    const Args::Point b = args.point(1);
    if (a.dimensions == 2 || b.dimensions == 2) {
        return Value::real(std::hypot(b.x - a.x, b.y - a.y));
    }
    return Value::real(std::hypot(b.x - a.x, b.y - a.y, b.z - a.z));
}

Value angle(World&, Args args)
{
    const Args::Point a = args.point(0);
    const Args::Point b = args.point(1);
    double direction = std::atan2(b.y - a.y, b.x - a.x);
    if (direction < 0.0) direction += kTwoPi;
    return Value::real(direction >= kTwoPi ? 0.0 : direction + 0.0);
}

Value polar(World& world, Args args)
{
    const Args::Point from = args.point(0);
    const double direction = args.number(1);
    const double length = args.number(2);
    return pointOf(world, from.x + length * std::cos(direction),
                   from.y + length * std::sin(direction), from.z, from.dimensions);
}

// (inters p1 p2 p3 p4 [onseg]): a fourth argument of nil lets the lines run on for ever.
Value inters(World& world, Args args)
{
    const Args::Point p[] = {args.point(0), args.point(1), args.point(2), args.point(3)};
    const bool bounded = args.size() < 5 || !args[4].isNil();
    int dimensions = 3;
    for (const Args::Point& point : p) {
        if (point.dimensions == 2) dimensions = 2;
    }
    const auto height = [&](int i) { return dimensions == 3 ? p[i].z : 0.0; };
    const double u[] = {p[1].x - p[0].x, p[1].y - p[0].y, height(1) - height(0)};
    const double v[] = {p[3].x - p[2].x, p[3].y - p[2].y, height(3) - height(2)};
    const double w[] = {p[2].x - p[0].x, p[2].y - p[0].y, height(2) - height(0)};
    const auto dot = [](const double* a, const double* b) {
        return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
    };
    const auto cross = [](const double* a, const double* b, double* c) {
        c[0] = a[1] * b[2] - a[2] * b[1];
        c[1] = a[2] * b[0] - a[0] * b[2];
        c[2] = a[0] * b[1] - a[1] * b[0];
    };
    double normal[3];
    cross(u, v, normal);
    const double size = std::sqrt(dot(normal, normal));
    const double lengths = std::sqrt(dot(u, u)) * std::sqrt(dot(v, v));
    if (!(size > kParallelSine * lengths)) return Value::nil();
    const double gap = std::fabs(dot(w, normal)) / size;
    if (gap > kMeetsWithin * (std::sqrt(dot(w, w)) + std::sqrt(lengths))) return Value::nil();
    double side[3];
    cross(w, v, side);
    const double s = dot(side, normal) / (size * size);
    cross(w, u, side);
    const double t = dot(side, normal) / (size * size);
    const auto inside = [](double along) {
        return along >= -kMeetsWithin && along <= 1.0 + kMeetsWithin;
    };
    if (bounded && !(inside(s) && inside(t))) return Value::nil();
    return pointOf(world, p[0].x + s * u[0], p[0].y + s * u[1], p[0].z + s * u[2], dimensions);
}

constexpr Builtin kTable[] = {
    {"distance", distance, 2, 2},
    {"angle", angle, 2, 2},
    {"polar", polar, 3, 3},
    {"inters", inters, 4, 5},
};

} // namespace

std::span<const Builtin> geometryBuiltins() { return kTable; }

} // namespace orvald::lisp
