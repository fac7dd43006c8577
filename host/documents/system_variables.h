// SPDX-License-Identifier: LicenseRef-ORVALD
// System variables of a document: what the drawing's header stores, what the session keeps, and
// what is computed when it is asked for. Names compare without regard to case.
#pragma once

#include "drawing/point.h"
#include "hostapi/resbuf.h"

#include <cstdint>
#include <memory>
#include <string_view>

namespace orvald {

class Document;

class SystemVariables
{
public:
    explicit SystemVariables(Document& document);
    ~SystemVariables();
    SystemVariables(const SystemVariables&) = delete;
    SystemVariables& operator=(const SystemVariables&) = delete;

    enum class Answer
    {
        done,
        unknown,  // no such variable
        readOnly, // ERRNO 20
        badValue  // wrong type or out of range, ERRNO 22
    };
    /// Fills restype (RTSHORT, RTREAL, RTSTR, RTPOINT, RT3DPOINT) and value; the caller frees a
    /// string with acutDelString.
    Answer get(std::u16string_view name, resbuf& value) const;
    /// A value that is the same in every document (ACADVER); unknown for any other variable.
    static Answer getConstant(std::u16string_view name, resbuf& value);
    /// An integer may come as RTSHORT or RTLONG, a real as an integer, a point with or without Z.
    Answer set(std::u16string_view name, const resbuf& value);

    // Values for the host's own use, 0 where the name is unknown or of another type.
    std::int32_t integer(std::u16string_view name) const;
    double real(std::u16string_view name) const;
    drawing::Point point(std::u16string_view name) const;
    void setPoint(std::u16string_view name, drawing::Point value);

    /// World box of the current space; worked out again only after a change of the drawing.
    drawing::Box extents() const;

    /// The variable ERRNO, as the functions on entities set it.
    void setErrno(int value);

private:
    struct State;
    Document& document_;
    std::unique_ptr<State> state_;
};

} // namespace orvald
