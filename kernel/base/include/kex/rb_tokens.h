// SPDX-License-Identifier: LicenseRef-ORVALD
// RbTokens: reads a chain value by value, the same way whichever form its dotted pairs have.
#pragma once

#include "kex/resbuf_chain.h"

#include <vector>

namespace KEX {

/// Walks over a chain, which must outlive it. A dot in the middle of a list is passed over and its
/// list ends with endDotted, as in the closing form.
class KEX_BASE_API RbTokens
{
public:
    enum class Token
    {
        value,     // node() holds it
        begin,     // of a list
        end,       // of a list
        endDotted, // of a list whose last value is its tail
        none       // the chain is over
    };

    explicit RbTokens(const resbuf* chain);
    /// False when the brackets do not come out even; then there are no tokens.
    bool isEven() const { return even_; }
    Token token() const;
    /// The node of the token, null at the end.
    const resbuf* node() const { return node_; }
    void next();

private:
    bool isMiddleDot() const;

    const resbuf* node_;
    std::vector<bool> middle_; // of the dots in chain order: it stands in the middle
    std::size_t dot_ = 0;      // dots passed
    std::vector<bool> dotted_; // of the open lists: a dot was passed
    bool even_ = true;
};

} // namespace KEX
