// SPDX-License-Identifier: LicenseRef-ORVALD
// Maps of space.
#include "kex/matrix.h"

const CKexPoint3d CKexPoint3d::kOrigin(0.0, 0.0, 0.0);
double CKexPoint3d::tol = 0.0001;

CKexMatrix3d CKexMatrix3d::rotation(double angle, const CKexVector3d& axis,
                                    const CKexPoint3d& centre)
{
    const CKexVector3d n = axis.normal();
    if (n == CKexVector3d()) return CKexMatrix3d();
    // Rodrigues' formula, column by column: v cos + (n × v) sin + n (n·v)(1 - cos).
    const double c = std::cos(angle);
    const double s = std::sin(angle);
    const auto turned = [&](const CKexVector3d& v) {
        return v * c + n.cross(v) * s + n * (n.dot(v) * (1.0 - c));
    };
    const CKexMatrix3d turn =
        coordSystem(CKexPoint3d(), turned({1, 0, 0}), turned({0, 1, 0}), turned({0, 0, 1}));
    return translation(centre.asVector() - turn * centre.asVector()) * turn;
}

CKexMatrix3d CKexMatrix3d::operator*(const CKexMatrix3d& second) const
{
    CKexMatrix3d product;
    for (int row = 0; row < 3; ++row) {
        const double* a = cells_[row];
        for (int column = 0; column < 4; ++column) {
            product.cells_[row][column] =
                a[0] * second.cells_[0][column] + a[1] * second.cells_[1][column] +
                a[2] * second.cells_[2][column] + a[3] * second.cells_[3][column];
        }
    }
    return product;
}

double CKexMatrix3d::det() const
{
    const auto row = [&](int i) { return CKexVector3d(cells_[i][0], cells_[i][1], cells_[i][2]); };
    return row(0).dot(row(1).cross(row(2)));
}

std::optional<CKexMatrix3d> CKexMatrix3d::inverse() const
{
    const double d = det();
    if (d == 0.0 || !std::isfinite(d)) return std::nullopt;
    const auto row = [&](int i) { return CKexVector3d(cells_[i][0], cells_[i][1], cells_[i][2]); };
    // The columns of the inverse are the cross products of the rows, over the determinant.
    const double k = 1.0 / d;
    CKexMatrix3d result = coordSystem(CKexPoint3d(), row(1).cross(row(2)) * k,
                                      row(2).cross(row(0)) * k, row(0).cross(row(1)) * k);
    const CKexVector3d back = result * CKexVector3d(cells_[0][3], cells_[1][3], cells_[2][3]);
    return translation(-back) * result;
}
