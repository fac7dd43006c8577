// SPDX-License-Identifier: LicenseRef-ORVALD
// Inlined list functions and tests of a value's kind.
#include "inlined.h"

#include "equality.h"

namespace orvald::lisp {

namespace {

// A path through a list, read from the right as the function's name is: "a" car, "d" cdr.
template <Core kCore, char... kSteps>
struct Path
{
    static constexpr Core core = kCore;
    static Value apply(Evaluator& evaluator, const FormNode* node, Value a)
    {
        Value value = a;
        const bool found = (step<kSteps>(value) && ...);
        return found ? value : evaluator.callCore(kCore, node, {a});
    }

private:
    template <char kStep>
    static bool step(Value& value)
    {
        if (value.isCons()) {
            value = kStep == 'a' ? value.asCons()->car : value.asCons()->cdr;
            return true;
        }
        return value.isNil();
    }
};

template <Core kCore, bool (*test)(Value)>
struct Test
{
    static constexpr Core core = kCore;
    static Value apply(Evaluator& evaluator, const FormNode*, Value a)
    {
        return evaluator.boolean(test(a));
    }
};

bool isNil(Value a) { return a.isNil(); }
bool isList(Value a) { return a.isList(); }
bool isCons(Value a) { return a.isCons(); }
bool isAtom(Value a) { return !a.isCons(); }

struct MakeCons
{
    static constexpr Core core = Core::cons;
    static Value apply(Evaluator& evaluator, const FormNode*, Value a, Value b)
    {
        return Value::cons(evaluator.heap.makeCons(a, b));
    }
};

struct Eq
{
    static constexpr Core core = Core::eq;
    static Value apply(Evaluator& evaluator, const FormNode*, Value a, Value b)
    {
        return evaluator.boolean(sameValue(a, b));
    }
};

struct Equal
{
    static constexpr Core core = Core::equal;
    static Value apply(Evaluator& evaluator, const FormNode*, Value a, Value b)
    {
        return evaluator.boolean(equalValues(a, b, 0.0));
    }
};

struct Nth
{
    static constexpr Core core = Core::nth;
    static Value apply(Evaluator& evaluator, const FormNode* node, Value a, Value b)
    {
        if (!a.isInteger() || !b.isList()) return evaluator.callCore(core, node, {a, b});
        Value list = b;
        for (int left = a.asInteger(); left > 0 && list.isCons(); --left) list = list.asCons()->cdr;
        return list.isCons() && a.asInteger() >= 0 ? list.asCons()->car : Value::nil();
    }
};

} // namespace

namespace hooks {

const Node* car(Compiler& compiler, Cons* form)
{
    return compileUnary<Path<Core::car, 'a'>>(compiler, form);
}
const Node* cdr(Compiler& compiler, Cons* form)
{
    return compileUnary<Path<Core::cdr, 'd'>>(compiler, form);
}
const Node* caar(Compiler& compiler, Cons* form)
{
    return compileUnary<Path<Core::caar, 'a', 'a'>>(compiler, form);
}
const Node* cadr(Compiler& compiler, Cons* form)
{
    return compileUnary<Path<Core::cadr, 'd', 'a'>>(compiler, form);
}
const Node* cdar(Compiler& compiler, Cons* form)
{
    return compileUnary<Path<Core::cdar, 'a', 'd'>>(compiler, form);
}
const Node* cddr(Compiler& compiler, Cons* form)
{
    return compileUnary<Path<Core::cddr, 'd', 'd'>>(compiler, form);
}
const Node* caddr(Compiler& compiler, Cons* form)
{
    return compileUnary<Path<Core::caddr, 'd', 'd', 'a'>>(compiler, form);
}

const Node* nullTest(Compiler& compiler, Cons* form)
{
    return compileUnary<Test<Core::nullTest, isNil>>(compiler, form);
}
const Node* notTest(Compiler& compiler, Cons* form)
{
    return compileUnary<Test<Core::notTest, isNil>>(compiler, form);
}
const Node* listp(Compiler& compiler, Cons* form)
{
    return compileUnary<Test<Core::listp, isList>>(compiler, form);
}
const Node* consp(Compiler& compiler, Cons* form)
{
    return compileUnary<Test<Core::consp, isCons>>(compiler, form);
}
const Node* atom(Compiler& compiler, Cons* form)
{
    return compileUnary<Test<Core::atom, isAtom>>(compiler, form);
}

const Node* cons(Compiler& compiler, Cons* form) { return compileBinary<MakeCons>(compiler, form); }
const Node* eq(Compiler& compiler, Cons* form) { return compileBinary<Eq>(compiler, form); }
const Node* equal(Compiler& compiler, Cons* form) { return compileBinary<Equal>(compiler, form); }
const Node* nth(Compiler& compiler, Cons* form) { return compileBinary<Nth>(compiler, form); }

} // namespace hooks

} // namespace orvald::lisp
