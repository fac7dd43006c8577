// SPDX-License-Identifier: LicenseRef-ORVALD
// Searching and changing texts.
#include "kex/string.h"

#include <algorithm>

using KEX::TextView;

namespace {

int positionOrNone(std::size_t position)
{
    return position == TextView::npos ? -1 : static_cast<int>(position);
}
std::size_t fromStart(int position)
{
    return position < 0 ? 0 : static_cast<std::size_t>(position);
}

} // namespace

CKexString::CKexString(ACHAR unit, int count)
{
    if (count > 0) text_.assign(index(count), unit);
}

bool CKexString::setAt(int position, ACHAR unit)
{
    if (!isInside(position)) return false;
    text_[index(position)] = unit;
    return true;
}

int CKexString::find(TextView part, int from) const
{
    return part.empty() ? -1 : positionOrNone(view().find(part, fromStart(from)));
}

int CKexString::find(ACHAR unit, int from) const
{
    return positionOrNone(view().find(unit, fromStart(from)));
}

int CKexString::rfind(ACHAR unit) const { return positionOrNone(view().rfind(unit)); }

int CKexString::findOneOf(TextView set) const { return positionOrNone(view().find_first_of(set)); }

int CKexString::span(TextView set) const
{
    const std::size_t end = view().find_first_not_of(set);
    return end == TextView::npos ? len() : static_cast<int>(end);
}

CKexString& CKexString::makeUpper()
{
    for (ACHAR& unit : text_) unit = KEX::upperUnit(unit);
    return *this;
}

CKexString& CKexString::makeLower()
{
    for (ACHAR& unit : text_) unit = KEX::lowerUnit(unit);
    return *this;
}

CKexString& CKexString::trim()
{
    const auto isBlank = [](ACHAR unit) { return unit >= 1 && unit <= 32; };
    const auto last = std::find_if_not(text_.rbegin(), text_.rend(), isBlank).base();
    text_.erase(last, text_.end());
    text_.erase(text_.begin(), std::find_if_not(text_.begin(), text_.end(), isBlank));
    return *this;
}

CKexString& CKexString::revert()
{
    std::reverse(text_.begin(), text_.end());
    return *this;
}

CKexString& CKexString::replace(TextView old, TextView fresh)
{
    std::size_t hit = old.empty() ? TextView::npos : view().find(old);
    if (hit == TextView::npos) return *this;
    std::basic_string<ACHAR> result;
    result.reserve(text_.size());
    std::size_t done = 0;
    for (; hit != TextView::npos; hit = view().find(old, done)) {
        result.append(text_, done, hit - done).append(fresh);
        done = hit + old.size();
    }
    result.append(text_, done);
    text_ = std::move(result);
    return *this;
}

CKexString& CKexString::lfill(int n, ACHAR fill)
{
    if (n > len()) text_.insert(0, index(n - len()), fill);
    return *this;
}

CKexString& CKexString::rfill(int n, ACHAR fill)
{
    if (n > len()) text_.append(index(n - len()), fill);
    return *this;
}

CKexString& CKexString::operator+=(TextView other)
{
    text_.append(other);
    return *this;
}

CKexString& CKexString::operator+=(ACHAR unit)
{
    text_ += unit;
    return *this;
}

void CKexString::reserve(int units)
{
    if (units > 0) text_.reserve(index(units));
}

CKexString CKexString::mid(int start, int count) const
{
    const std::size_t begin = fromStart(start);
    if (begin >= text_.size()) return CKexString();
    return TextView(view().substr(begin, count < 0 ? TextView::npos : index(count)));
}
