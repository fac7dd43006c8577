// SPDX-License-Identifier: LicenseRef-ORVALD
// vl-sort, vl-sort-i, acad_strlsort: merge sort on the evaluation stack. It is stable, and a
// predicate that contradicts itself gives some order but never a fault.
#include "builtins/tables.h"

#include "equality.h"
#include "evaluator.h"

#include <algorithm>

namespace orvald::lisp {

namespace {

constexpr std::ptrdiff_t kInsertionRun = 6;

// Sorts [first, first + count) with `scratch` of the same size; `before(a, b)`: a comes before b.
// The list that is being sorted keeps the elements alive while `before` runs.
template <class Before>
void mergeSort(Value* first, Value* scratch, std::ptrdiff_t count, Before& before)
{
    for (std::ptrdiff_t run = 0; run < count; run += kInsertionRun) {
        const std::ptrdiff_t end = std::min(run + kInsertionRun, count);
        for (std::ptrdiff_t i = run + 1; i < end; ++i) {
            std::ptrdiff_t place = i;
            while (place > run && before(first[i], first[place - 1])) --place;
            std::rotate(first + place, first + i, first + i + 1);
        }
    }
    Value* from = first;
    Value* to = scratch;
    for (std::ptrdiff_t width = kInsertionRun; width < count; width *= 2) {
        for (std::ptrdiff_t begin = 0; begin < count; begin += 2 * width) {
            const std::ptrdiff_t middle = std::min(begin + width, count);
            const std::ptrdiff_t end = std::min(begin + 2 * width, count);
            std::ptrdiff_t left = begin;
            std::ptrdiff_t right = middle;
            std::ptrdiff_t out = begin;
            while (left < middle && right < end) {
                to[out++] = before(from[right], from[left]) ? from[right++] : from[left++];
            }
            while (left < middle) to[out++] = from[left++];
            while (right < end) to[out++] = from[right++];
        }
        std::swap(from, to);
    }
    if (from != first) std::copy(from, from + count, first);
}

// What the elements are, when a sort by < or > needs no call.
enum class Elements
{
    mixed,
    numbers,
    strings
};

Elements elementsOf(const Value* first, std::ptrdiff_t count)
{
    const auto all = [&](auto test) { return std::all_of(first, first + count, test); };
    if (all([](Value value) { return value.isNumber(); })) return Elements::numbers;
    if (all([](Value value) { return isString(value); })) return Elements::strings;
    return Elements::mixed;
}

// Sorts the elements at `first`, whose keys `key` finds, by the predicate.
template <class Key>
void sortBy(Evaluator& evaluator, Value predicate, Value* first, std::ptrdiff_t count, Key key,
            Elements elements)
{
    Value* const root = evaluator.sp;
    evaluator.requireRoom(static_cast<std::size_t>(count) + 3);
    Value* const scratch = root;
    std::copy(first, first + count, scratch);
    evaluator.sp += count;
    *evaluator.sp++ = predicate;
    Value* const base = evaluator.sp;

    const auto isBuiltin = [&](Core core) {
        return predicate == evaluator.core[static_cast<std::size_t>(core)].builtin;
    };
    const bool ascending = isBuiltin(Core::less);
    if (elements != Elements::mixed && (ascending || isBuiltin(Core::greater))) {
        const auto sortPlain = [&](auto less) {
            auto before = [&](Value a, Value b) {
                return ascending ? less(key(a), key(b)) : less(key(b), key(a));
            };
            mergeSort(first, scratch, count, before);
        };
        if (elements == Elements::numbers) {
            sortPlain([](Value a, Value b) { return a.asNumber() < b.asNumber(); });
        } else {
            sortPlain([](Value a, Value b) { return stringOf(a) < stringOf(b); });
        }
    } else {
        auto before = [&](Value a, Value b) {
            *evaluator.sp++ = key(a);
            *evaluator.sp++ = key(b);
            return !evaluator.callBack(predicate, base).isNil();
        };
        mergeSort(first, scratch, count, before);
    }
    evaluator.sp = root;
}

std::ptrdiff_t pushElements(Evaluator& evaluator, Value list)
{
    Value* const first = evaluator.sp;
    for (; list.isCons(); list = list.asCons()->cdr) evaluator.push(list.asCons()->car);
    return evaluator.sp - first;
}

Value listOf(World& world, const Value* first, std::ptrdiff_t count)
{
    Value result;
    while (count > 0) result = world.makeCons(first[--count], result);
    return result;
}

Value sort(World& world, Args args)
{
    Evaluator& evaluator = evaluatorOf(world);
    Value* const first = evaluator.sp;
    std::ptrdiff_t count = pushElements(evaluator, args.list(0));
    sortBy(
        evaluator, evaluator.resolveFunction(args[1]), first, count,
        [](Value item) { return item; }, elementsOf(first, count));
    // Integers and symbols that are the same element stay once; nothing else is dropped.
    count =
        std::unique(first, first + count,
                    [](Value a, Value b) { return a == b && (a.isInteger() || a.isSymbol()); }) -
        first;
    evaluator.sp = first;
    return listOf(world, first, count);
}

Value sortIndices(World& world, Args args)
{
    Evaluator& evaluator = evaluatorOf(world);
    Value* const items = evaluator.sp;
    const std::ptrdiff_t count = pushElements(evaluator, args.list(0));
    const Elements elements = elementsOf(items, count);
    Value* const indices = evaluator.sp;
    // Of equal elements the later comes first, as programs know this function.
    for (std::ptrdiff_t i = count; i-- > 0;) {
        evaluator.push(Value::integer(static_cast<std::int32_t>(i)));
    }
    sortBy(
        evaluator, evaluator.resolveFunction(args[1]), indices, count,
        [items](Value index) { return items[index.asInteger()]; }, elements);
    evaluator.sp = items;
    return listOf(world, indices, count);
}

Value sortStrings(World& world, Args args)
{
    Evaluator& evaluator = evaluatorOf(world);
    Value* const first = evaluator.sp;
    const std::ptrdiff_t count = pushElements(evaluator, args.list(0));
    for (std::ptrdiff_t i = 0; i < count; ++i) {
        if (!isString(first[i])) world.badArgument("stringp", first[i]);
    }
    sortBy(
        evaluator, evaluator.core[static_cast<std::size_t>(Core::less)].builtin, first, count,
        [](Value item) { return item; }, Elements::strings);
    evaluator.sp = first;
    return listOf(world, first, count);
}

constexpr Builtin kTable[] = {
    {"vl-sort", sort, 2, 2},
    {"vl-sort-i", sortIndices, 2, 2},
    {"acad_strlsort", sortStrings, 1, 1},
};

} // namespace

std::span<const Builtin> sortBuiltins() { return kTable; }

} // namespace orvald::lisp
