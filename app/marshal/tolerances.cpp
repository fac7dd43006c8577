// SPDX-License-Identifier: LicenseRef-ORVALD
#include "marshal/tolerances.h"

#include "kex/point.h"
#include "kexdata/configuration.h"

namespace KEX {
namespace {

constexpr double kUnsetAngle = 1e-6;
constexpr double kUnsetFabrication = 0.001;

double setting(const CKexDataKey& key, double unset)
{
    double value = unset;
    cfg_get(key, value);
    return value;
}

} // namespace

double lengthTolerance() { return CKexPoint3d::tol; }

// A key is made once: a function that asks for its tolerance is called often.
double angleTolerance()
{
    static const CKexDataKey key(KT("_RNDA"));
    return setting(key, kUnsetAngle);
}

double fabricationTolerance()
{
    static const CKexDataKey key(KT("_RNDF"));
    return setting(key, kUnsetFabrication);
}

} // namespace KEX
