// SPDX-License-Identifier: LicenseRef-ORVALD
// Searching and changing texts.
#include "kex/string.h"

#include "kex/search.h"

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
    return positionOrNone(KEX::findText(view(), part, fromStart(from)));
}

int CKexString::find(ACHAR unit, int from) const
{
    return positionOrNone(KEX::findUnit(view(), unit, fromStart(from)));
}

int CKexString::rfind(ACHAR unit) const { return positionOrNone(view().rfind(unit)); }

int CKexString::findOneOf(TextView set) const
{
    const KEX::UnitSet units(set);
    const auto hit =
        std::find_if(text_.begin(), text_.end(), [&](ACHAR unit) { return units.contains(unit); });
    return hit == text_.end() ? -1 : static_cast<int>(hit - text_.begin());
}

int CKexString::span(TextView set) const
{
    const KEX::UnitSet units(set);
    const auto end = std::find_if_not(text_.begin(), text_.end(),
                                      [&](ACHAR unit) { return units.contains(unit); });
    return static_cast<int>(end - text_.begin());
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
    for (std::size_t i = 1; i < text_.size(); ++i) {
        if (KEX::isLowSurrogate(text_[i - 1]) && KEX::isHighSurrogate(text_[i])) {
            std::swap(text_[i - 1], text_[i]);
        }
    }
    return *this;
}

CKexString& CKexString::replace(TextView old, TextView fresh)
{
    return *this = KEX::replaced(view(), old, fresh);
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
