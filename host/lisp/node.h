// SPDX-License-Identifier: LicenseRef-ORVALD
// Compiled code: a tree of nodes, each a function to run and its operands. A node is built once and
// never changed; what may change under it (a redefined function) it checks when it runs.
#pragma once

#include "core.h"

#include "lisp/value.h"
#include "lisp/world.h"

namespace orvald::lisp {

/// The symbols that a call binds. While it runs, the evaluation stack holds their outer values in
/// the same order.
struct Variables
{
    Symbol* const* symbols = nullptr;
    int count = 0;
    Object* owner = nullptr; // kept alive by the frame; null where an outer frame does
};

struct Node;
using RunNode = Value (*)(const Node* node, Evaluator& evaluator);

struct Node
{
    RunNode run;
};

struct ConstantNode : Node
{
    Value value;
};

struct SymbolNode : Node
{
    Symbol* symbol;
};

/// A node made from a list form. The form names the place in error reports and is what is evaluated
/// anew when the function it was compiled for is redefined.
struct FormNode : Node
{
    Cons* form;
};

/// Operand of an inlined function: its sort is known to the run function, so it needs no call.
union Operand {
    Value constant{};
    Symbol* symbol;
    const Node* node;
};

struct UnaryNode : FormNode
{
    Operand a;
};

struct BinaryNode : FormNode
{
    Operand a;
    Operand b;
};

/// Base of the nodes with a row of children, which stand behind the node itself.
template <class T>
const Node* const* childrenOf(const T* node)
{
    return reinterpret_cast<const Node* const*>(node + 1);
}

/// progn, and, or, a function's body.
struct SequenceNode : FormNode
{
    int count;
};

struct IfNode : FormNode
{
    const Node* condition;
    const Node* whenTrue;
    const Node* otherwise;
};

/// One clause of cond: `body` is null where the test's value is the result.
struct CondClause
{
    const Node* test;
    const Node* body;
};

struct CondNode : FormNode
{
    int count;
    const CondClause* clauses() const { return reinterpret_cast<const CondClause*>(this + 1); }
};

/// while (head = condition), repeat (head = count), foreach (head = list).
struct LoopNode : FormNode
{
    const Node* head;
    const Node* body; // null: nothing to do
};

struct ForeachNode : LoopNode
{
    Symbol* symbol;
    Variables variables; // that one symbol, for the frame
};

struct SetqNode : FormNode
{
    Symbol* symbol;
    const Node* value;
};

struct DefunNode : FormNode
{
    Core core; // defun or defun-q
    Symbol* symbol;
    Value function; // a Lambda, or the list of defun-q
};

/// A form whose value is known beforehand.
struct KeptNode : FormNode
{
    Value value;
};

/// A call through a symbol.
struct CallNode : FormNode
{
    Symbol* head;
    Value expected; // the builtin that `run` was chosen for, else nil
    BuiltinFunction function;
    int count;
};

/// A call whose function is the value of an expression, or a lambda written in its place.
struct ComputedCallNode : FormNode
{
    const Node* function;
    int count;
};

/// A form that cannot be compiled: raises its message when it is run.
struct FaultyNode : FormNode
{
    const char16_t* message;
    Value culprit; // printed behind the message unless blank
};

} // namespace orvald::lisp
