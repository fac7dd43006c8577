// SPDX-License-Identifier: LicenseRef-ORVALD
// vl-sort, vl-sort-i, acad_strlsort: merge sort. It is stable, and a predicate that contradicts
// itself gives some order but never a fault.
#include "builtins/tables.h"

#include "equality.h"
#include "evaluator.h"

#include <algorithm>
#include <vector>

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

Elements kindOfAll(const std::vector<Value>& items)
{
    const auto all = [&](auto test) { return std::all_of(items.begin(), items.end(), test); };
    if (all([](Value value) { return value.isNumber(); })) return Elements::numbers;
    if (all([](Value value) { return isString(value); })) return Elements::strings;
    return Elements::mixed;
}

// Sorts `items` by the predicate on their keys.
template <class Key>
void sortBy(Evaluator& evaluator, Value predicate, std::vector<Value>& items, Key key,
            Elements elements)
{
    std::vector<Value> scratch(items.size());
    const auto sortWith = [&](auto before) {
        mergeSort(items.data(), scratch.data(), static_cast<std::ptrdiff_t>(items.size()), before);
    };
    const auto isBuiltin = [&](Core core) {
        return predicate == evaluator.coreSymbol(core).builtin;
    };
    const bool ascending = isBuiltin(Core::less);
    if (elements != Elements::mixed && (ascending || isBuiltin(Core::greater))) {
        const auto sortPlain = [&](auto less) {
            sortWith([&](Value a, Value b) {
                return ascending ? less(key(a), key(b)) : less(key(b), key(a));
            });
        };
        if (elements == Elements::numbers) {
            sortPlain([](Value a, Value b) { return a.asNumber() < b.asNumber(); });
        } else {
            sortPlain([](Value a, Value b) { return stringOf(a) < stringOf(b); });
        }
        return;
    }
    Value* const root = evaluator.sp;
    evaluator.push(predicate);
    Value* const base = evaluator.sp;
    sortWith([&](Value a, Value b) {
        evaluator.push(key(a));
        evaluator.push(key(b));
        return !evaluator.callBack(predicate, base).isNil();
    });
    evaluator.sp = root;
}

std::vector<Value> elementsIn(Value list)
{
    std::vector<Value> items;
    for (; list.isCons(); list = list.asCons()->cdr) items.push_back(list.asCons()->car);
    return items;
}

Value listOf(World& world, const std::vector<Value>& items)
{
    Value result;
    for (auto item = items.rbegin(); item != items.rend(); ++item) {
        result = world.makeCons(*item, result);
    }
    return result;
}

Value itself(Value item) { return item; }

Value sort(World& world, Args args)
{
    Evaluator& evaluator = evaluatorOf(world);
    std::vector<Value> items = elementsIn(args.list(0));
    sortBy(evaluator, evaluator.resolveFunction(args[1]), items, itself, kindOfAll(items));
    // Integers and symbols that are the same element stay once; nothing else is dropped.
    const auto isSame = [](Value a, Value b) { return a == b && (a.isInteger() || a.isSymbol()); };
    items.erase(std::unique(items.begin(), items.end(), isSame), items.end());
    return listOf(world, items);
}

Value sortIndices(World& world, Args args)
{
    Evaluator& evaluator = evaluatorOf(world);
    const std::vector<Value> items = elementsIn(args.list(0));
    // Of equal elements the later comes first, as programs know this function.
    std::vector<Value> indices;
    for (std::size_t i = items.size(); i-- > 0;) {
        indices.push_back(Value::integer(static_cast<std::int32_t>(i)));
    }
    sortBy(
        evaluator, evaluator.resolveFunction(args[1]), indices,
        [&](Value index) { return items[static_cast<std::size_t>(index.asInteger())]; },
        kindOfAll(items));
    return listOf(world, indices);
}

Value sortStrings(World& world, Args args)
{
    Evaluator& evaluator = evaluatorOf(world);
    std::vector<Value> items = elementsIn(args.list(0));
    for (const Value item : items) {
        if (!isString(item)) world.badArgument("stringp", item);
    }
    sortBy(evaluator, evaluator.coreSymbol(Core::less).builtin, items, itself, Elements::strings);
    return listOf(world, items);
}

constexpr Builtin kTable[] = {
    {"vl-sort", sort, 2, 2},
    {"vl-sort-i", sortIndices, 2, 2},
    {"acad_strlsort", sortStrings, 1, 1},
};

} // namespace

std::span<const Builtin> sortBuiltins() { return kTable; }

} // namespace orvald::lisp
