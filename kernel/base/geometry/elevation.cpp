// SPDX-License-Identifier: LicenseRef-ORVALD
#include "kex/elevation.h"

#include "kex/direction.h"

namespace KEX {
namespace {

/// A view by what is right and up on its sheet.
struct View
{
    ACHAR letter;
    CKexVector3d right, up;
};
constexpr View kViews[] = {
    {KT('V'), {1, 0, 0}, {0, 0, 1}},  {KT('H'), {-1, 0, 0}, {0, 0, 1}},
    {KT('L'), {0, -1, 0}, {0, 0, 1}}, {KT('R'), {0, 1, 0}, {0, 0, 1}},
    {KT('D'), {1, 0, 0}, {0, 1, 0}},  {KT('U'), {1, 0, 0}, {0, -1, 0}},
};

CKexMatrix3d sheet(const CKexVector3d& right, const CKexVector3d& up, const CKexPoint3d& origin)
{
    const CKexVector3d rows[] = {right, up, right.cross(up)};
    CKexMatrix3d m;
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 3; ++column) m(row, column) = rows[row].asArray()[column];
        m(row, 3) = 0.0 - rows[row].dot(origin.asVector());
    }
    return m;
}

} // namespace

std::optional<CKexMatrix3d> g_elev_mtx(TextView view, const CKexPoint3d& origin)
{
    for (const View& one : kViews) {
        if (view == TextView(&one.letter, 1)) return sheet(one.right, one.up, origin);
    }
    return std::nullopt;
}

CKexMatrix3d g_elev_mtx(double looking, const CKexPoint3d& origin)
{
    const CKexVector3d ahead = directionOf(looking);
    return sheet({ahead.y, -ahead.x, 0.0}, {0.0, 0.0, 1.0}, origin);
}

ACHAR g_elev_view(const CKexMatrix3d& matrix, double tolAngle)
{
    for (const View& one : kViews) {
        const CKexMatrix3d own = sheet(one.right, one.up, CKexPoint3d());
        bool same = true;
        for (int cell = 0; cell < 9; ++cell) {
            const double off = matrix(cell / 3, cell % 3) - own(cell / 3, cell % 3);
            same = same && std::abs(off) <= tolAngle;
        }
        if (same) return one.letter;
    }
    return 0;
}

} // namespace KEX
