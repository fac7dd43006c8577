// SPDX-License-Identifier: LicenseRef-ORVALD
// Points, boxes and maps as the host's classes take them. Lengths in drawing units.
#pragma once

/// Three coordinates in a row.
struct AcGePoint3d
{
    double x = 0.0, y = 0.0, z = 0.0;
};

/// An affine map; points are columns, the translation is the last column, the last row 0 0 0 1.
struct AcGeMatrix3d
{
    double entry[4][4] = {{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}};
};

/// An upright box.
class AcDbExtents
{
public:
    AcDbExtents() = default;
    AcDbExtents(const AcGePoint3d& low, const AcGePoint3d& high) : low_(low), high_(high) {}
    const AcGePoint3d& minPoint() const { return low_; }
    const AcGePoint3d& maxPoint() const { return high_; }

private:
    AcGePoint3d low_, high_;
};
