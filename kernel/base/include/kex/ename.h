// SPDX-License-Identifier: LicenseRef-ORVALD
// Names of drawing objects and selection sets, as the host gives them out.
#pragma once

#include "hostapi/types.h"
#include "kex/array.h"

#include <cstdint>

namespace KEX {

/// Name of an object or of a selection set; does not own what it names.
class CAdsName
{
public:
    CAdsName() = default;
    explicit CAdsName(const std::int32_t* name) : words_{name[0], name[1]} {}
    bool isNull() const { return words_[0] == 0 && words_[1] == 0; }
    /// The two words, as the host's functions take them.
    const ads_name& asName() const { return words_; }
    ads_name& asName() { return words_; }
    friend bool operator==(const CAdsName& a, const CAdsName& b)
    {
        return a.words_[0] == b.words_[0] && a.words_[1] == b.words_[1];
    }

private:
    ads_name words_ = {0, 0};
};

} // namespace KEX

/// Name of a drawing object.
class CKexEname : public KEX::CAdsName
{
public:
    using CAdsName::CAdsName;
};

class CKexEnameArray : public CKexArrayTempl<CKexEname>
{
public:
    using CKexArrayTempl::CKexArrayTempl;
};
