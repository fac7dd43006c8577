// SPDX-License-Identifier: LicenseRef-ORVALD
#include "kex/basket_handle.h"

#include "kex/intersection.h"

namespace KEX {

double g_korb_3m(double w, double h)
{
    if (!(w > 0.0) || !(h > 0.0)) return 0.0;
    const double s = 0.5 * w, d = std::sqrt(s * s + h * h);
    return d * h * (d + s + h) / (w * (d + s)); // d - s = h²/(d + s)
}

double g_rkorb(double w, double h, double r)
{
    const double s = 0.5 * w;
    if (!(w > 0.0) || !(h > 0.0)) return 0.0;
    if (h == s) return s; // exact: elsewhere the radius goes there by itself
    const bool fits = h < s ? r > 0.0 && r < h : r > h;
    return fits ? s + (h - s) * (h - s) / (2.0 * (h - r)) : 0.0;
}

// The same with span and rise exchanged.
double g_rkorb2(double w, double h, double crown) { return g_rkorb(2.0 * h, 0.5 * w, crown); }

std::optional<BasketHandle5> g_korb_5m(double w, double h)
{
    if (!(w > 0.0) || !(h > 0.0)) return std::nullopt;
    const double s = 0.5 * w, q = h / s, root = std::sqrt(q);
    if (!(q > 0.0) || !std::isfinite(1.0 / q)) return std::nullopt; // beyond what numbers hold
    // Centres and differences of radii, over s·(1 - q): M1 = (1 + q, 0), M3 = (0, -(1 + q)/q).
    const CKexPoint3d springing(1.0 + q, 0.0), crown(0.0, -(1.0 + q) / q);
    const double steps = (1.0 + root + q) / (1.0 + root);
    const FewPoints common = g_cci(springing, root * steps, crown, steps / q, 0.0);
    if (common.isEmpty()) return std::nullopt; // numbers beyond the finite ones
    const auto size2 = [](const CKexPoint3d& p) { return p.x * p.x + p.y * p.y; };
    const bool second = common.length() == 2 && size2(common[1]) < size2(common[0]);
    const CKexPoint3d& haunch = common[second ? 1 : 0];
    const double factor = s * (1.0 - q);
    const auto right = [factor](const CKexPoint3d& p) {
        return CKexPoint3d(p.x * factor + 0.0, p.y * factor + 0.0); // no -0.0
    };
    const auto left = [factor](const CKexPoint3d& p) {
        return CKexPoint3d(0.0 - p.x * factor, p.y * factor + 0.0);
    };
    return BasketHandle5{
        h * q,
        std::sqrt(s * h),
        s / q,
        {left(springing), left(haunch), right(crown), right(haunch), right(springing)}};
}

} // namespace KEX
