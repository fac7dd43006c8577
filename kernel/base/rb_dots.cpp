// SPDX-License-Identifier: LicenseRef-ORVALD
// The two forms of a dotted pair in a chain. Which form a dot has shows only when it and its
// neighbours are read together; a reading is tried, and holds when every bracket finds its partner.
#include "kex/resbuf_chain.h"

#include <new>
#include <optional>
#include <vector>

namespace KEX {
namespace {

enum class DotForm : unsigned char
{
    closing,
    middle
};
using DotForms = std::vector<DotForm>; // of the dots in chain order

struct Counts
{
    int begins = 0, ends = 0, dots = 0;
};

Counts countMarks(const resbuf* chain)
{
    Counts counts;
    for (; chain != nullptr; chain = chain->rbnext) {
        if (chain->restype == RTLB) ++counts.begins;
        if (chain->restype == RTLE) ++counts.ends;
        if (chain->restype == RTDOTE) ++counts.dots;
    }
    return counts;
}

bool isPlainValue(const resbuf* node)
{
    return node != nullptr && node->restype != RTLB && node->restype != RTLE &&
           node->restype != RTDOTE;
}

/// An open list: how many values it has, and how many of them stand behind its dot.
struct OpenList
{
    int values = 0;
    bool dotSeen = false;
    int tails = 0;
};

/// A reading of the chain, nothing when it does not come out even. With `preferMiddle` a dot that
/// can have either form, and is followed by one value and the end of the list, stands in the
/// middle.
std::optional<DotForms> readDots(const resbuf* chain, bool preferMiddle)
{
    const Counts counts = countMarks(chain);
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
    const auto formOf = [&](const resbuf* dot) {
        if (open.back().values == 1 || closingLeft == 0) return DotForm::middle;
        if (closingLeft == dotsLeft || !preferMiddle) return DotForm::closing;
        const resbuf* next = dot->rbnext;
        const bool fits =
            isPlainValue(next) && next->rbnext != nullptr && next->rbnext->restype == RTLE;
        return fits ? DotForm::middle : DotForm::closing;
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
            forms.push_back(formOf(node));
            --dotsLeft;
            if (forms.back() == DotForm::closing) {
                --closingLeft;
                open.pop_back();
                valueRead();
            } else {
                open.back().dotSeen = true;
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
    std::optional<DotForms> forms = readDots(chain, false);
    return forms.has_value() ? forms : readDots(chain, true);
}

/// Takes the dots out of the middle and marks the ends of their lists instead.
void dotsToEnd(CSmartResbuf& chain, const DotForms& forms)
{
    std::vector<bool> dotted; // of the open lists
    std::size_t dot = 0;
    resbuf* before = nullptr;
    for (resbuf* node = chain.get(); node != nullptr;) {
        resbuf* const next = node->rbnext;
        if (node->restype == RTDOTE && forms[dot++] == DotForm::middle) {
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
void dotsToMiddle(CSmartResbuf& chain, const DotForms& forms)
{
    std::vector<resbuf*> beforeLast(1,
                                    nullptr); // of the open lists: the node before the last value
    std::size_t dot = 0;
    resbuf* before = nullptr;
    for (resbuf* node = chain.get(); node != nullptr; before = node, node = node->rbnext) {
        const bool dots = node->restype == RTDOTE;
        if (node->restype == RTLB) {
            beforeLast.back() = before;
            beforeLast.push_back(nullptr);
        } else if (node->restype == RTLE) {
            beforeLast.pop_back();
        } else if (dots && forms[dot++] == DotForm::closing) {
            resbuf* mark = acutNewRb(RTDOTE);
            if (mark == nullptr) throw std::bad_alloc();
            mark->rbnext = std::exchange(beforeLast.back()->rbnext, mark);
            node->restype = RTLE;
            beforeLast.pop_back();
        } else if (!dots) {
            beforeLast.back() = before;
        }
    }
}

} // namespace

bool rbDotConvert(CSmartResbuf& chain, bool dotInMiddle)
{
    const std::optional<DotForms> forms = dotForms(chain);
    if (!forms.has_value()) return false;
    if (dotInMiddle) dotsToMiddle(chain, *forms);
    else dotsToEnd(chain, *forms);
    return true;
}

bool rbBalanced(const resbuf* chain) { return dotForms(chain).has_value(); }

} // namespace KEX
