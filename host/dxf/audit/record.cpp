// SPDX-License-Identifier: LicenseRef-ORVALD
#include "audit/record.h"

#include "number_in.h"

namespace orvald::dxf {

void AuditRecord::clear()
{
    text_.clear();
    places_.clear();
    reactors.clear();
    hasHandle = hasOwner = false;
    bracesHold = true;
    handle = owner = extension = 0;
}

void AuditRecord::add(int code, std::string_view value, std::uint64_t line)
{
    drawing::TagKind kind = drawing::TagKind::text;
    const bool isText = drawing::fileKind(code, kind) && kind == drawing::TagKind::text;
    if (!isText || code == 0 || code == 9) value = trimmed(value);
    places_.push_back({code, static_cast<std::uint32_t>(value.size()), text_.size(), line});
    text_ += value;
}

void AuditRecord::split(bool marked)
{
    const bool isTable = is("TABLE");
    const int own = is("DIMSTYLE") ? 105 : 5;
    enum class Braces
    {
        none,
        ofExtension,
        ofReactors,
        ofOthers
    } braces = Braces::none;
    body_ = size();
    for (std::size_t i = 1; i < size(); ++i) {
        const Group group = (*this)[i];
        drawing::Handle value = 0;
        if (group.code == 1001 || (group.code == 100 && !isTable)) {
            body_ = i;
            break;
        }
        if (group.code == 102) {
            const bool opens = group.value.starts_with('{');
            bracesHold =
                bracesHold && opens == (braces == Braces::none) && (opens || group.value == "}");
            braces = group.value == "{ACAD_XDICTIONARY" ? Braces::ofExtension
                     : group.value == "{ACAD_REACTORS"  ? Braces::ofReactors
                     : opens                            ? Braces::ofOthers
                                                        : Braces::none;
        } else if (braces == Braces::ofExtension && group.code == 360) {
            readHandle(group.value, extension);
        } else if (braces == Braces::ofReactors && group.code == 330) {
            if (readHandle(group.value, value) == Reading::good) reactors.push_back(value);
        } else if (braces == Braces::none && group.code == own && !hasHandle) {
            hasHandle = readHandle(group.value, handle) == Reading::good && handle != 0;
        } else if (braces == Braces::none && group.code == 330 && !hasOwner) {
            hasOwner = readHandle(group.value, owner) == Reading::good;
        }
    }
    bracesHold = bracesHold && braces == Braces::none;
    // Without markers the body begins behind the type; programs put any group into xrecords.
    if (!marked || isTable) body_ = 1;
    xdata_ = is("XRECORD") ? size() : find(1001, body_);
}

std::string AuditRecord::name() const
{
    std::string out(type());
    if (handle != 0) out += " " + drawing::handleText(handle);
    return out;
}

std::size_t AuditRecord::find(int code, std::size_t from) const
{
    while (from < size() && places_[from].code != code) ++from;
    return from;
}

std::string_view AuditRecord::text(int code, std::string_view none) const
{
    const std::size_t at = find(code);
    return at < xdata_ ? (*this)[at].value : none;
}

std::int64_t AuditRecord::whole(int code, std::int64_t none) const
{
    std::int64_t number = 0;
    return readWhole(text(code), number) == Reading::good ? number : none;
}

std::size_t AuditRecord::marker(std::string_view name) const
{
    for (std::size_t i = find(100); i < size(); i = find(100, i + 1))
        if ((*this)[i].value == name) return i;
    return size();
}

} // namespace orvald::dxf
