// SPDX-License-Identifier: LicenseRef-ORVALD
// Points, boxes and the coordinate systems of plane entities. Lengths in drawing units.
#pragma once

namespace orvald::drawing {

struct Point
{
    double x = 0.0, y = 0.0, z = 0.0;
    friend bool operator==(const Point&, const Point&) = default;
};

constexpr Point operator+(Point a, Point b) { return {a.x + b.x, a.y + b.y, a.z + b.z}; }
constexpr Point operator-(Point a, Point b) { return {a.x - b.x, a.y - b.y, a.z - b.z}; }
constexpr Point operator*(double f, Point p) { return {f * p.x, f * p.y, f * p.z}; }
constexpr double dot(Point a, Point b) { return a.x * b.x + a.y * b.y + a.z * b.z; }
constexpr Point cross(Point a, Point b)
{
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}
double length(Point v);

/// An upright box; empty until the first point is added.
class Box
{
public:
    bool empty() const { return empty_; }
    Point min() const { return min_; }
    Point max() const { return max_; }
    void add(Point p);
    void add(const Box& other);

private:
    Point min_, max_;
    bool empty_ = true;
};

/// An affine map of space: p' = x * p.x + y * p.y + z * p.z + origin.
struct Transform
{
    Point x{1.0, 0.0, 0.0}, y{0.0, 1.0, 0.0}, z{0.0, 0.0, 1.0}, origin;

    Point operator()(Point p) const { return direction(p) + origin; }
    Point direction(Point v) const { return v.x * x + v.y * y + v.z * z; }
    /// This map after `first`.
    Transform after(const Transform& first) const;
};

/// Entity coordinates to world coordinates of a plane entity with that normal (arbitrary axis
/// rule). A normal of no length counts as (0 0 1).
Transform entityToWorld(Point normal);

} // namespace orvald::drawing
