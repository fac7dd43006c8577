// SPDX-License-Identifier: LicenseRef-ORVALD
#include "geometry_peers.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace peers {
namespace {

constexpr double kPi = std::numbers::pi;

P operator-(const P& a, const P& b) { return {a.x - b.x, a.y - b.y, a.z - b.z}; }
double cross(const P& a, const P& b) { return a.x * b.y - a.y * b.x; }
double dot(const P& a, const P& b) { return a.x * b.x + a.y * b.y; }
double dot3(const P& a, const P& b) { return dot(a, b) + a.z * b.z; }
double length(const P& a) { return std::sqrt(dot(a, a)); }

bool onArc(const P& c, double a1, double a2, const P& p)
{
    const double at = std::atan2(p.y - c.y, p.x - c.x);
    return angle(at - a1) <= angle(a2 - a1);
}

} // namespace

double angle(double a)
{
    const double turned = std::fmod(a, 2 * kPi);
    return turned < 0 ? turned + 2 * kPi : turned;
}

double difference(double a1, double a2)
{
    const double turn = angle(a2 - a1);
    return turn > kPi ? turn - 2 * kPi : turn;
}

int octant(double a) { return static_cast<int>(angle(a) / (kPi / 4)) % 8 + 1; }

double triangle(double a, double b, double c)
{
    return std::acos(std::clamp((a * a + b * b - c * c) / (2 * a * b), -1.0, 1.0));
}

double rounded(double x, double step) { return std::round(x / step) * step; }

double turn(const P& a, const P& b, const P& c)
{
    const P u = b - a, v = c - b;
    return std::atan2(cross(u, v), dot(u, v));
}

bool circle(const P& a, const P& b, const P& c, P& centre)
{
    const P u = b - a, v = c - a;
    const double d = 2 * cross(u, v);
    if (std::abs(d) < 1e-12) return false;
    const double uu = dot(u, u), vv = dot(v, v);
    centre = {a.x + (v.y * uu - u.y * vv) / d, a.y + (u.x * vv - v.x * uu) / d, a.z};
    return true;
}

bool bulge(const P& a, const P& b, const P& c, double& bulge)
{
    bulge = std::tan(turn(a, b, c) / 2);
    return std::isfinite(bulge);
}

double bulgeOfRadius(double r, const P& a, const P& b)
{
    return std::tan(std::asin(std::min(1.0, length(b - a) / (2 * r))) / 2);
}

Two circleLine(const P& c, double r, const P& a, const P& b)
{
    const P d = b - a, f = a - c;
    const double qa = dot(d, d), qb = 2 * dot(f, d), qc = dot(f, f) - r * r;
    const double disc = qb * qb - 4 * qa * qc;
    if (disc < 0) return {{}, 0};
    const double root = std::sqrt(disc), t1 = (-qb - root) / (2 * qa), t2 = (-qb + root) / (2 * qa);
    return {{{a.x + d.x * t1, a.y + d.y * t1, c.z}, {a.x + d.x * t2, a.y + d.y * t2, c.z}}, 2};
}

Two circles(const P& c1, double r1, const P& c2, double r2)
{
    const P w = c2 - c1;
    const double d = length(w);
    if (d > r1 + r2 || d < std::abs(r1 - r2) || d == 0) return {{}, 0};
    const double a = (d * d + r1 * r1 - r2 * r2) / (2 * d),
                 h = std::sqrt(std::max(0.0, r1 * r1 - a * a));
    const double x = c1.x + w.x * a / d, y = c1.y + w.y * a / d, ox = -w.y * h / d,
                 oy = w.x * h / d;
    return {{{x + ox, y + oy, c1.z}, {x - ox, y - oy, c1.z}}, 2};
}

Two arcs(const P& c1, double r1, double a1, double a2, const P& c2, double r2, double a3, double a4)
{
    const Two all = circles(c1, r1, c2, r2);
    Two some{{}, 0};
    for (int i = 0; i < all.count; ++i) {
        if (onArc(c1, a1, a2, all.at[i]) && onArc(c2, a3, a4, all.at[i]))
            some.at[some.count++] = all.at[i];
    }
    return some;
}

bool lines(const P& a, const P& b, const P& c, const P& d, P& at)
{
    const P u = b - a, v = d - c;
    const double det = cross(u, v);
    if (std::abs(det) < 1e-12) return false;
    const double t = cross(c - a, v) / det;
    at = {a.x + u.x * t, a.y + u.y * t, a.z + u.z * t};
    return true;
}

P foot(const P& p, const P& a, const P& b)
{
    const P u = b - a;
    const double t = dot3(p - a, u) / dot3(u, u);
    return {a.x + u.x * t, a.y + u.y * t, a.z + u.z * t};
}

double distance(const P& p, const P& a, const P& b)
{
    const P u = b - a, v = p - a;
    const P n{u.y * v.z - u.z * v.y, u.z * v.x - u.x * v.z, cross(u, v)};
    return std::sqrt(dot3(n, n) / dot3(u, u));
}

Two contacts(const P& p, const P& c, double r)
{
    const P w = c - p;
    const double d2 = dot(w, w);
    if (d2 < r * r) return {{}, 0};
    const double k = r * r / d2, s = r * std::sqrt(d2 - r * r) / d2;
    return {{{c.x - w.x * k - w.y * s, c.y - w.y * k + w.x * s, c.z},
             {c.x - w.x * k + w.y * s, c.y - w.y * k - w.x * s, c.z}},
            2};
}

double ellipseRadius(double a, double b, double w)
{
    const double u = b * std::cos(w), v = a * std::sin(w);
    return a * b / std::sqrt(u * u + v * v);
}

double springing(double w, double h)
{
    const double s = w / 2, d = std::sqrt(s * s + h * h);
    return d * (d - s + h) / (2 * s);
}

double turned(const P& a, const P& b)
{
    const P n{a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, cross(a, b)};
    return std::atan2(std::sqrt(dot3(n, n)), dot3(a, b));
}

} // namespace peers
