// SPDX-License-Identifier: LicenseRef-ORVALD
// Functions that take a function: apply, mapcar and the tests of every element. While the program's
// function runs, garbage may be collected: lists and results stand on the evaluation stack.
#include "builtins/tables.h"

#include "evaluator.h"

namespace orvald::lisp {

namespace {

Value apply(World& world, Args args)
{
    Evaluator& evaluator = evaluatorOf(world);
    Value* const root = evaluator.sp;
    evaluator.push(evaluator.resolveFunction(args[0]));
    for (Value rest = args.list(1); rest.isCons(); rest = rest.asCons()->cdr) {
        evaluator.push(rest.asCons()->car);
    }
    const Value result = evaluator.callBack(*root, root + 1);
    evaluator.sp = root;
    return result;
}

// A list of results that grows on the stack: the first cell keeps the others.
class RootedList
{
public:
    explicit RootedList(Evaluator& evaluator) : evaluator_(evaluator), place_(evaluator.sp)
    {
        evaluator.push(Value::nil());
    }
    void add(Value item)
    {
        Cons* cell = evaluator_.heap.makeCons(item, Value::nil());
        if (last_ == nullptr) {
            *place_ = Value::cons(cell);
        } else {
            last_->cdr = Value::cons(cell);
        }
        last_ = cell;
    }
    Value list() const { return *place_; }

private:
    Evaluator& evaluator_;
    Value* place_;
    Cons* last_ = nullptr;
};

// Several lists walked side by side, up to the end of the shortest.
class ParallelLists
{
public:
    ParallelLists(Evaluator& evaluator, Args args) : evaluator_(evaluator), rests_(evaluator.sp)
    {
        for (int i = 1; i < args.size(); ++i) evaluator.push(args.list(i));
        base_ = evaluator.sp;
    }
    /// Pushes the next element of each list from base() on; false when one has ended.
    bool pushNext()
    {
        for (Value* rest = rests_; rest != base_; ++rest) {
            if (!rest->isCons()) return false;
            evaluator_.push(rest->asCons()->car);
            *rest = rest->asCons()->cdr;
        }
        return true;
    }
    Value* base() const { return base_; }

private:
    Evaluator& evaluator_;
    Value* rests_;
    Value* base_;
};

Value mapcar(World& world, Args args)
{
    Evaluator& evaluator = evaluatorOf(world);
    Value* const root = evaluator.sp;
    evaluator.push(evaluator.resolveFunction(args[0]));
    RootedList results(evaluator);
    ParallelLists lists(evaluator, args);
    while (lists.pushNext()) results.add(evaluator.callBack(*root, lists.base()));
    evaluator.sp = root;
    return results.list();
}

// Calls `visit(rest, answer)` with the answer of the function for the first element of `rest`,
// until it returns false or the list ends.
template <class Visit>
void forEach(World& world, Args args, Visit&& visit)
{
    Evaluator& evaluator = evaluatorOf(world);
    Value* const root = evaluator.sp;
    evaluator.push(evaluator.resolveFunction(args[0]));
    for (Value rest = args.list(1); rest.isCons(); rest = rest.asCons()->cdr) {
        Value* const base = evaluator.sp;
        evaluator.push(rest.asCons()->car);
        if (!visit(rest, evaluator.callBack(*root, base))) break;
    }
    evaluator.sp = root;
}

Value filtered(World& world, Args args, bool keepWhenTrue)
{
    Evaluator& evaluator = evaluatorOf(world);
    Value* const root = evaluator.sp;
    RootedList results(evaluator);
    forEach(world, args, [&](Value rest, Value answer) {
        if (answer.isNil() != keepWhenTrue) results.add(rest.asCons()->car);
        return true;
    });
    evaluator.sp = root;
    return results.list();
}

Value removeIf(World& world, Args args) { return filtered(world, args, false); }
Value removeIfNot(World& world, Args args) { return filtered(world, args, true); }

Value firstWhere(World& world, Args args, bool wanted)
{
    Value result;
    forEach(world, args, [&](Value rest, Value answer) {
        if (answer.isNil() == wanted) return true;
        result = rest;
        return false;
    });
    return result;
}

Value memberIf(World& world, Args args) { return firstWhere(world, args, true); }
Value memberIfNot(World& world, Args args) { return firstWhere(world, args, false); }

// Over several lists at once; ends with the first answer that `stop` takes.
template <class Stop>
Value search(World& world, Args args, Value otherwise, Stop&& stop)
{
    Evaluator& evaluator = evaluatorOf(world);
    Value* const root = evaluator.sp;
    evaluator.push(evaluator.resolveFunction(args[0]));
    ParallelLists lists(evaluator, args);
    Value result = otherwise;
    while (lists.pushNext()) {
        const Value answer = evaluator.callBack(*root, lists.base());
        if (stop(answer)) {
            result = answer;
            break;
        }
    }
    evaluator.sp = root;
    return result;
}

Value some(World& world, Args args)
{
    return search(world, args, Value::nil(), [](Value answer) { return !answer.isNil(); });
}

Value every(World& world, Args args)
{
    return search(world, args, world.t(), [](Value answer) { return answer.isNil(); });
}

constexpr Builtin kTable[] = {
    {"apply", apply, 2, 2},
    {"mapcar", mapcar, 2},
    {"vl-remove-if", removeIf, 2, 2},
    {"vl-remove-if-not", removeIfNot, 2, 2},
    {"vl-member-if", memberIf, 2, 2},
    {"vl-member-if-not", memberIfNot, 2, 2},
    {"vl-some", some, 2},
    {"vl-every", every, 2},
};

} // namespace

std::span<const Builtin> mappingBuiltins() { return kTable; }

} // namespace orvald::lisp
