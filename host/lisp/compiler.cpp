// SPDX-License-Identifier: LicenseRef-ORVALD
// From list to tree: atoms, calls, and the bookkeeping of a function's code. The special nodes are
// made beside their run functions.
#include "compiler.h"

#include "printer.h"

#include <algorithm>

namespace orvald::lisp {

namespace {

// A run of this many nested nodes is left between two looks at the machine stack.
constexpr int kNodesPerCheck = 32;

Value runConstant(const Node* node, Evaluator&)
{
    return static_cast<const ConstantNode*>(node)->value;
}

Value runSymbol(const Node* node, Evaluator&)
{
    return static_cast<const SymbolNode*>(node)->symbol->value;
}

Value runSequence(const Node* node, Evaluator& evaluator)
{
    const auto* self = static_cast<const SequenceNode*>(node);
    const Node* const* children = childrenOf(self);
    const int last = self->count - 1;
    for (int i = 0; i < last; ++i) evaluator.run(children[i]);
    return evaluator.run(children[last]);
}

Value runStackCheck(const Node* node, Evaluator& evaluator)
{
    if (stackAddress() < evaluator.stackLimit) evaluator.raiseOverflow();
    return evaluator.run(*childrenOf(static_cast<const FormNode*>(node)));
}

Value runFaulty(const Node* node, Evaluator& evaluator)
{
    const auto* self = static_cast<const FaultyNode*>(node);
    std::u16string message = self->message;
    if (!self->culprit.isBlank()) message += printedText(self->culprit, Quoting::quoted, 200);
    evaluator.raiseAt(self, std::move(message));
}

Value compileOnFirstCall(const Node*, Evaluator& evaluator)
{
    auto* lambda = static_cast<Lambda*>(evaluator.frameTop[-1].variables->owner);
    Compiler(evaluator, *lambda).compileBody();
    return evaluator.run(lambda->body);
}

// -- calls: arguments from left to right onto the stack, then the function as it is now

template <int kCount>
Value runCall(const Node* node, Evaluator& evaluator)
{
    const auto* self = static_cast<const CallNode*>(node);
    const Node* const* arguments = childrenOf(self);
    Value* const base = evaluator.sp;
    for (int i = 0; i < kCount; ++i) {
        const Value value = evaluator.run(arguments[i]);
        *evaluator.sp++ = value;
    }
    const Value function = self->head->value;
    if (isObjectOf(function, Kind::usubr)) {
        auto* lambda = static_cast<Lambda*>(function.asObject());
        if (lambda->parameterCount == kCount) {
            return evaluator.callLambda<kCount>(lambda, self, base);
        }
    }
    return evaluator.callValue(function, self, base);
}

Value runCallOfMany(const Node* node, Evaluator& evaluator)
{
    const auto* self = static_cast<const CallNode*>(node);
    const Node* const* arguments = childrenOf(self);
    Value* const base = evaluator.sp;
    evaluator.requireRoom(static_cast<std::size_t>(self->count));
    for (int i = 0; i < self->count; ++i) evaluator.push(evaluator.run(arguments[i]));
    return evaluator.callValue(self->head->value, self, base);
}

// A builtin whose argument count was found right: nothing is left to check but that it still is
// what the symbol means.
template <int kCount>
Value runBuiltin(const Node* node, Evaluator& evaluator)
{
    const auto* self = static_cast<const CallNode*>(node);
    const Node* const* arguments = childrenOf(self);
    const int count = kCount < 0 ? self->count : kCount;
    Value* const base = evaluator.sp;
    if (kCount < 0) evaluator.requireRoom(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        const Value value = evaluator.run(arguments[i]);
        *evaluator.sp++ = value;
    }
    if (self->head->value != self->expected) [[unlikely]] {
        return evaluator.callValue(self->head->value, self, base);
    }
    evaluator.currentCall = self;
    const Value result = self->function(evaluator.world, Args(evaluator.world, base, count));
    evaluator.sp = base;
    return result;
}

Value runComputedCall(const Node* node, Evaluator& evaluator)
{
    const auto* self = static_cast<const ComputedCallNode*>(node);
    const Node* const* arguments = childrenOf(self);
    Value* const root = evaluator.sp;
    evaluator.requireRoom(static_cast<std::size_t>(self->count) + 1);
    const Value function = evaluator.run(self->function);
    *evaluator.sp++ = function;
    for (int i = 0; i < self->count; ++i) evaluator.push(evaluator.run(arguments[i]));
    const Value result = evaluator.callValue(function, self, root + 1);
    evaluator.sp = root;
    return result;
}

constexpr RunNode kCalls[] = {runCall<0>, runCall<1>, runCall<2>, runCall<3>, runCall<4>};
constexpr RunNode kBuiltins[] = {runBuiltin<0>, runBuiltin<1>, runBuiltin<2>, runBuiltin<3>};

} // namespace

int Compiler::lengthOf(Value list)
{
    int length = 0;
    for (; list.isCons(); list = list.asCons()->cdr) ++length;
    return list.isNil() ? length : -1;
}

void Compiler::makeLazy(Lambda& lambda)
{
    lambda.compileFirst.run = compileOnFirstCall;
    lambda.body = &lambda.compileFirst;
    lambda.variables.symbols = lambda.symbols.data();
    lambda.variables.count = static_cast<int>(lambda.symbols.size());
}

Lambda* Compiler::makeLambda(Evaluator& evaluator, Symbol* name, Value parameters, Value body)
{
    if (!parameters.isList() || lengthOf(parameters) < 0 || lengthOf(body) < 0) return nullptr;
    Lambda* lambda = evaluator.heap.make<Lambda>();
    lambda->name = name;
    lambda->parameterList = parameters;
    lambda->bodyForms = body;
    bool locals = false;
    for (Value rest = parameters; rest.isCons(); rest = rest.asCons()->cdr) {
        const Value item = rest.asCons()->car;
        if (!item.isSymbol()) return nullptr;
        if (item.asSymbol()->name == u"/") {
            locals = true;
            continue;
        }
        lambda->symbols.push_back(item.asSymbol());
        lambda->parameterCount += !locals;
    }
    makeLazy(*lambda);
    return lambda;
}

Lambda* Compiler::nestedLambda(Symbol* name, Value parameters, Value body)
{
    Lambda* lambda = makeLambda(evaluator_, name, parameters, body);
    if (lambda != nullptr) owner_.constants.push_back(Value::object(lambda));
    return lambda;
}

void Compiler::chargeCode()
{
    const std::size_t bytes = owner_.arena.bytes();
    if (bytes == owner_.chargedBytes) return;
    evaluator_.heap.charge(bytes - owner_.chargedBytes);
    owner_.chargedBytes = bytes;
    evaluator_.heap.requireRoom(0);
}

template <class Make>
void Compiler::setBody(Make&& make)
{
    try {
        owner_.body = make();
        chargeCode();
    } catch (...) {
        owner_.body = &owner_.compileFirst;
        owner_.arena = NodeArena();
        owner_.constants.clear();
        evaluator_.heap.release(owner_.chargedBytes);
        owner_.chargedBytes = 0;
        throw;
    }
}

void Compiler::compileBody()
{
    setBody([this] {
        const Node* body = compileSequence(owner_.bodyForms);
        return body == nullptr ? constant(Value::nil()) : body;
    });
}

void Compiler::compileGeneralCall(Cons* form)
{
    setBody([&] { return compileCall(form); });
}

// -- atoms and sequences

const Node* Compiler::constant(Value value)
{
    auto* node = owner_.arena.make<ConstantNode>();
    node->run = runConstant;
    node->value = value;
    return node;
}

const Node* Compiler::faulty(Cons* form, const char16_t* message, Value culprit)
{
    auto* node = make<FaultyNode>(runFaulty, form);
    node->message = message;
    node->culprit = culprit;
    return node;
}

const Node* Compiler::compile(Value form)
{
    if (form.isCons()) return compileForm(form.asCons());
    if (!form.isSymbol()) return constant(form);
    auto* node = owner_.arena.make<SymbolNode>();
    node->run = runSymbol;
    node->symbol = form.asSymbol();
    return node;
}

CompiledOperand compileOperand(Compiler& compiler, Value form)
{
    CompiledOperand result{OperandKind::any, {}};
    if (form.isSymbol()) {
        result.kind = OperandKind::variable;
        result.operand.symbol = form.asSymbol();
    } else if (!form.isCons()) {
        result.kind = OperandKind::constant;
        result.operand.constant = form;
    } else if (const Value* quoted = compiler.quotedValue(form.asCons())) {
        result.kind = OperandKind::constant;
        result.operand.constant = *quoted;
    } else {
        result.operand.node = compiler.compile(form);
    }
    return result;
}

const Node* Compiler::compileSequence(Value forms)
{
    if (!forms.isCons()) return nullptr;
    if (!forms.asCons()->cdr.isCons()) return compile(forms.asCons()->car);
    const int count = lengthOf(forms);
    auto* node = make<SequenceNode>(runSequence, nullptr,
                                    static_cast<std::size_t>(count) * sizeof(const Node*));
    node->count = count;
    const Node** child = children(node);
    for (; forms.isCons(); forms = forms.asCons()->cdr) *child++ = compile(forms.asCons()->car);
    return node;
}

const Node* Compiler::compileChildren(RunNode run, Cons* form)
{
    const int count = lengthOf(form->cdr);
    auto* node =
        make<SequenceNode>(run, form, static_cast<std::size_t>(count) * sizeof(const Node*));
    node->count = count;
    const Node** child = children(node);
    for (Value rest = form->cdr; rest.isCons(); rest = rest.asCons()->cdr) {
        *child++ = compile(rest.asCons()->car);
    }
    return node;
}

// -- forms

const Node* Compiler::compileForm(Cons* form)
{
    if (stackAddress() < evaluator_.stackLimit) evaluator_.raiseOverflow();
    chargeCode();
    if (++depth_ % kNodesPerCheck == 0) {
        auto* check = make<FormNode>(runStackCheck, form, sizeof(const Node*));
        *children(check) = compileForm(form);
        --depth_;
        return check;
    }
    const Node* node = nullptr;
    const int count = lengthOf(form->cdr);
    if (count < 0) {
        node = faulty(form, u"syntax error");
    } else if (form->car.isSymbol()) {
        Symbol* head = form->car.asSymbol();
        const CoreRow* row = coreRowOf(head);
        if (row != nullptr && evaluator_.intact(row->core)) node = row->compile(*this, form);
        if (node == nullptr) node = compileCall(form);
    } else if (form->car.isCons()) {
        node = compileComputedCall(form, count);
    } else {
        node = faulty(form, u"bad function: ", form->car);
    }
    --depth_;
    return node;
}

const Node* Compiler::compileCall(Cons* form)
{
    Symbol* head = form->car.asSymbol();
    const int count = lengthOf(form->cdr);
    const auto bytes = static_cast<std::size_t>(count) * sizeof(const Node*);
    const auto places = static_cast<std::size_t>(count);

    auto* node =
        make<CallNode>(places < std::size(kCalls) ? kCalls[places] : runCallOfMany, form, bytes);
    node->head = head;
    node->count = count;
    if (isObjectOf(head->value, Kind::subr)) {
        const Builtin& row = *static_cast<const Subr*>(head->value.asObject())->builtin;
        if (row.function != nullptr && count >= row.least && (row.most < 0 || count <= row.most)) {
            node->run = places < std::size(kBuiltins) ? kBuiltins[places] : runBuiltin<-1>;
            node->expected = head->value;
            node->function = row.function;
        }
    }
    const Node** arguments = children(node);
    Value rest = form->cdr;
    for (int i = 0; i < count; ++i, rest = rest.asCons()->cdr) {
        arguments[i] = compile(rest.asCons()->car);
    }
    return node;
}

const Node* Compiler::compileComputedCall(Cons* form, int count)
{
    auto* node = make<ComputedCallNode>(runComputedCall, form,
                                        static_cast<std::size_t>(count) * sizeof(const Node*));
    node->function = compile(form->car);
    node->count = count;
    const Node** arguments = children(node);
    Value rest = form->cdr;
    for (int i = 0; i < count; ++i, rest = rest.asCons()->cdr) {
        arguments[i] = compile(rest.asCons()->car);
    }
    return node;
}

const CoreRow* Compiler::coreRowOf(const Symbol* symbol) const
{
    // The core symbols stand in one array, the symbol first in its entry.
    const auto offset = reinterpret_cast<std::uintptr_t>(symbol) -
                        reinterpret_cast<std::uintptr_t>(evaluator_.core.data());
    if (offset >= sizeof evaluator_.core) return nullptr;
    return &coreRows()[offset / sizeof(Evaluator::CoreSymbol)];
}

const Value* Compiler::quotedValue(const Cons* form) const
{
    if (!form->car.isSymbol() || !form->cdr.isCons() || !form->cdr.asCons()->cdr.isNil()) {
        return nullptr;
    }
    const CoreRow* row = coreRowOf(form->car.asSymbol());
    const bool quotes = row != nullptr && row->core == Core::quote && evaluator_.intact(row->core);
    return quotes ? &form->cdr.asCons()->car : nullptr;
}

} // namespace orvald::lisp
