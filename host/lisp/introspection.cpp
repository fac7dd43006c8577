// SPDX-License-Identifier: LicenseRef-ORVALD
// A world as seen from outside: what is bound, what is known of a function, how much was done.
#include "evaluator.h"

namespace orvald::lisp {

namespace {

FunctionShape shapeOfBuiltin(const Subr& subr)
{
    if (subr.special) return {FunctionShape::Sort::special, 0, -1, {}, {}};
    return {FunctionShape::Sort::builtin, subr.builtin->least, subr.builtin->most, {}, {}};
}

} // namespace

void World::forEachBound(
    const std::function<void(std::u16string_view name, Value value)>& visit) const
{
    evaluator_->symbols.forEach([&](const Symbol& symbol) {
        if (!symbol.value.isNil()) visit(symbol.name, symbol.value);
    });
}

std::optional<FunctionShape> World::shapeOf(Value function) const
{
    if (!function.isObject()) return std::nullopt;
    switch (function.asObject()->kind) {
    case Kind::subr: return shapeOfBuiltin(*static_cast<const Subr*>(function.asObject()));
    case Kind::exrxsubr: return FunctionShape{FunctionShape::Sort::application, 0, -1, {}, {}};
    case Kind::usubr: {
        const auto& lambda = *static_cast<const Lambda*>(function.asObject());
        FunctionShape shape{FunctionShape::Sort::program, 0, -1, {}, {}};
        shape.parameters = prin1(lambda.parameterList);
        shape.place = evaluator_->placeOfFunction(lambda);
        return shape;
    }
    default: return std::nullopt;
    }
}

WorkDone World::workDone() const
{
    return {evaluator_->heap.allocated(), evaluator_->heap.collections()};
}

CallPlace Evaluator::placeOfFunction(const Lambda& lambda)
{
    // The list of the parameters stands where the function begins; an empty one is no list.
    Value nearest = lambda.parameterList;
    for (Value rest = lambda.bodyForms; !nearest.isCons() && rest.isCons(); rest = cdr(rest)) {
        nearest = car(rest);
    }
    return nearest.isCons() ? placeOf(nearest.asCons()) : CallPlace{};
}

} // namespace orvald::lisp
