// SPDX-License-Identifier: LicenseRef-ORVALD
// The names that the compiler knows: special forms, and functions it turns into nodes of their own.
// Their symbols stand in one array inside the evaluator, so that "is this still the builtin?" is a
// comparison of two words at fixed places.
#pragma once

#include "lisp/value.h"
#include "lisp/world.h"

#include <cstddef>
#include <span>

namespace orvald::lisp {

class Compiler;
struct Node;

enum class Core : unsigned char
{
    // special forms
    quote,
    function,
    lambda,
    setq,
    ifForm,
    cond,
    andForm,
    orForm,
    progn,
    whileForm,
    repeat,
    foreach,
    defun,
    defunQ,
    trace,
    untrace,
    // functions
    add,
    subtract,
    multiply,
    divide,
    rem,
    logand,
    numEqual,
    numUnequal,
    less,
    lessEqual,
    greater,
    greaterEqual,
    eq,
    equal,
    cons,
    nth,
    increment,
    decrement,
    car,
    cdr,
    caar,
    cadr,
    cdar,
    cddr,
    caddr,
    nullTest,
    notTest,
    zerop,
    minusp,
    numberp,
    listp,
    atom,
    consp,
    count
};

inline constexpr std::size_t kCoreCount = static_cast<std::size_t>(Core::count);
inline constexpr std::size_t kSpecialCount = static_cast<std::size_t>(Core::add);

/// Makes the node of a form, or returns null where the general call serves (another number of
/// arguments).
using CompileHook = const Node* (*)(Compiler& compiler, Cons* form);

struct CoreRow
{
    Core core;
    const char16_t* name;
    CompileHook compile;
};

/// In the order of `Core`.
std::span<const CoreRow> coreRows();

/// Rows of the special forms; `function` serves apply and is null where apply makes no sense.
std::span<const Builtin> specialForms();

// The hooks, beside the nodes they make.
namespace hooks {
const Node* quote(Compiler&, Cons*);
const Node* function(Compiler&, Cons*);
const Node* lambda(Compiler&, Cons*);
const Node* setq(Compiler&, Cons*);
const Node* ifForm(Compiler&, Cons*);
const Node* cond(Compiler&, Cons*);
const Node* andForm(Compiler&, Cons*);
const Node* orForm(Compiler&, Cons*);
const Node* progn(Compiler&, Cons*);
const Node* whileForm(Compiler&, Cons*);
const Node* repeat(Compiler&, Cons*);
const Node* foreach (Compiler&, Cons*);
const Node* defun(Compiler&, Cons*);
const Node* defunQ(Compiler&, Cons*);
const Node* trace(Compiler&, Cons*);

const Node* add(Compiler&, Cons*);
const Node* subtract(Compiler&, Cons*);
const Node* multiply(Compiler&, Cons*);
const Node* divide(Compiler&, Cons*);
const Node* rem(Compiler&, Cons*);
const Node* logand(Compiler&, Cons*);
const Node* numEqual(Compiler&, Cons*);
const Node* numUnequal(Compiler&, Cons*);
const Node* less(Compiler&, Cons*);
const Node* lessEqual(Compiler&, Cons*);
const Node* greater(Compiler&, Cons*);
const Node* greaterEqual(Compiler&, Cons*);
const Node* eq(Compiler&, Cons*);
const Node* equal(Compiler&, Cons*);
const Node* cons(Compiler&, Cons*);
const Node* nth(Compiler&, Cons*);
const Node* increment(Compiler&, Cons*);
const Node* decrement(Compiler&, Cons*);
const Node* car(Compiler&, Cons*);
const Node* cdr(Compiler&, Cons*);
const Node* caar(Compiler&, Cons*);
const Node* cadr(Compiler&, Cons*);
const Node* cdar(Compiler&, Cons*);
const Node* cddr(Compiler&, Cons*);
const Node* caddr(Compiler&, Cons*);
const Node* nullTest(Compiler&, Cons*);
const Node* notTest(Compiler&, Cons*);
const Node* zerop(Compiler&, Cons*);
const Node* minusp(Compiler&, Cons*);
const Node* numberp(Compiler&, Cons*);
const Node* listp(Compiler&, Cons*);
const Node* atom(Compiler&, Cons*);
const Node* consp(Compiler&, Cons*);
} // namespace hooks

} // namespace orvald::lisp
