// SPDX-License-Identifier: LicenseRef-ORVALD
// A LISP value in eight bytes: reals stand as they are, everything else is packed into the unused
// range of not-a-number patterns. Lists are immutable: AutoLISP has no function that changes a
// cell.
#pragma once

#include <bit>
#include <cstdint>
#include <string_view>

namespace orvald::lisp {

struct Cons;
struct Symbol;
struct Object;

/// What a value is; the heap kinds beyond `string` are told apart by the object itself.
enum class Kind : std::uint8_t
{
    nil,
    blank, // the null symbol that (princ) returns: prints as nothing, is not nil
    integer,
    real,
    entity, // a database object of an open drawing
    symbol,
    cons,
    string,
    subr,     // built into the evaluator
    usubr,    // a defun or a compiled lambda
    exrxsubr, // defined by an application
    pickset,
    file,
    vlaObject,  // an automation object
    caughtError // what vl-catch-all-apply returns after an error
};

class Value
{
public:
    constexpr Value() = default; // nil
    static constexpr Value nil() { return Value(); }
    static constexpr Value blank() { return raw(kBlankBits); }
    static constexpr Value integer(std::int32_t value)
    {
        return raw(kIntegerTag | static_cast<std::uint32_t>(value));
    }
    /// Any not-a-number becomes the one canonical pattern, so that no real can look like a pointer.
    static constexpr Value real(double value)
    {
        return raw(value == value ? std::bit_cast<std::uint64_t>(value) : kNanBits);
    }
    /// `id`: 48 bits, as the drawing gave it.
    static constexpr Value entity(std::uint64_t id) { return raw(kEntityTag | (id & kPayload)); }
    static Value symbol(Symbol* symbol) { return pointer(kSymbolTag, symbol); }
    static Value cons(Cons* cell) { return pointer(kConsTag, cell); }
    static Value object(Object* object) { return pointer(kObjectTag, object); }

    constexpr bool isNil() const { return bits_ == kNilBits; }
    constexpr bool isBlank() const { return bits_ == kBlankBits; }
    constexpr bool isInteger() const { return tag() == kIntegerTag; }
    constexpr bool isReal() const { return bits_ < kIntegerTag; }
    constexpr bool isNumber() const { return bits_ < kIntegerTag + kTagStep; }
    constexpr bool isEntity() const { return tag() == kEntityTag; }
    constexpr bool isSymbol() const { return tag() == kSymbolTag; }
    constexpr bool isCons() const { return tag() == kConsTag; }
    constexpr bool isList() const { return isCons() || isNil(); }
    constexpr bool isObject() const { return tag() == kObjectTag; }
    /// A pointer into the heap: must be kept reachable across a safe point.
    constexpr bool isHeap() const { return bits_ >= kSymbolTag; }
    bool isString() const { return kind() == Kind::string; }
    Kind kind() const;

    // Each of these holds only for a value of its kind.
    constexpr std::int32_t asInteger() const { return static_cast<std::int32_t>(bits_); }
    constexpr double asReal() const { return std::bit_cast<double>(bits_); }
    /// Value of an integer or a real.
    constexpr double asNumber() const { return isInteger() ? asInteger() : asReal(); }
    constexpr std::uint64_t asEntity() const { return bits_ & kPayload; }
    Symbol* asSymbol() const { return static_cast<Symbol*>(address()); }
    Cons* asCons() const { return static_cast<Cons*>(address()); }
    Object* asObject() const { return static_cast<Object*>(address()); }
    /// The units of a string; they stay valid while the value is reachable.
    std::u16string_view asString() const;

    constexpr std::uint64_t bits() const { return bits_; }
    /// Identity, as `eq` has it for all kinds but reals and strings.
    friend constexpr bool operator==(Value a, Value b) { return a.bits_ == b.bits_; }

private:
    static constexpr std::uint64_t kTagStep = std::uint64_t{1} << 48;
    static constexpr std::uint64_t kPayload = kTagStep - 1;
    static constexpr std::uint64_t kNanBits = 0x7FF8000000000000;
    // Everything below kIntegerTag is a real (canonical not-a-number included).
    static constexpr std::uint64_t kIntegerTag = 0xFFF9000000000000;
    static constexpr std::uint64_t kEntityTag = 0xFFFA000000000000;
    static constexpr std::uint64_t kSpecialTag = 0xFFFB000000000000;
    static constexpr std::uint64_t kSymbolTag = 0xFFFC000000000000;
    static constexpr std::uint64_t kConsTag = 0xFFFD000000000000;
    static constexpr std::uint64_t kObjectTag = 0xFFFE000000000000;
    static constexpr std::uint64_t kNilBits = kSpecialTag | 1;
    static constexpr std::uint64_t kBlankBits = kSpecialTag | 2;

    static constexpr Value raw(std::uint64_t bits)
    {
        Value value;
        value.bits_ = bits;
        return value;
    }
    static Value pointer(std::uint64_t tag, void* address)
    {
        return raw(tag | reinterpret_cast<std::uintptr_t>(address));
    }
    constexpr std::uint64_t tag() const { return bits_ & ~kPayload; }
    void* address() const { return reinterpret_cast<void*>(bits_ & kPayload); }

    std::uint64_t bits_ = kNilBits;
};

/// One cell of a list.
struct Cons
{
    Value car;
    Value cdr;
};

/// A name with its one value cell: variables and functions share it.
struct Symbol
{
    Value value;
    std::u16string_view name; // upper case; lives as long as the world
};

inline Value car(Value list) { return list.isCons() ? list.asCons()->car : Value::nil(); }
inline Value cdr(Value list) { return list.isCons() ? list.asCons()->cdr : Value::nil(); }

} // namespace orvald::lisp
