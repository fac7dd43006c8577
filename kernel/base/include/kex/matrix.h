// SPDX-License-Identifier: LicenseRef-ORVALD
// CKexMatrix3d: an affine map of space. Points are columns, p' = M·p; the translation is the last
// column and the last row is 0 0 0 1.
#pragma once

#include "kex/point.h"

#include <optional>

class CKexMatrix3d
{
public:
    /// The unit matrix.
    CKexMatrix3d() = default;

    static CKexMatrix3d translation(const CKexVector3d& by);
    /// By `angle` radians, counter-clockwise seen against `axis`, which need not be of unit length,
    /// about the line through `centre`. A null axis gives the unit matrix.
    KEX_BASE_API static CKexMatrix3d rotation(double angle, const CKexVector3d& axis,
                                              const CKexPoint3d& centre = CKexPoint3d());
    /// Maps the origin and the axes onto these.
    static CKexMatrix3d coordSystem(const CKexPoint3d& origin, const CKexVector3d& xAxis,
                                    const CKexVector3d& yAxis, const CKexVector3d& zAxis);

    double& operator()(int row, int column)
    {
        checkPlace(row, column);
        return cells_[row][column];
    }
    double operator()(int row, int column) const
    {
        checkPlace(row, column);
        return cells_[row][column];
    }

    CKexPoint3d operator*(const CKexPoint3d& p) const;
    /// Vectors are not moved by the translation.
    CKexVector3d operator*(const CKexVector3d& v) const;
    /// First `second`, then this.
    KEX_BASE_API CKexMatrix3d operator*(const CKexMatrix3d& second) const;
    /// Of the upper left 3×3 part: negative when the map mirrors.
    KEX_BASE_API double det() const;
    /// Nothing when the map flattens space: the determinant is 0 or not finite.
    KEX_BASE_API std::optional<CKexMatrix3d> inverse() const;

    friend bool operator==(const CKexMatrix3d&, const CKexMatrix3d&) = default;

private:
    static void checkPlace(int row, int column)
    {
        KEX_ASSERT(row >= 0 && row < 4 && column >= 0 && column < 4, "a matrix is 4 by 4");
    }

    double cells_[4][4] = {{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}};
};

inline CKexMatrix3d CKexMatrix3d::coordSystem(const CKexPoint3d& origin, const CKexVector3d& xAxis,
                                              const CKexVector3d& yAxis, const CKexVector3d& zAxis)
{
    CKexMatrix3d m;
    for (int row = 0; row < 3; ++row) {
        m.cells_[row][0] = xAxis.asArray()[row];
        m.cells_[row][1] = yAxis.asArray()[row];
        m.cells_[row][2] = zAxis.asArray()[row];
        m.cells_[row][3] = origin.asArray()[row];
    }
    return m;
}

inline CKexMatrix3d CKexMatrix3d::translation(const CKexVector3d& by)
{
    return coordSystem(CKexPoint3d() + by, {1, 0, 0}, {0, 1, 0}, {0, 0, 1});
}

inline CKexVector3d CKexMatrix3d::operator*(const CKexVector3d& v) const
{
    const auto row = [&](const double* c) { return c[0] * v.x + c[1] * v.y + c[2] * v.z; };
    return {row(cells_[0]), row(cells_[1]), row(cells_[2])};
}

inline CKexPoint3d CKexMatrix3d::operator*(const CKexPoint3d& p) const
{
    return CKexPoint3d(cells_[0][3], cells_[1][3], cells_[2][3]) + *this * p.asVector();
}
