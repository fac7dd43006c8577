// SPDX-License-Identifier: LicenseRef-ORVALD
#include "hostapi/objects.h"

#include <unordered_map>

/// By the value of the old id.
struct AcDbIdMapping::Pairs
{
    std::unordered_map<std::uint64_t, AcDbIdPair> byKey;
};

AcDbIdMapping::AcDbIdMapping() : pairs_(std::make_unique<Pairs>()) {}
AcDbIdMapping::~AcDbIdMapping() = default;

bool AcDbIdMapping::compute(AcDbIdPair& pair) const
{
    const auto found = pairs_->byKey.find(pair.key().asOldId());
    if (found == pairs_->byKey.end()) return false;
    pair = found->second;
    return true;
}

bool AcDbIdMapping::assign(const AcDbIdPair& pair)
{
    if (pair.key().isNull()) return false;
    pairs_->byKey.insert_or_assign(pair.key().asOldId(), pair);
    return true;
}

int AcDbIdMapping::count() const { return static_cast<int>(pairs_->byKey.size()); }
