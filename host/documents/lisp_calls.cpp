// SPDX-License-Identifier: LicenseRef-ORVALD
// LISP functions of applications: definition, the running call, its arguments and its result.
#include "application.h"
#include "document.h"
#include "host.h"
#include "hostapi/lisp.h"
#include "resbuf/groups.h"
#include "text/letters.h"
#include "value_chain.h"

#include <climits>

namespace orvald {
namespace {

using lisp::Value;

constexpr int kHighestCode = 32767;

/// Sets the running call's result.
template <typename Make>
int answer(Make&& make)
{
    CallFrame* frame = CallFrame::innermost;
    if (frame == nullptr) return RTERROR;
    const std::optional<Value> value = make(frame->world);
    if (!value) return RTERROR;
    frame->result.value = *value;
    return RTNORM;
}

} // namespace
} // namespace orvald

using namespace orvald;

extern "C" {

int acedDefun(const ACHAR* name, int code)
{
    Application* application = Application::current();
    Document* document = Host::instance().current();
    if (application == nullptr || document == nullptr || name == nullptr || *name == 0) {
        return RTERROR;
    }
    if (code < 0 || code > kHighestCode) return RTERROR;
    ApplicationFunction& function = application->function(code);
    function.setName(text::upperText(name));
    document->world().defineExternal(name, function);
    return RTNORM;
}

int acedUndef(const ACHAR* name, int code)
{
    Application* application = Application::current();
    Document* document = Host::instance().current();
    if (application == nullptr || document == nullptr || name == nullptr) return RTERROR;
    const bool done = document->world().undefineExternal(name, application->function(code));
    return done ? RTNORM : RTERROR;
}

int acedRegFunc(int (*function)(), int code)
{
    Application* application = Application::current();
    if (application == nullptr || code < 0 || code > kHighestCode) return RTERROR;
    application->function(code).setRoute(function);
    return RTNORM;
}

int acedGetFunCode()
{
    const CallFrame* frame = CallFrame::innermost;
    return frame == nullptr ? RTERROR : frame->function.code();
}

resbuf* acedGetArgs()
{
    const CallFrame* frame = CallFrame::innermost;
    return frame == nullptr ? nullptr : frame->arguments;
}

int acedRetNil()
{
    return answer([](lisp::World&) { return std::optional(Value::nil()); });
}

int acedRetT()
{
    return answer([](lisp::World& world) { return std::optional(world.t()); });
}

int acedRetVoid()
{
    return answer([](lisp::World&) { return std::optional(Value::blank()); });
}

int acedRetInt(int value)
{
    return answer([=](lisp::World&) { return std::optional(Value::integer(value)); });
}

int acedRetReal(ads_real value)
{
    return answer([=](lisp::World&) { return std::optional(Value::real(value)); });
}

int acedRetStr(const ACHAR* text)
{
    if (text == nullptr) return RTERROR;
    return answer([=](lisp::World& world) {
        return std::optional(world.makeString({text, lengthOf(text)}));
    });
}

int acedRetPoint(const ads_point point)
{
    return answer([=](lisp::World& world) {
        return std::optional(
            world.makeList({Value::real(point[0]), Value::real(point[1]), Value::real(point[2])}));
    });
}

int acedRetName(const ads_name name, int type)
{
    if (type != RTENAME && type != RTPICKS) return RTERROR;
    resbuf node = {};
    node.restype = static_cast<short>(type);
    node.resval.rlname[0] = name[0];
    node.resval.rlname[1] = name[1];
    return acedRetVal(&node);
}

int acedRetVal(const resbuf* node)
{
    if (node == nullptr) return RTERROR;
    return answer([=](lisp::World& world) { return valueFromNode(world, *node); });
}

int acedRetList(const resbuf* chain)
{
    return answer([=](lisp::World& world) { return listFromChain(world, chain); });
}

int acedGetSym(const ACHAR* name, resbuf** value)
{
    CallFrame* frame = CallFrame::innermost;
    if (frame == nullptr || name == nullptr || value == nullptr) return RTERROR;
    const Value held = frame->world.symbolValue(name);
    *value =
        held.isNil() ? nullptr : chainFromValue(held, frame->world, Host::instance().chainForm());
    return RTNORM;
}

int acedPutSym(const ACHAR* name, const resbuf* value)
{
    CallFrame* frame = CallFrame::innermost;
    if (frame == nullptr || name == nullptr) return RTERROR;
    const bool single = value != nullptr && value->rbnext == nullptr;
    const std::optional<Value> held =
        single ? valueFromNode(frame->world, *value) : listFromChain(frame->world, value);
    if (!held) return RTERROR;
    frame->world.setSymbol(name, *held);
    return RTNORM;
}

int acedInvoke(const resbuf* call, resbuf** result)
{
    if (result != nullptr) *result = nullptr;
    Document* document = Host::instance().current();
    if (document == nullptr || call == nullptr || call->restype != RTSTR || result == nullptr) {
        return RTERROR;
    }
    lisp::World& world = document->world();
    std::optional<Value> arguments = Value::nil();
    if (call->rbnext != nullptr) {
        // The arguments are not one list, whatever their marks: a leading nil keeps them apart.
        resbuf head = {};
        head.restype = RTNIL;
        head.rbnext = call->rbnext;
        arguments = listFromChain(world, &head);
        if (!arguments) return RTERROR;
        arguments = lisp::cdr(*arguments);
    }
    // The language's own catch brings the evaluator back to where it stands now.
    const Value guarded[] = {world.symbolValue(call->resval.rstring), *arguments};
    const Value value = world.apply(world.symbolValue(u"VL-CATCH-ALL-APPLY"), guarded);
    if (value.kind() == lisp::Kind::caughtError) return RTERROR;
    *result = chainFromValue(value, world, Host::instance().chainForm());
    return RTNORM;
}
}
