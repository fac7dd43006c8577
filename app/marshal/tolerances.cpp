// SPDX-License-Identifier: LicenseRef-ORVALD
#include "marshal/tolerances.h"

#include "kex/point.h"
#include "kexdata/configuration.h"

namespace KEX {
namespace {

constexpr double kUnsetAngle = 1e-6;
constexpr double kUnsetFabrication = 0.001;

double setting(const ACHAR* key, double unset)
{
    double value = unset;
    cfg_get(key, value);
    return value;
}

} // namespace

double lengthTolerance() { return CKexPoint3d::tol; }

double angleTolerance() { return setting(KT("_RNDA"), kUnsetAngle); }

double fabricationTolerance() { return setting(KT("_RNDF"), kUnsetFabrication); }

} // namespace KEX
