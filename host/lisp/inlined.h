// SPDX-License-Identifier: LicenseRef-ORVALD
// Nodes of functions that are worth code of their own: one or two operands, each read from where it
// stands (constant, variable) or run. A function is a type with `core` and `apply`; the templates
// here add the operand kinds and the guard against redefinition.
#pragma once

#include "compiler.h"

namespace orvald::lisp {

struct ConstantOperand
{
    static constexpr bool runsCode = false;
    static Value get(const Operand& operand, Evaluator&) { return operand.constant; }
};

struct VariableOperand
{
    static constexpr bool runsCode = false;
    static Value get(const Operand& operand, Evaluator&) { return operand.symbol->value; }
};

struct AnyOperand
{
    static constexpr bool runsCode = true;
    static Value get(const Operand& operand, Evaluator& evaluator)
    {
        return operand.node->run(operand.node, evaluator);
    }
};

template <class Function, class A>
Value runUnary(const Node* node, Evaluator& evaluator)
{
    const auto* self = static_cast<const UnaryNode*>(node);
    if (!evaluator.intact(Function::core)) [[unlikely]]
        return evaluator.runRedefined(self);
    return Function::apply(evaluator, self, A::get(self->a, evaluator));
}

template <class Function, class A, class B>
Value runBinary(const Node* node, Evaluator& evaluator)
{
    const auto* self = static_cast<const BinaryNode*>(node);
    if (!evaluator.intact(Function::core)) [[unlikely]]
        return evaluator.runRedefined(self);
    const Value a = A::get(self->a, evaluator);
    if constexpr (B::runsCode && !std::is_same_v<A, ConstantOperand>) {
        // While the second operand runs, garbage may be collected: the first is kept on the stack.
        if (a.isHeap()) {
            *evaluator.sp++ = a;
            const Value b = B::get(self->b, evaluator);
            --evaluator.sp;
            return Function::apply(evaluator, self, a, b);
        }
    }
    return Function::apply(evaluator, self, a, B::get(self->b, evaluator));
}

template <class Function>
const Node* compileUnary(Compiler& compiler, Cons* form)
{
    static constexpr RunNode kRuns[] = {runUnary<Function, ConstantOperand>,
                                        runUnary<Function, VariableOperand>,
                                        runUnary<Function, AnyOperand>};
    if (Compiler::lengthOf(form->cdr) != 1) return nullptr;
    const CompiledOperand a = compileOperand(compiler, car(form->cdr));
    auto* node = compiler.make<UnaryNode>(kRuns[static_cast<int>(a.kind)], form);
    node->a = a.operand;
    return node;
}

template <class Function>
const Node* compileBinary(Compiler& compiler, Cons* form)
{
    static constexpr RunNode kRuns[3][3] = {{runBinary<Function, ConstantOperand, ConstantOperand>,
                                             runBinary<Function, ConstantOperand, VariableOperand>,
                                             runBinary<Function, ConstantOperand, AnyOperand>},
                                            {runBinary<Function, VariableOperand, ConstantOperand>,
                                             runBinary<Function, VariableOperand, VariableOperand>,
                                             runBinary<Function, VariableOperand, AnyOperand>},
                                            {runBinary<Function, AnyOperand, ConstantOperand>,
                                             runBinary<Function, AnyOperand, VariableOperand>,
                                             runBinary<Function, AnyOperand, AnyOperand>}};
    if (Compiler::lengthOf(form->cdr) != 2) return nullptr;
    const CompiledOperand a = compileOperand(compiler, car(form->cdr));
    const CompiledOperand b = compileOperand(compiler, car(cdr(form->cdr)));
    auto* node =
        compiler.make<BinaryNode>(kRuns[static_cast<int>(a.kind)][static_cast<int>(b.kind)], form);
    node->a = a.operand;
    node->b = b.operand;
    return node;
}

} // namespace orvald::lisp
