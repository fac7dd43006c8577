// SPDX-License-Identifier: LicenseRef-ORVALD
// Thin LISP functions: adapt<primitive> reads the arguments by the primitive's parameter types,
// calls it and returns its result: nil for nothing, and for a result with a number that is not
// finite. A row is all that such a function needs:
//
//     {KT("kex_g_bulg_ang"), adapt<g_bulg_ang>, KT("num b"), KT("real")},
//
// A parameter of type bool is a flag that may be missing; a std::optional and a list of numbers are
// arguments that may be missing or nil. What LISP need not give, or cannot, stands behind the
// primitive, for its last parameters, as functions: one of an ArgReader and a position reads an
// argument, one without parameters gives a value of its own:
//
//     {KT("kex_g_equal"), adapt<g_equal, orElse<lengthTolerance>>, ...},  optional, else _RNDL
//     {KT("kex_g_side"), adapt<g_side, lengthTolerance>, ...},            always _RNDL
#pragma once

#include "marshal/arg_reader.h"
#include "marshal/ret_ads.h"
#include "marshal/tolerances.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <tuple>
#include <type_traits>
#include <utility>

namespace KEX {

/// Reads an argument that may be missing or nil; `fallback` is then a number, or what a function
/// without parameters gives.
template <auto fallback>
auto orElse(ArgReader& in, int position)
{
    if constexpr (std::is_invocable_v<decltype(fallback)>) {
        const std::optional<double> given = in.numberIfAny(position);
        return given.has_value() ? *given : fallback();
    } else if constexpr (std::is_same_v<decltype(fallback), int>) {
        return in.integerIfAny(position).value_or(fallback);
    } else {
        return in.numberIfAny(position).value_or(fallback);
    }
}

/// A flag behind arguments that may be missing.
inline bool flagIfAny(ArgReader& in, int) { return in.flag(); }

namespace adapting {

template <class T>
inline constexpr bool kIsOptional = false;
template <class T>
inline constexpr bool kIsOptional<std::optional<T>> = true;

template <class T>
T read(ArgReader& in, int position)
{
    if constexpr (std::is_same_v<T, bool>) return in.flag();
    else if constexpr (std::is_same_v<T, int>) return in.integer(position);
    else if constexpr (std::is_same_v<T, double>) return in.number(position);
    else if constexpr (std::is_same_v<T, CKexString>) return in.string(position);
    else if constexpr (std::is_same_v<T, TextView>) return in.text(position);
    else if constexpr (std::is_same_v<T, CKexPoint3d>) return in.point(position);
    else if constexpr (std::is_same_v<T, CKexVector3d>) return in.vector(position);
    else if constexpr (std::is_same_v<T, CKexMatrix3d>) return in.matrix(position);
    else if constexpr (std::is_same_v<T, Plane>) return in.plane(position);
    else if constexpr (std::is_same_v<T, CKexPoint3dArray>) return in.pointList(position);
    else if constexpr (std::is_same_v<T, CKexArrayTempl<double>>)
        return in.numberListIfAny(position);
    else if constexpr (std::is_same_v<T, CKexArrayTempl<CKexString>>)
        return in.stringList(position);
    else if constexpr (std::is_same_v<T, CKexVertexArray>) return in.vertexList(position);
    else if constexpr (std::is_same_v<T, CAdsName>) return in.ename(position);
    else if constexpr (std::is_same_v<T, CKexEnameArray>) return in.enames(position);
    else if constexpr (kIsOptional<T>) {
        if (in.absent()) return T();
        return T(read<typename T::value_type>(in, position));
    } else static_assert(!sizeof(T), "no reader for this parameter type");
}

template <auto Supply>
inline constexpr bool kReads = !std::is_invocable_v<decltype(Supply)>;

/// `next` is the position of the next argument.
template <auto Supply>
auto supplied(ArgReader& in, int& next)
{
    if constexpr (kReads<Supply>) return Supply(in, next++);
    else return Supply();
}

// LISP has no numbers beyond the finite ones.
inline bool isFinite(double value) { return std::isfinite(value); }
inline bool isFinite(const CKexVector3d& v)
{
    return isFinite(v.x) && isFinite(v.y) && isFinite(v.z);
}
inline bool isFinite(const CKexPoint3d& p) { return isFinite(p.asVector()); }
inline bool isFinite(const Line& line) { return isFinite(line.start) && isFinite(line.end); }
inline bool isFinite(const Box& box) { return isFinite(Line{box.min, box.max}); }
inline bool isFinite(const Plane& plane)
{
    return isFinite(plane.origin) && isFinite(plane.normal);
}
inline bool isFinite(const CKexVertex& vertex)
{
    return isFinite(Line{vertex.startPoint(), vertex.endPoint()}) && isFinite(vertex.bulge());
}
inline bool isFinite(const CKexMatrix3d& matrix)
{
    bool finite = true;
    for (int cell = 0; cell < 12; ++cell) finite = finite && isFinite(matrix(cell / 4, cell % 4));
    return finite;
}
template <class T>
bool isFinite(const T& value)
{
    if constexpr (kIsOptional<T>) return !value.has_value() || isFinite(*value);
    else if constexpr (requires { value.begin(); })
        return std::ranges::all_of(value, [](const auto& item) { return isFinite(item); });
    else return true;
}

template <class Result>
int give(const Result& result)
{
    return isFinite(result) ? retAds(result) : retAds(false);
}

/// The first argument has the position kFirst.
template <int kFirst, auto... Supplies, class Result, class... Parameters, class Primitive>
int call(std::type_identity<Result(Parameters...)>, const Primitive& primitive, const resbuf* args)
{
    using Values = std::tuple<std::remove_cvref_t<Parameters>...>;
    constexpr int kPlain = sizeof...(Parameters) - sizeof...(Supplies);
    ArgReader in(args);
    const auto readAll = [&in]<int... I>(std::integer_sequence<int, I...>)
    {
        [[maybe_unused]] int next = kFirst + kPlain;
        // Braces: the arguments are read in order.
        return Values{read<std::tuple_element_t<I, Values>>(in, kFirst + I)...,
                      supplied<Supplies>(in, next)...};
    };
    const Values values = readAll(std::make_integer_sequence<int, kPlain>());
    if (in.failed()) return in.fail();
    return give<Result>(std::apply(primitive, values));
}

template <class Result, class... Parameters>
std::type_identity<Result(Parameters...)> signature(Result (*)(Parameters...));
template <class Result, class Object>
std::type_identity<Result(Object)> signature(Result (Object::*)() const);

template <class Result, class... Parameters>
constexpr int countOf(std::type_identity<Result(Parameters...)>)
{
    return sizeof...(Parameters);
}

} // namespace adapting

/// A handler for a primitive: a free function, or a query of a kernel type.
template <auto Primitive, auto... Supplies>
int adapt(const resbuf* args)
{
    using namespace adapting;
    constexpr decltype(signature(Primitive)) kSignature;
    constexpr int kGiven = (0 + ... + (kReads<Supplies> ? 0 : 1));
    // A function of one argument names no position.
    constexpr int kFirst = countOf(kSignature) - kGiven == 1 ? 0 : 1;
    return call<kFirst, Supplies...>(
        kSignature, [](const auto&... v) { return std::invoke(Primitive, v...); }, args);
}

/// The same for a function that names the position of its argument though it has only one.
template <auto Primitive, auto... Supplies>
int adaptNumbered(const resbuf* args)
{
    using namespace adapting;
    return call<1, Supplies...>(
        decltype(signature(Primitive))(),
        [](const auto&... v) { return std::invoke(Primitive, v...); }, args);
}

} // namespace KEX
