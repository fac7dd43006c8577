// SPDX-License-Identifier: LicenseRef-ORVALD
// Inlined arithmetic and comparison of two numbers. Anything but numbers, and every error, goes to
// the builtin itself. Integers are 32 bits and wrap.
#include "inlined.h"

#include "integer_arithmetic.h"

#include <cmath>

namespace orvald::lisp {

namespace {

bool bothIntegers(Value a, Value b) { return a.isInteger() && b.isInteger(); }
bool bothReals(Value a, Value b) { return a.isReal() && b.isReal(); }
bool bothNumbers(Value a, Value b) { return a.isNumber() && b.isNumber(); }

template <Core kCore, std::int32_t (*integers)(std::int32_t, std::int32_t),
          double (*reals)(double, double)>
struct Arithmetic
{
    static constexpr Core core = kCore;
    static Value apply(Evaluator& evaluator, const FormNode* node, Value a, Value b)
    {
        if (bothIntegers(a, b)) return Value::integer(integers(a.asInteger(), b.asInteger()));
        if (bothReals(a, b)) return Value::real(reals(a.asReal(), b.asReal()));
        if (bothNumbers(a, b)) return Value::real(reals(a.asNumber(), b.asNumber()));
        return evaluator.callCore(kCore, node, {a, b});
    }
};

// Three or more operands. All are run before one is found wrong; the first wrong one is kept until
// then, so that the builtin can name it.
template <class Function>
Value runFold(const Node* node, Evaluator& evaluator)
{
    const auto* self = static_cast<const SequenceNode*>(node);
    if (!evaluator.intact(Function::core)) [[unlikely]]
        return evaluator.runRedefined(self);
    const Node* const* operands = childrenOf(self);
    Value result = evaluator.run(operands[0]);
    bool wrong = !result.isNumber();
    if (wrong) *evaluator.sp++ = result;
    for (int i = 1; i < self->count; ++i) {
        const Value next = evaluator.run(operands[i]);
        if (wrong) continue;
        if (next.isNumber()) {
            result = Function::apply(evaluator, self, result, next);
        } else {
            wrong = true;
            result = next;
            *evaluator.sp++ = result;
        }
    }
    if (!wrong) [[likely]]
        return result;
    --evaluator.sp;
    return evaluator.callCore(Function::core, self, {result});
}

template <class Function>
const Node* compileFold(Compiler& compiler, Cons* form)
{
    if (Compiler::lengthOf(form->cdr) < 3) return compileBinary<Function>(compiler, form);
    return compiler.compileChildren(runFold<Function>, form);
}

double addReals(double a, double b) { return a + b; }
double subtractReals(double a, double b) { return a - b; }
double multiplyReals(double a, double b) { return a * b; }

using Add = Arithmetic<Core::add, wrappedAdd, addReals>;
using Subtract = Arithmetic<Core::subtract, wrappedSubtract, subtractReals>;
using Multiply = Arithmetic<Core::multiply, wrappedMultiply, multiplyReals>;

struct Divide
{
    static constexpr Core core = Core::divide;
    static Value apply(Evaluator& evaluator, const FormNode* node, Value a, Value b)
    {
        if (bothIntegers(a, b) && b.asInteger() > 0) {
            return Value::integer(a.asInteger() / b.asInteger());
        }
        if (b.isReal() && a.isNumber() && b.asReal() != 0.0) {
            return Value::real(a.asNumber() / b.asReal());
        }
        return evaluator.callCore(core, node, {a, b});
    }
};

struct Rem
{
    static constexpr Core core = Core::rem;
    static Value apply(Evaluator& evaluator, const FormNode* node, Value a, Value b)
    {
        if (bothIntegers(a, b) && b.asInteger() > 0) {
            return Value::integer(a.asInteger() % b.asInteger());
        }
        return evaluator.callCore(core, node, {a, b});
    }
};

struct Logand
{
    static constexpr Core core = Core::logand;
    static Value apply(Evaluator& evaluator, const FormNode* node, Value a, Value b)
    {
        if (bothIntegers(a, b)) return Value::integer(a.asInteger() & b.asInteger());
        return evaluator.callCore(core, node, {a, b});
    }
};

template <Core kCore, class Relation>
struct Comparison
{
    static constexpr Core core = kCore;
    static Value apply(Evaluator& evaluator, const FormNode* node, Value a, Value b)
    {
        if (bothIntegers(a, b)) {
            return evaluator.boolean(Relation()(a.asInteger(), b.asInteger()));
        }
        if (bothReals(a, b)) return evaluator.boolean(Relation()(a.asReal(), b.asReal()));
        if (bothNumbers(a, b)) return evaluator.boolean(Relation()(a.asNumber(), b.asNumber()));
        return evaluator.callCore(kCore, node, {a, b});
    }
};

template <Core kCore, std::int32_t kStep>
struct Step
{
    static constexpr Core core = kCore;
    static Value apply(Evaluator& evaluator, const FormNode* node, Value a)
    {
        if (a.isInteger()) return Value::integer(wrappedAdd(a.asInteger(), kStep));
        if (a.isReal()) return Value::real(a.asReal() + kStep);
        return evaluator.callCore(kCore, node, {a});
    }
};

template <Core kCore, class Relation>
struct SignTest
{
    static constexpr Core core = kCore;
    static Value apply(Evaluator& evaluator, const FormNode* node, Value a)
    {
        if (a.isNumber()) return evaluator.boolean(Relation()(a.asNumber(), 0.0));
        return evaluator.callCore(kCore, node, {a});
    }
};

struct Numberp
{
    static constexpr Core core = Core::numberp;
    static Value apply(Evaluator& evaluator, const FormNode*, Value a)
    {
        return evaluator.boolean(a.isNumber());
    }
};

} // namespace

namespace hooks {

const Node* add(Compiler& compiler, Cons* form) { return compileFold<Add>(compiler, form); }
const Node* subtract(Compiler& compiler, Cons* form)
{
    return compileFold<Subtract>(compiler, form);
}
const Node* multiply(Compiler& compiler, Cons* form)
{
    return compileFold<Multiply>(compiler, form);
}
const Node* divide(Compiler& compiler, Cons* form) { return compileBinary<Divide>(compiler, form); }
const Node* rem(Compiler& compiler, Cons* form) { return compileBinary<Rem>(compiler, form); }
const Node* logand(Compiler& compiler, Cons* form) { return compileBinary<Logand>(compiler, form); }

const Node* numEqual(Compiler& compiler, Cons* form)
{
    return compileBinary<Comparison<Core::numEqual, std::equal_to<>>>(compiler, form);
}
const Node* numUnequal(Compiler& compiler, Cons* form)
{
    return compileBinary<Comparison<Core::numUnequal, std::not_equal_to<>>>(compiler, form);
}
const Node* less(Compiler& compiler, Cons* form)
{
    return compileBinary<Comparison<Core::less, std::less<>>>(compiler, form);
}
const Node* lessEqual(Compiler& compiler, Cons* form)
{
    return compileBinary<Comparison<Core::lessEqual, std::less_equal<>>>(compiler, form);
}
const Node* greater(Compiler& compiler, Cons* form)
{
    return compileBinary<Comparison<Core::greater, std::greater<>>>(compiler, form);
}
const Node* greaterEqual(Compiler& compiler, Cons* form)
{
    return compileBinary<Comparison<Core::greaterEqual, std::greater_equal<>>>(compiler, form);
}

const Node* increment(Compiler& compiler, Cons* form)
{
    return compileUnary<Step<Core::increment, 1>>(compiler, form);
}
const Node* decrement(Compiler& compiler, Cons* form)
{
    return compileUnary<Step<Core::decrement, -1>>(compiler, form);
}
const Node* zerop(Compiler& compiler, Cons* form)
{
    return compileUnary<SignTest<Core::zerop, std::equal_to<>>>(compiler, form);
}
const Node* minusp(Compiler& compiler, Cons* form)
{
    return compileUnary<SignTest<Core::minusp, std::less<>>>(compiler, form);
}
const Node* numberp(Compiler& compiler, Cons* form)
{
    return compileUnary<Numberp>(compiler, form);
}

} // namespace hooks

} // namespace orvald::lisp
