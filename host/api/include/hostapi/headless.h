// SPDX-License-Identifier: LicenseRef-ORVALD
// What the headless host offers in place of Windows: boxes on the console and a table of running
// automation objects; the description that a module may give of its LISP functions; and its data
// files as text. Only code that is built for the headless host alone may use the functions of this
// header.
#pragma once

#include "hostapi/resbuf.h"

#include <string>
#include <string_view>

/// An object that other programs may call by method name.
class HOST_API HostAutomationObject
{
public:
    virtual ~HostAutomationObject();
    /// Calls a method: `args` one node per parameter, the result goes into `result` (a node that
    /// the caller frees). False when the method is unknown or the parameters do not fit.
    virtual bool invoke(const ACHAR* method, const resbuf* args, resbuf* result) = 0;
};

extern "C" {
/// Enters an object under its program name; the cookie, never 0, revokes it. The object stays the
/// caller's.
HOST_API unsigned hostRegisterActiveObject(const ACHAR* progId, HostAutomationObject* object);
/// False when the cookie is unknown.
HOST_API bool hostRevokeActiveObject(unsigned cookie);
/// Null when no object runs under that name.
HOST_API HostAutomationObject* hostGetActiveObject(const ACHAR* progId);

/// A question with the buttons OK and Cancel. The console shows it, the host's policy answers it
/// and the answer is shown too; it never waits. True for OK.
HOST_API bool hostAskOkCancel(const ACHAR* caption, const ACHAR* text);
}

/// How a LISP author calls a function, as texts.
struct HostFunctionText
{
    const ACHAR* name;
    const ACHAR* arguments;
    const ACHAR* result;
    bool built; // false: the function answers that it is not built
};
/// A module may export a function of this type under the name below: fills `text` for the function
/// `code` and gives true, false when there is no such code.
using HostDescribeFunction = bool (*)(int code, HostFunctionText* text);
#define HOST_DESCRIBE_FUNCTION "hostDescribeFunction"

/// A module may export functions of these types under the names below. The text of a data file's
/// bytes, as far as they can be read; false, with the reason in `problem`, when they are damaged.
using HostDataToText = bool (*)(std::string_view bytes, std::string& text, std::string& problem);
#define HOST_DATA_TO_TEXT "hostDataToText"
/// Writes the data file for a text. False when the text is none, with the reason in `problem`, and
/// when the file cannot be written, with "".
using HostDataFromText = bool (*)(std::string_view text, std::string_view file,
                                  std::string& problem);
#define HOST_DATA_FROM_TEXT "hostDataFromText"
