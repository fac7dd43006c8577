// SPDX-License-Identifier: LicenseRef-ORVALD
// Thin LISP functions: adapt<primitive> reads the arguments by the primitive's parameter types,
// calls it and returns its result, nil for a real that is not finite. A row is all that such a
// function needs:
//
//     {KT("kex_g_bulg_ang"), adapt<g_bulg_ang>, KT("num b"), KT("real")},
#pragma once

#include "marshal/arg_reader.h"
#include "marshal/ret_ads.h"

#include <cmath>
#include <tuple>
#include <type_traits>
#include <utility>

namespace KEX {
namespace adapting {

template <class T>
T read(ArgReader& in, int position)
{
    if constexpr (std::is_same_v<T, bool>) return in.flag();
    else if constexpr (std::is_same_v<T, int>) return in.integer(position);
    else if constexpr (std::is_same_v<T, double>) return in.number(position);
    else if constexpr (std::is_same_v<T, CKexString>) return in.string(position);
    else if constexpr (std::is_same_v<T, TextView>) return in.text(position);
    else if constexpr (std::is_same_v<T, CKexPoint3d>) return in.point(position);
    else if constexpr (std::is_same_v<T, CKexVertexArray>) return in.vertexList(position);
    else static_assert(!sizeof(T), "no reader for this parameter type");
}

template <class Result, class... Parameters, class Primitive>
int call(Primitive primitive, const resbuf* args)
{
    ArgReader in(args);
    // A function of one argument names no position.
    constexpr int kFirst = sizeof...(Parameters) == 1 ? 0 : 1;
    const auto readAll = [&in]<int... I>(std::integer_sequence<int, I...>)
    {
        // Braces: the arguments are read in order.
        return std::tuple<Parameters...>{read<Parameters>(in, kFirst + I)...};
    };
    const auto values = readAll(std::make_integer_sequence<int, sizeof...(Parameters)>());
    if (in.failed()) return in.fail();
    const auto result = std::apply(primitive, values);
    // LISP has no numbers beyond the finite ones.
    if constexpr (std::is_same_v<Result, double>) {
        if (!std::isfinite(result)) return retAds(false);
    }
    return retAds(result);
}

template <class Result, class... Parameters>
int call(Result (*primitive)(Parameters...), const resbuf* args)
{
    return call<Result, std::remove_cvref_t<Parameters>...>(
        [primitive](const auto&... values) { return primitive(values...); }, args);
}

template <class Result, class Object>
int call(Result (Object::*primitive)() const, const resbuf* args)
{
    return call<Result, Object>([primitive](const Object& o) { return (o.*primitive)(); }, args);
}

} // namespace adapting

/// A handler for a primitive: a free function, or a query of a kernel type.
template <auto Primitive>
int adapt(const resbuf* args)
{
    return adapting::call(Primitive, args);
}

} // namespace KEX
