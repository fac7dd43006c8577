// SPDX-License-Identifier: LicenseRef-ORVALD
// One record of a file as its text: groups, with what all kinds of records have taken out. The same
// object takes one record after the other, so that its memory is used again.
#pragma once

#include "dxf/audit.h"

#include <vector>

namespace orvald::dxf {

class AuditRecord
{
public:
    struct Group
    {
        int code;
        std::string_view value; // handles, numbers and type names without blanks around
        std::uint64_t line;
    };

    void clear();
    void add(int code, std::string_view value, std::uint64_t line);
    bool empty() const { return places_.empty(); }
    /// To be called behind the last group. `marked`: of a version that has subclass markers.
    void split(bool marked);

    std::size_t size() const { return places_.size(); }
    Group operator[](std::size_t i) const
    {
        const Place& place = places_[i];
        return {place.code, std::string_view(text_).substr(place.at, place.size), place.line};
    }
    std::string_view type() const { return (*this)[0].value; }
    std::uint64_t line() const { return places_[0].line; }
    bool is(std::string_view name) const { return type() == name; }
    bool isDictionary() const { return is("DICTIONARY") || is("ACDBDICTIONARYWDFLT"); }
    /// "LINE 2F", or "LINE" without a handle.
    std::string name() const;

    // The body runs from the first subclass marker (or behind the type, in a version without
    // markers) to the extended data.
    std::size_t bodyBegin() const { return body_; }
    std::size_t bodyEnd() const { return xdata_; }
    bool isInBody(std::size_t i) const { return i < xdata_; }
    /// First group of a code in the body; size() when there is none.
    std::size_t find(int code) const { return find(code, body_); }
    std::size_t find(int code, std::size_t from) const;
    bool has(int code) const { return find(code) != size(); }
    /// Value of that group, or what is given for none.
    std::string_view text(int code, std::string_view none = {}) const;
    std::int64_t whole(int code, std::int64_t none = 0) const;
    /// Position of a subclass marker; size() when it is absent.
    std::size_t marker(std::string_view name) const;

    bool hasHandle = false, hasOwner = false;
    bool bracesHold = true; // each 102 {NAME in front of the body has its 102 }
    drawing::Handle handle = 0, owner = 0, extension = 0;
    std::vector<drawing::Handle> reactors;

private:
    struct Place
    {
        int code;
        std::uint32_t size;
        std::size_t at;
        std::uint64_t line;
    };
    std::string text_;
    std::vector<Place> places_;
    std::size_t body_ = 0, xdata_ = 0;
};

} // namespace orvald::dxf
