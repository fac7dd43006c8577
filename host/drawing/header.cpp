// SPDX-License-Identifier: LicenseRef-ORVALD
// Header variables: an ordered list with a hashed index.
#include "drawing/header.h"

namespace orvald::drawing {

const TagList* HeaderVariables::find(std::string_view name) const
{
    const auto place = places_.find(name);
    return place == places_.end() ? nullptr : &variables_[place->second].value;
}

TagList& HeaderVariables::need(std::string_view name)
{
    tellWatcher();
    const auto [place, fresh] = places_.try_emplace(std::string(name), variables_.size());
    if (fresh) variables_.push_back({std::string(name), {}});
    return variables_[place->second].value;
}

void HeaderVariables::remove(std::string_view name)
{
    const auto place = places_.find(name);
    if (place == places_.end()) return;
    tellWatcher();
    const std::size_t at = place->second;
    places_.erase(place);
    variables_.erase(variables_.begin() + static_cast<std::ptrdiff_t>(at));
    for (auto& [other, index] : places_)
        if (index > at) --index;
}

namespace {
/// The group code that a variable has, else the one for a new variable.
int codeOf(const TagList& value, int code)
{
    return value.empty() ? code : (*value.begin()).code();
}
} // namespace

double HeaderVariables::real(std::string_view name, double none) const
{
    const TagList* value = find(name);
    return value == nullptr || value->empty() ? none : (*value->begin()).real();
}
std::int64_t HeaderVariables::integer(std::string_view name, std::int64_t none) const
{
    const TagList* value = find(name);
    return value == nullptr || value->empty() ? none : (*value->begin()).integer();
}
Point HeaderVariables::point(std::string_view name, Point none) const
{
    const TagList* value = find(name);
    return value == nullptr || value->empty() ? none : (*value->begin()).point();
}
std::string_view HeaderVariables::text(std::string_view name, std::string_view none) const
{
    const TagList* value = find(name);
    return value == nullptr || value->empty() ? none : (*value->begin()).text();
}

void HeaderVariables::setReal(std::string_view name, int code, double value)
{
    TagList& list = need(name);
    code = codeOf(list, code);
    list.clear();
    list.addReal(code, value);
}
void HeaderVariables::setInteger(std::string_view name, int code, std::int64_t value)
{
    TagList& list = need(name);
    code = codeOf(list, code);
    list.clear();
    list.addInteger(code, value);
}
void HeaderVariables::setPoint(std::string_view name, int code, Point value)
{
    TagList& list = need(name);
    const bool planar = !list.empty() && (*list.begin()).kind() == TagKind::point2;
    code = codeOf(list, code);
    list.clear();
    list.addPoint(code, value, planar);
}
void HeaderVariables::setText(std::string_view name, int code, std::string_view fileForm)
{
    TagList& list = need(name);
    code = codeOf(list, code);
    const std::string copy(fileForm); // may lie in the list
    list.clear();
    list.addText(code, copy);
}
void HeaderVariables::setHandle(std::string_view name, int code, Handle value)
{
    TagList& list = need(name);
    code = codeOf(list, code);
    list.clear();
    list.addHandle(code, value);
}

} // namespace orvald::drawing
