// SPDX-License-Identifier: LicenseRef-ORVALD
// Records as values.
#include "drawing/record.h"

namespace orvald::drawing {

Record::Record(std::string_view typeName, Family family) : kind_(kindOf(typeName)), family_(family)
{
    if (kind_ == Kind::other) tags.addText(0, typeName);
}

Record::Record(const Record& other)
    : handle(other.handle),
      owner(other.owner),
      tags(other.tags),
      erased(other.erased),
      undone(other.undone),
      kind_(other.kind_),
      family_(other.family_),
      extras_(other.extras_ ? std::make_unique<Extras>(*other.extras_) : nullptr)
{
}

Record& Record::operator=(const Record& other)
{
    if (this != &other) *this = Record(other);
    return *this;
}

std::string_view Record::typeName() const
{
    return kind_ == Kind::other ? tags.text(0) : kindName(kind_);
}

TagList::Iterator Record::body() const
{
    TagList::Iterator it = tags.begin();
    if (kind_ == Kind::other && it != tags.end() && (*it).code() == 0) ++it;
    return it;
}

Extras& Record::needExtras()
{
    if (!extras_) extras_ = std::make_unique<Extras>();
    return *extras_;
}

void Record::trimExtras()
{
    if (extras_ && extras_->empty()) extras_.reset();
}

} // namespace orvald::drawing
