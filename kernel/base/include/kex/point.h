// SPDX-License-Identifier: LicenseRef-ORVALD
// Points and vectors in space, and lists of points. Coordinates are doubles in drawing units.
#pragma once

#include "kex/array.h"
#include "kex/export.h"

#include <cmath>

/// A direction with a length.
class CKexVector3d
{
public:
    double x = 0.0, y = 0.0, z = 0.0;

    CKexVector3d() = default;
    constexpr CKexVector3d(double dx, double dy, double dz = 0.0) : x(dx), y(dy), z(dz) {}
    /// X, Y, Z one after the other, as the host's points.
    const double* asArray() const { return reinterpret_cast<const double*>(this); }

    double length() const { return std::sqrt(dot(*this)); }
    /// Length of the projection onto the XY plane.
    double lengthXY() const { return std::sqrt(x * x + y * y); }
    double dot(const CKexVector3d& v) const { return x * v.x + y * v.y + z * v.z; }
    CKexVector3d cross(const CKexVector3d& v) const
    {
        return {y * v.z - z * v.y, z * v.x - x * v.z, x * v.y - y * v.x};
    }
    /// The unit vector of the same direction; the null vector stays what it is.
    CKexVector3d normal() const
    {
        const double size = length();
        return size == 0.0 ? *this : CKexVector3d(x / size, y / size, z / size);
    }
    /// A quarter turn counter-clockwise in the XY plane; Z becomes 0.
    CKexVector3d perpXY() const { return {-y, x, 0.0}; }

    CKexVector3d operator-() const { return {-x, -y, -z}; }
    CKexVector3d operator+(const CKexVector3d& v) const { return {x + v.x, y + v.y, z + v.z}; }
    CKexVector3d operator-(const CKexVector3d& v) const { return {x - v.x, y - v.y, z - v.z}; }
    CKexVector3d operator*(double factor) const { return {x * factor, y * factor, z * factor}; }
    /// Equal to the last bit but for the sign of 0.
    friend bool operator==(const CKexVector3d&, const CKexVector3d&) = default;
};

class CKexPoint3d
{
public:
    double x = 0.0, y = 0.0, z = 0.0;

    CKexPoint3d() = default;
    constexpr CKexPoint3d(double px, double py, double pz = 0.0) : x(px), y(py), z(pz) {}
    explicit CKexPoint3d(const double* xyz) : x(xyz[0]), y(xyz[1]), z(xyz[2]) {}
    /// X, Y, Z one after the other, as the host's points.
    const double* asArray() const { return reinterpret_cast<const double*>(this); }

    KEX_BASE_API static const CKexPoint3d kOrigin;
    /// Length within which two points count as one, in drawing units; 0.0001 until the
    /// configuration sets it.
    KEX_BASE_API static double tol;

    CKexVector3d operator-(const CKexPoint3d& p) const { return {x - p.x, y - p.y, z - p.z}; }
    CKexPoint3d operator+(const CKexVector3d& v) const { return {x + v.x, y + v.y, z + v.z}; }
    CKexPoint3d operator-(const CKexVector3d& v) const { return {x - v.x, y - v.y, z - v.z}; }
    CKexVector3d asVector() const { return {x, y, z}; }
    double distanceTo(const CKexPoint3d& p) const { return (*this - p).length(); }
    bool isEqualTo(const CKexPoint3d& p, double tolLength = tol) const
    {
        return distanceTo(p) <= tolLength;
    }
    /// Equal to the last bit but for the sign of 0.
    friend bool operator==(const CKexPoint3d&, const CKexPoint3d&) = default;
};

// The host's point is three doubles in a row; asArray relies on it.
static_assert(sizeof(CKexPoint3d) == 3 * sizeof(double));
static_assert(sizeof(CKexVector3d) == 3 * sizeof(double));

class CKexPoint3dArray : public CKexArrayTempl<CKexPoint3d>
{
public:
    using CKexArrayTempl::CKexArrayTempl;
};
