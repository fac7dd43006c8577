// SPDX-License-Identifier: LicenseRef-ORVALD
// Calls of whatever stands for a function: builtins, functions of the program and of applications,
// lists used as functions, forms handed to eval.
#include "evaluator.h"

#include "compiler.h"
#include "printer.h"

#include "text/letters.h"

namespace orvald::lisp {

namespace {

constexpr char16_t kTooFew[] = u"too few arguments";
constexpr char16_t kTooMany[] = u"too many arguments";

} // namespace

Value Evaluator::callSubr(Subr* subr, const FormNode* call, Value* base)
{
    const Builtin& row = *subr->builtin;
    const auto count = static_cast<int>(sp - base);
    if (row.function == nullptr) {
        raiseAt(call, u"bad function: " + printedText(Value::object(subr), Quoting::quoted));
    }
    if (count < row.least) raiseAt(call, kTooFew);
    if (row.most >= 0 && count > row.most) raiseAt(call, kTooMany);
    currentCall = call;
    const Value result = row.function(world, Args(world, base, count));
    sp = base;
    return result;
}

std::u16string Evaluator::undefined(std::u16string_view name) const
{
    std::u16string said(name);
    if (!world.host().lacksFunction(name)) return u"no function definition: " + said;
    for (char16_t& unit : said) unit = text::lowerUnit(unit); // as people write it
    return said + u": not available in this host";
}

Value Evaluator::callValue(Value function, const FormNode* call, Value* base)
{
    if (function.isObject()) {
        Object* object = function.asObject();
        switch (object->kind) {
        case Kind::usubr: {
            auto* lambda = static_cast<Lambda*>(object);
            const auto count = static_cast<int>(sp - base);
            if (count < lambda->parameterCount) raiseAt(call, kTooFew);
            if (count > lambda->parameterCount) raiseAt(call, kTooMany);
            return callLambda(lambda, call, base);
        }
        case Kind::subr: return callSubr(static_cast<Subr*>(object), call, base);
        case Kind::exrxsubr: {
            auto* external = static_cast<External*>(object);
            if (external->function == nullptr) {
                raiseAt(call, undefined(external->name));
            }
            currentCall = call;
            const Value result =
                external->function->call(world, Args(world, base, static_cast<int>(sp - base)));
            sp = base;
            return result;
        }
        default: break;
        }
    } else if (function.isCons()) {
        currentCall = call;
        return callValue(Value::object(lambdaOf(function.asCons())), call, base);
    } else if (function.isNil() && call != nullptr && call->form->car.isSymbol()) {
        raiseAt(call, undefined(call->form->car.asSymbol()->name));
    }
    raiseAt(call, u"bad function: " + printedText(function, Quoting::quoted));
}

Value Evaluator::resolveFunction(Value designator)
{
    Value function = designator;
    if (designator.isSymbol()) {
        function = designator.asSymbol()->value;
        if (function.isNil()) {
            raise(undefined(designator.asSymbol()->name));
        }
    }
    if (function.isCons()) return Value::object(lambdaOf(function.asCons()));
    return function;
}

Value Evaluator::callBack(Value function, Value* base)
{
    const FormNode* const call = currentCall;
    if (function.isNil()) raise(u"bad function: nil");
    if (!isObjectOf(function, Kind::usubr)) safePoint();
    const Value result = callValue(function, call, base);
    currentCall = call;
    return result;
}

Value Evaluator::apply(Value designator, std::span<const Value> args)
{
    enterThread();
    const Value function = resolveFunction(designator);
    requireRoom(args.size() + 1);
    Value* const root = sp;
    *sp++ = function;
    for (const Value arg : args) *sp++ = arg;
    if (stackAddress() < stackLimit) raiseOverflow();
    const Value result = callBack(function, root + 1);
    sp = root;
    return result;
}

Value Evaluator::callCore(Core which, const FormNode* call, std::initializer_list<Value> operands)
{
    Value* const base = sp;
    for (const Value operand : operands) *sp++ = operand;
    return callSubr(static_cast<Subr*>(coreSymbol(which).builtin.asObject()), call, base);
}

// -- forms and lists as code

Lambda* Evaluator::thunkOf(CellTable<Lambda*>& table, Cons* form, bool general)
{
    if (Lambda* const* known = table.find(form)) return *known;
    Lambda* thunk = heap.make<Lambda>();
    Compiler::makeLazy(*thunk);
    thunk->bodyForms = Value::cons(heap.makeCons(Value::cons(form), Value::nil()));
    if (general) Compiler(*this, *thunk).compileGeneralCall(form);
    table.set(form, thunk);
    return thunk;
}

Value Evaluator::evalForm(Value form)
{
    if (form.isSymbol()) return form.asSymbol()->value;
    if (!form.isCons()) return form;
    const FormNode* const call = currentCall;
    const Value result = callLambda<0>(thunkOf(thunks_, form.asCons(), false), call, sp);
    currentCall = call;
    return result;
}

Value Evaluator::runRedefined(const FormNode* node)
{
    return callLambda<0>(thunkOf(generalThunks_, node->form, true), nullptr, sp);
}

Lambda* Evaluator::lambdaOf(Cons* list)
{
    if (Lambda* const* known = listFunctions_.find(list)) return *known;
    Value parameters = list->car;
    Value body = list->cdr;
    if (parameters == Value::symbol(&coreSymbol(Core::lambda).symbol)) {
        parameters = car(list->cdr);
        body = cdr(list->cdr);
    }
    Lambda* lambda = Compiler::makeLambda(*this, nullptr, parameters, body);
    if (lambda == nullptr) {
        raise(u"bad function: " + printedText(Value::cons(list), Quoting::quoted, 200));
    }
    listFunctions_.set(list, lambda);
    return lambda;
}

} // namespace orvald::lisp
