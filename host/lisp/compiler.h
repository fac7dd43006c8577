// SPDX-License-Identifier: LicenseRef-ORVALD
// Turns forms into nodes. Lists are immutable, so a form is compiled once; what a form is wrong
// about becomes a node that raises the error when it is run.
#pragma once

#include "evaluator.h"

#include <optional>

namespace orvald::lisp {

class Compiler
{
public:
    Compiler(Evaluator& evaluator, Lambda& owner) : evaluator_(evaluator), owner_(owner) {}

    /// Prepares a function for its first call, which compiles the body.
    static void makeLazy(Lambda& lambda);
    /// Null when `parameters` is no list of symbols.
    static Lambda* makeLambda(Evaluator& evaluator, Symbol* name, Value parameters, Value body);

    /// Compiles the owner's body forms in place.
    void compileBody();
    /// Makes the owner's body a call of the form's function as it is at run time.
    void compileGeneralCall(Cons* form);

    // -- for the hooks
    Evaluator& evaluator() { return evaluator_; }
    const Node* compile(Value form);
    /// The forms of a list in order; their last value is the result. Null for an empty list.
    const Node* compileSequence(Value forms);
    /// A SequenceNode of all the form's arguments.
    const Node* compileChildren(RunNode run, Cons* form);
    /// A function written inside this one, kept alive by it; null as for makeLambda.
    Lambda* nestedLambda(Symbol* name, Value parameters, Value body);
    const Node* constant(Value value);
    const Node* faulty(Cons* form, const char16_t* message, Value culprit = Value::blank());
    template <class T>
    T* make(RunNode run, Cons* form, std::size_t extraBytes = 0)
    {
        T* node = owner_.arena.make<T>(extraBytes);
        node->run = run;
        node->form = form;
        return node;
    }
    template <class T>
    static const Node** children(T* node)
    {
        return reinterpret_cast<const Node**>(node + 1);
    }

    /// The core row of a symbol, null when the compiler does not know the name.
    const CoreRow* coreRowOf(const Symbol* symbol) const;
    /// What a form (quote x) quotes, null for any other form.
    const Value* quotedValue(const Cons* form) const;
    /// Length of a proper list, -1 for an improper one.
    static int lengthOf(Value list);

private:
    // Takes what `make` compiles as the owner's code; after an error nothing of it is left.
    template <class Make>
    void setBody(Make&& make);
    // Puts what the code takes on the heap's account: a list that contains itself many times over
    // is small as data and without measure as code.
    void chargeCode();
    const Node* compileForm(Cons* form);
    const Node* compileCall(Cons* form);
    const Node* compileComputedCall(Cons* form, int count);

    Evaluator& evaluator_;
    Lambda& owner_;
    int depth_ = 0; // nesting of the form in work
};

/// Where an operand comes from. `get` may run any code only for OperandKind::any.
enum class OperandKind
{
    constant,
    variable,
    any
};

/// What an operand of an inlined function is made of.
struct CompiledOperand
{
    OperandKind kind;
    Operand operand;
};
CompiledOperand compileOperand(Compiler& compiler, Value form);

} // namespace orvald::lisp
