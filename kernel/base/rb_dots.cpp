// SPDX-License-Identifier: LicenseRef-ORVALD
// The two forms of a dotted pair in a chain. Which form a dot has shows only when it and its
// neighbours are read together; a reading is tried, and holds when every bracket finds its partner.
#include "kex/rb_tokens.h"

#include <new>
#include <optional>
#include <vector>

namespace KEX {
namespace {

/// Of the dots in chain order: it stands in the middle of its list, else it ends it.
using DotForms = std::vector<bool>;

struct Counts
{
    int begins = 0, ends = 0, dots = 0;
    bool endsTooEarly = false; // an end without a beginning, if no dot ends a list
};

Counts countMarks(const resbuf* chain)
{
    Counts counts;
    for (; chain != nullptr; chain = chain->rbnext) {
        if (chain->restype == RTLB) ++counts.begins;
        if (chain->restype == RTLE && ++counts.ends > counts.begins) counts.endsTooEarly = true;
        if (chain->restype == RTDOTE) ++counts.dots;
    }
    return counts;
}

bool isPlainValue(const resbuf* node)
{
    return node != nullptr && node->restype != RTLB && node->restype != RTLE &&
           node->restype != RTDOTE;
}

/// An open list: its values, and how many of them stand behind its dot.
struct OpenList
{
    int values = 0;
    bool dotSeen = false;
    int tails = 0;
};

/// A reading of the chain, nothing when it does not come out even. With `preferMiddle` a dot that
/// can have either form, and is followed by one value and the end of the list, stands in the
/// middle.
std::optional<DotForms> readDots(const resbuf* chain, const Counts& counts, bool preferMiddle)
{
    int closingLeft = counts.begins - counts.ends;
    int dotsLeft = counts.dots;
    if (closingLeft < 0 || closingLeft > dotsLeft) return std::nullopt;

    DotForms forms;
    std::vector<OpenList> open;
    const auto valueRead = [&] {
        if (open.empty()) return;
        ++open.back().values;
        if (open.back().dotSeen) ++open.back().tails;
    };
    const auto isMiddle = [&](const resbuf* dot) {
        if (open.back().values == 1 || closingLeft == 0) return true;
        if (closingLeft == dotsLeft || !preferMiddle) return false;
        const resbuf* next = dot->rbnext;
        return isPlainValue(next) && next->rbnext != nullptr && next->rbnext->restype == RTLE;
    };
    for (const resbuf* node = chain; node != nullptr; node = node->rbnext) {
        switch (node->restype) {
        case RTLB: open.emplace_back(); break;
        case RTLE:
            if (open.empty() || (open.back().dotSeen && open.back().tails != 1))
                return std::nullopt;
            open.pop_back();
            valueRead();
            break;
        case RTDOTE:
            if (open.empty() || open.back().values == 0 || open.back().dotSeen) return std::nullopt;
            forms.push_back(isMiddle(node));
            --dotsLeft;
            if (forms.back()) {
                open.back().dotSeen = true;
            } else {
                --closingLeft;
                open.pop_back();
                valueRead();
            }
            break;
        default: valueRead(); break;
        }
    }
    if (!open.empty()) return std::nullopt;
    return forms;
}

std::optional<DotForms> dotForms(const resbuf* chain)
{
    const Counts counts = countMarks(chain);
    if (counts.dots == 0) {
        if (counts.endsTooEarly || counts.begins != counts.ends) return std::nullopt;
        return DotForms();
    }
    std::optional<DotForms> forms = readDots(chain, counts, false);
    return forms.has_value() ? forms : readDots(chain, counts, true);
}

/// Takes the dots out of the middle and marks the ends of their lists instead.
void dotsToEnd(resbuf* chain, const DotForms& forms)
{
    std::vector<bool> dotted; // of the open lists
    std::size_t dot = 0;
    resbuf* before = nullptr;
    for (resbuf* node = chain; node != nullptr;) {
        resbuf* const next = node->rbnext;
        if (node->restype == RTDOTE && forms[dot++]) {
            dotted.back() = true;
            before->rbnext = next; // a dot never comes first
            node->rbnext = nullptr;
            acutRelRb(node);
        } else {
            if (node->restype == RTLB) dotted.push_back(false);
            if (node->restype == RTLE || node->restype == RTDOTE) {
                if (dotted.back()) node->restype = RTDOTE;
                dotted.pop_back();
            }
            before = node;
        }
        node = next;
    }
}

/// Puts a dot before the last value of every list that a dot ends.
void dotsToMiddle(resbuf* chain, const DotForms& forms)
{
    // Of the open lists, and first of the chain: the node before the last value.
    std::vector<resbuf*> beforeLast(1, nullptr);
    std::size_t dot = 0;
    resbuf* before = nullptr;
    for (resbuf* node = chain; node != nullptr; before = node, node = node->rbnext) {
        if (node->restype == RTDOTE) {
            if (forms[dot++]) continue;
            resbuf* mark = acutNewRb(RTDOTE);
            if (mark == nullptr) throw std::bad_alloc();
            mark->rbnext = std::exchange(beforeLast.back()->rbnext, mark);
            node->restype = RTLE;
        }
        if (node->restype == RTLE) {
            beforeLast.pop_back();
        } else {
            beforeLast.back() = before;
            if (node->restype == RTLB) beforeLast.push_back(nullptr);
        }
    }
}

} // namespace

bool rbDotConvert(CSmartResbuf& chain, bool dotInMiddle)
{
    const std::optional<DotForms> forms = dotForms(chain);
    if (!forms.has_value()) return false;
    if (forms->empty()) return true;
    if (dotInMiddle) dotsToMiddle(chain, *forms);
    else dotsToEnd(chain, *forms);
    return true;
}

bool rbBalanced(const resbuf* chain) { return dotForms(chain).has_value(); }

RbTokens::RbTokens(const resbuf* chain) : node_(chain)
{
    std::optional<DotForms> forms = dotForms(chain);
    even_ = forms.has_value();
    if (even_) middle_ = std::move(*forms);
    else node_ = nullptr;
}

bool RbTokens::isMiddleDot() const
{
    return node_ != nullptr && node_->restype == RTDOTE && middle_[dot_];
}

RbTokens::Token RbTokens::token() const
{
    if (node_ == nullptr) return Token::none;
    switch (node_->restype) {
    case RTLB: return Token::begin;
    case RTLE: return dotted_.back() ? Token::endDotted : Token::end;
    case RTDOTE: return Token::endDotted;
    default: return Token::value;
    }
}

void RbTokens::next()
{
    if (node_ == nullptr) return;
    if (node_->restype == RTLB) {
        dotted_.push_back(false);
    } else if (node_->restype == RTLE || node_->restype == RTDOTE) {
        if (node_->restype == RTDOTE) ++dot_;
        dotted_.pop_back();
    }
    node_ = node_->rbnext;
    while (isMiddleDot()) {
        dotted_.back() = true;
        ++dot_;
        node_ = node_->rbnext;
    }
}

} // namespace KEX
