// SPDX-License-Identifier: LicenseRef-ORVALD
// The vlax-curve functions: entities, by name or as automation objects, as curves. Points in world
// coordinates, parameters and lengths as the curve has them; what the curve does not have (beyond
// its ends, beside it, the area of one that does not lie in a plane) is nil.
#include "document.h"
#include "drawing/curve.h"
#include "drawing_functions.h"
#include "entity_list.h"

#include <cmath>

namespace orvald {
namespace {

using drawing::Curve;
using drawing::Jet;
using drawing::Point;
using lisp::Args;
using lisp::Value;
using lisp::World;

Curve curveArgument(World& world, Args args)
{
    const drawing::Drawing& drawing = Document::of(world).drawing();
    const Value stand = args[0];
    const bool isObject = stand.kind() == lisp::Kind::vlaObject && !world.isVlaReleased(stand);
    const Value name = isObject ? world.vlaEntity(stand) : stand;
    const drawing::Index index = drawing.indexOf({Args(world, &name, 1).entity(0)});
    std::optional<Curve> curve;
    if (index != drawing::kNone && !drawing.at(index).erased) curve = Curve::of(drawing, index);
    if (!curve) world.badArgument("curve", args[0]);
    return *std::move(curve);
}

Point pointArgument(Args args, int index)
{
    const Args::Point point = args.point(index);
    return {point.x, point.y, point.z};
}

Value realOrNil(std::optional<double> value) { return value ? Value::real(*value) : Value::nil(); }

Value pointOrNil(World& world, const std::optional<Jet>& jet, Point Jet::*part)
{
    return jet ? pointValue(world, *jet.*part) : Value::nil();
}

// -- ends

// (vlax-curve-getStartParam curve) -> real or nil
Value startParam(World& world, Args args)
{
    const double start = curveArgument(world, args).start();
    return std::isinf(start) ? Value::nil() : Value::real(start);
}

// (vlax-curve-getEndParam curve) -> real or nil
Value endParam(World& world, Args args)
{
    const double end = curveArgument(world, args).end();
    return std::isinf(end) ? Value::nil() : Value::real(end);
}

// (vlax-curve-getStartPoint curve) -> point or nil
Value startPoint(World& world, Args args)
{
    const Curve curve = curveArgument(world, args);
    return pointOrNil(world, curve.at(curve.start()), &Jet::at);
}

// (vlax-curve-getEndPoint curve) -> point or nil
Value endPoint(World& world, Args args)
{
    const Curve curve = curveArgument(world, args);
    return pointOrNil(world, curve.at(curve.end()), &Jet::at);
}

// -- from one way of naming a place to another

// (vlax-curve-getPointAtParam curve param) -> point or nil
Value pointAtParam(World& world, Args args)
{
    return pointOrNil(world, curveArgument(world, args).at(args.number(1)), &Jet::at);
}

// (vlax-curve-getPointAtDist curve dist) -> point or nil
Value pointAtDist(World& world, Args args)
{
    const Curve curve = curveArgument(world, args);
    const std::optional<double> parameter = curve.parameterAtLength(args.number(1));
    return parameter ? pointOrNil(world, curve.at(*parameter), &Jet::at) : Value::nil();
}

// (vlax-curve-getParamAtDist curve dist) -> real or nil
Value paramAtDist(World& world, Args args)
{
    return realOrNil(curveArgument(world, args).parameterAtLength(args.number(1)));
}

// (vlax-curve-getParamAtPoint curve point) -> real or nil
Value paramAtPoint(World& world, Args args)
{
    return realOrNil(curveArgument(world, args).parameterOf(pointArgument(args, 1)));
}

// (vlax-curve-getDistAtParam curve param) -> real or nil
Value distAtParam(World& world, Args args)
{
    return realOrNil(curveArgument(world, args).lengthTo(args.number(1)));
}

// (vlax-curve-getDistAtPoint curve point) -> real or nil
Value distAtPoint(World& world, Args args)
{
    const Curve curve = curveArgument(world, args);
    const std::optional<double> parameter = curve.parameterOf(pointArgument(args, 1));
    return parameter ? realOrNil(curve.lengthTo(*parameter)) : Value::nil();
}

// (vlax-curve-getFirstDeriv curve param) -> vector or nil
Value firstDeriv(World& world, Args args)
{
    return pointOrNil(world, curveArgument(world, args).at(args.number(1)), &Jet::first);
}

// (vlax-curve-getSecondDeriv curve param) -> vector or nil
Value secondDeriv(World& world, Args args)
{
    return pointOrNil(world, curveArgument(world, args).at(args.number(1)), &Jet::second);
}

// -- nearest points

// (vlax-curve-getClosestPointTo curve point [extend]) -> point
Value closestPoint(World& world, Args args)
{
    const Curve curve = curveArgument(world, args);
    return pointValue(world, curve.nearest(pointArgument(args, 1), !args.at(2).isNil()));
}

// (vlax-curve-getClosestPointToProjection curve point normal [extend]) -> point
Value closestPointToProjection(World& world, Args args)
{
    const Curve curve = curveArgument(world, args);
    const Point place = pointArgument(args, 1), normal = pointArgument(args, 2);
    return pointValue(world, curve.nearest(place, !args.at(3).isNil(), &normal));
}

// -- the whole

// (vlax-curve-getArea curve) -> real or nil
Value area(World& world, Args args) { return realOrNil(curveArgument(world, args).area()); }

// (vlax-curve-isClosed curve) -> T or nil
Value isClosed(World& world, Args args)
{
    return world.boolean(curveArgument(world, args).isClosed());
}

// (vlax-curve-isPeriodic curve) -> T or nil
Value isPeriodic(World& world, Args args)
{
    return world.boolean(curveArgument(world, args).isPeriodic());
}

// (vlax-curve-isPlanar curve) -> T or nil
Value isPlanar(World& world, Args args)
{
    return world.boolean(curveArgument(world, args).isPlanar());
}

constexpr lisp::Builtin kTable[] = {
    {"vlax-curve-getArea", area, 1, 1},
    {"vlax-curve-getClosestPointTo", closestPoint, 2, 3},
    {"vlax-curve-getClosestPointToProjection", closestPointToProjection, 3, 4},
    {"vlax-curve-getDistAtParam", distAtParam, 2, 2},
    {"vlax-curve-getDistAtPoint", distAtPoint, 2, 2},
    {"vlax-curve-getEndParam", endParam, 1, 1},
    {"vlax-curve-getEndPoint", endPoint, 1, 1},
    {"vlax-curve-getFirstDeriv", firstDeriv, 2, 2},
    {"vlax-curve-getParamAtDist", paramAtDist, 2, 2},
    {"vlax-curve-getParamAtPoint", paramAtPoint, 2, 2},
    {"vlax-curve-getPointAtDist", pointAtDist, 2, 2},
    {"vlax-curve-getPointAtParam", pointAtParam, 2, 2},
    {"vlax-curve-getSecondDeriv", secondDeriv, 2, 2},
    {"vlax-curve-getStartParam", startParam, 1, 1},
    {"vlax-curve-getStartPoint", startPoint, 1, 1},
    {"vlax-curve-isClosed", isClosed, 1, 1},
    {"vlax-curve-isPeriodic", isPeriodic, 1, 1},
    {"vlax-curve-isPlanar", isPlanar, 1, 1},
};

} // namespace

std::span<const lisp::Builtin> curveFunctions() { return kTable; }

} // namespace orvald
