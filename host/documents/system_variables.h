// SPDX-License-Identifier: LicenseRef-ORVALD
// System variables of a document: what the drawing's header stores, what the session keeps, and
// what is computed when it is asked for. Names compare without regard to case.
#pragma once

#include "hostapi/resbuf.h"

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
    /// An integer may come as RTSHORT or RTLONG, a real as an integer, a point with or without Z.
    Answer set(std::u16string_view name, const resbuf& value);

    /// The variable ERRNO, as the functions on entities set it.
    void setErrno(int value);

private:
    struct State;
    Document& document_;
    std::unique_ptr<State> state_;
};

} // namespace orvald
