// SPDX-License-Identifier: LicenseRef-ORVALD
// The heap's objects besides list cells. They carry their kind instead of a virtual table: a kind
// test is one load, and the collector alone destroys them.
#pragma once

#include "lisp/value.h"
#include "lisp/world.h"

#include <cstdint>
#include <cstdio>
#include <string>

namespace orvald::lisp {

struct Object
{
    explicit Object(Kind objectKind) : kind(objectKind) {}
    Kind kind;
    bool marked = false;
};

inline bool isObjectOf(Value value, Kind kind)
{
    return value.isObject() && value.asObject()->kind == kind;
}

/// Units shared by strings of which each is a beginning of the next; only `used` ever grows. So a
/// string that ends where the buffer's used part ends can be extended without copying it.
struct TextBuffer
{
    std::uint32_t users = 0;
    std::uint32_t used = 0;
    std::uint32_t capacity = 0;
    char16_t* units() { return reinterpret_cast<char16_t*>(this + 1); }
};

struct String : Object
{
    String() : Object(Kind::string) {}
    std::uint32_t length = 0;
    const char16_t* units = nullptr; // behind this object, or in `buffer`
    TextBuffer* buffer = nullptr;
    std::u16string_view view() const { return {units, length}; }
};

inline bool isString(Value value) { return isObjectOf(value, Kind::string); }
inline std::u16string_view stringOf(Value value)
{
    return static_cast<const String*>(value.asObject())->view();
}

/// A builtin. Never destroyed, so that compiled code may hold on to it.
struct Subr : Object
{
    explicit Subr(const Builtin& row) : Object(Kind::subr), builtin(&row) {}
    const Builtin* builtin;
    /// Takes its arguments unevaluated; `builtin->function`, where there is one, serves apply.
    bool special = false;
};

struct External : Object
{
    External() : Object(Kind::exrxsubr) {}
    ExternalFunction* function = nullptr; // null once the application has taken it back
    std::u16string name;
};

struct Pickset : Object
{
    Pickset() : Object(Kind::pickset) {}
    std::int32_t set = 0;
    WorldHost* host = nullptr;
};

struct File : Object
{
    File() : Object(Kind::file) {}
    std::FILE* stream = nullptr; // null when closed
    std::u16string name;         // as the program named it
    bool writes = false;
};

/// Stands for an object of the host's automation interface.
struct VlaObject : Object
{
    VlaObject() : Object(Kind::vlaObject) {}
    std::u16string className;
    Value entity; // what it stands for in a drawing, nil for none
    bool released = false;
};

struct CaughtError : Object
{
    CaughtError() : Object(Kind::caughtError) {}
    std::u16string message;
};

} // namespace orvald::lisp
