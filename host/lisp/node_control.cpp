// SPDX-License-Identifier: LicenseRef-ORVALD
// The special forms: each with its run function and the hook that compiles it. A form that is
// wrong in itself raises its error when it is run, not when it is compiled.
#include "compiler.h"

#include <iterator>

namespace orvald::lisp {

namespace {

constexpr char16_t kTooFew[] = u"too few arguments";
constexpr char16_t kSyntax[] = u"syntax error";
constexpr char16_t kBadParameters[] = u"bad formal argument list: ";

Value argument(const Cons* form, int index)
{
    Value rest = form->cdr;
    for (; index > 0; --index) rest = cdr(rest);
    return car(rest);
}

int countOf(const Cons* form) { return Compiler::lengthOf(form->cdr); }

// -- if, cond, and, or, progn

Value runIf(const Node* node, Evaluator& evaluator)
{
    const auto* self = static_cast<const IfNode*>(node);
    if (!evaluator.intact(Core::ifForm)) [[unlikely]]
        return evaluator.runRedefined(self);
    const Node* const branch =
        evaluator.run(self->condition).isNil() ? self->otherwise : self->whenTrue;
    return evaluator.run(branch);
}

Value runIfOnly(const Node* node, Evaluator& evaluator)
{
    const auto* self = static_cast<const IfNode*>(node);
    if (!evaluator.intact(Core::ifForm)) [[unlikely]]
        return evaluator.runRedefined(self);
    if (evaluator.run(self->condition).isNil()) return Value::nil();
    return evaluator.run(self->whenTrue);
}

Value runCond(const Node* node, Evaluator& evaluator)
{
    const auto* self = static_cast<const CondNode*>(node);
    if (!evaluator.intact(Core::cond)) [[unlikely]]
        return evaluator.runRedefined(self);
    const CondClause* clauses = self->clauses();
    for (int i = 0; i < self->count; ++i) {
        const Value test = evaluator.run(clauses[i].test);
        if (test.isNil()) continue;
        return clauses[i].body == nullptr ? test : evaluator.run(clauses[i].body);
    }
    return Value::nil();
}

Value runAnd(const Node* node, Evaluator& evaluator)
{
    const auto* self = static_cast<const SequenceNode*>(node);
    if (!evaluator.intact(Core::andForm)) [[unlikely]]
        return evaluator.runRedefined(self);
    const Node* const* children = childrenOf(self);
    for (int i = 0; i < self->count; ++i) {
        if (evaluator.run(children[i]).isNil()) return Value::nil();
    }
    return evaluator.tValue;
}

Value runOr(const Node* node, Evaluator& evaluator)
{
    const auto* self = static_cast<const SequenceNode*>(node);
    if (!evaluator.intact(Core::orForm)) [[unlikely]]
        return evaluator.runRedefined(self);
    const Node* const* children = childrenOf(self);
    for (int i = 0; i < self->count; ++i) {
        if (!evaluator.run(children[i]).isNil()) return evaluator.tValue;
    }
    return Value::nil();
}

Value runProgn(const Node* node, Evaluator& evaluator)
{
    const auto* self = static_cast<const SequenceNode*>(node);
    if (!evaluator.intact(Core::progn)) [[unlikely]]
        return evaluator.runRedefined(self);
    const Node* const* children = childrenOf(self);
    const int last = self->count - 1;
    for (int i = 0; i < last; ++i) evaluator.run(children[i]);
    return last < 0 ? Value::nil() : evaluator.run(children[last]);
}

// -- loops: the value of the last round is kept on the stack while the next is looked for

Value runWhile(const Node* node, Evaluator& evaluator)
{
    const auto* self = static_cast<const LoopNode*>(node);
    if (!evaluator.intact(Core::whileForm)) [[unlikely]]
        return evaluator.runRedefined(self);
    Value* const last = evaluator.sp++;
    *last = Value::nil();
    while (!evaluator.run(self->head).isNil()) {
        if (self->body != nullptr) *last = evaluator.run(self->body);
        evaluator.safePoint();
    }
    evaluator.sp = last;
    return *last;
}

Value runRepeat(const Node* node, Evaluator& evaluator)
{
    const auto* self = static_cast<const LoopNode*>(node);
    if (!evaluator.intact(Core::repeat)) [[unlikely]]
        return evaluator.runRedefined(self);
    const Value times = evaluator.run(self->head);
    if (!times.isInteger()) {
        evaluator.currentCall = self;
        evaluator.badArgument(u"fixnump:", times);
    }
    Value* const last = evaluator.sp++;
    *last = Value::nil();
    for (int left = times.asInteger(); left > 0 && self->body != nullptr; --left) {
        *last = evaluator.run(self->body);
        evaluator.safePoint();
    }
    evaluator.sp = last;
    return *last;
}

Value runForeach(const Node* node, Evaluator& evaluator)
{
    const auto* self = static_cast<const ForeachNode*>(node);
    if (!evaluator.intact(Core::foreach)) [[unlikely]]
        return evaluator.runRedefined(self);
    Value list = evaluator.run(self->head);
    if (!list.isList()) {
        evaluator.currentCall = self;
        evaluator.badArgument(u"listp", list);
    }
    Value* const base = evaluator.sp;
    evaluator.sp += 3;
    base[0] = self->symbol->value;
    base[1] = list;
    base[2] = Value::nil();
    Frame* const frame = evaluator.frameTop++;
    *frame = {self, &self->variables, base};
    for (; list.isCons(); list = list.asCons()->cdr) {
        self->symbol->value = list.asCons()->car;
        if (self->body != nullptr) base[2] = evaluator.run(self->body);
        evaluator.safePoint();
    }
    self->symbol->value = base[0];
    evaluator.frameTop = frame;
    evaluator.sp = base;
    return base[2];
}

// -- setq, defun

Value runSetq(const Node* node, Evaluator& evaluator)
{
    const auto* self = static_cast<const SetqNode*>(node);
    if (!evaluator.intact(Core::setq)) [[unlikely]]
        return evaluator.runRedefined(self);
    const Value value = evaluator.run(self->value);
    self->symbol->value = value;
    return value;
}

Value runSetqCommand(const Node* node, Evaluator& evaluator)
{
    const auto* self = static_cast<const SetqNode*>(node);
    const Value value = evaluator.run(self->value);
    evaluator.assign(self->symbol, value);
    return value;
}

Value runSetqPairs(const Node* node, Evaluator& evaluator)
{
    const auto* self = static_cast<const SequenceNode*>(node);
    if (!evaluator.intact(Core::setq)) [[unlikely]]
        return evaluator.runRedefined(self);
    Value last;
    for (int i = 0; i < self->count; ++i) {
        last = evaluator.run(childrenOf(self)[i]);
    }
    return last;
}

Value runDefun(const Node* node, Evaluator& evaluator)
{
    const auto* self = static_cast<const DefunNode*>(node);
    if (!evaluator.intact(self->core)) [[unlikely]]
        return evaluator.runRedefined(self);
    evaluator.assign(self->symbol, self->function);
    return Value::symbol(self->symbol);
}

// Value of a special form that keeps its arguments as they stand; also of trace, which names
// functions to a debugger that a batch host does not have.
Value runKept(const Node* node, Evaluator&) { return static_cast<const KeptNode*>(node)->value; }

const Node* kept(Compiler& compiler, Cons* form, Value value)
{
    auto* node = compiler.make<KeptNode>(runKept, form);
    node->value = value;
    return node;
}

const Node* loop(Compiler& compiler, RunNode run, Cons* form)
{
    if (!form->cdr.isCons()) return compiler.faulty(form, kTooFew);
    auto* node = compiler.make<LoopNode>(run, form);
    node->head = compiler.compile(argument(form, 0));
    node->body = compiler.compileSequence(cdr(form->cdr));
    return node;
}

// (name parameters . body) as a function; null when it is none.
Lambda* namedFunction(Compiler& compiler, Cons* form)
{
    return compiler.nestedLambda(argument(form, 0).asSymbol(), argument(form, 1),
                                 cdr(cdr(form->cdr)));
}

const Node* checkDefinition(Compiler& compiler, Cons* form)
{
    if (countOf(form) < 2) return compiler.faulty(form, kTooFew);
    return argument(form, 0).isSymbol() ? nullptr : compiler.faulty(form, kSyntax);
}

// -- special forms as functions, for apply

Value applyAnd(World& world, Args args)
{
    for (const Value value : args.all()) {
        if (value.isNil()) return Value::nil();
    }
    return world.t();
}

Value applyOr(World& world, Args args)
{
    for (const Value value : args.all()) {
        if (!value.isNil()) return world.t();
    }
    return Value::nil();
}

Value applyProgn(World&, Args args) { return args.at(args.size() - 1); }

constexpr Builtin kSpecialForms[] = {
    {"quote", nullptr},    {"function", nullptr}, {"lambda", nullptr}, {"setq", nullptr},
    {"if", nullptr},       {"cond", nullptr},     {"and", applyAnd},   {"or", applyOr},
    {"progn", applyProgn}, {"while", nullptr},    {"repeat", nullptr}, {"foreach", nullptr},
    {"defun", nullptr},    {"defun-q", nullptr},  {"trace", nullptr},  {"untrace", nullptr},
};
static_assert(std::size(kSpecialForms) == kSpecialCount);

} // namespace

std::span<const Builtin> specialForms() { return kSpecialForms; }

namespace hooks {

const Node* quote(Compiler& compiler, Cons* form)
{
    if (countOf(form) != 1) return compiler.faulty(form, kSyntax);
    return compiler.constant(argument(form, 0));
}

const Node* function(Compiler& compiler, Cons* form)
{
    if (countOf(form) != 1) return compiler.faulty(form, kSyntax);
    const Value designator = argument(form, 0);
    const bool isLambda = designator.isCons() &&
                          designator.asCons()->car ==
                              Value::symbol(&compiler.evaluator().coreSymbol(Core::lambda).symbol);
    if (isLambda) return lambda(compiler, designator.asCons());
    return kept(compiler, form, designator);
}

const Node* lambda(Compiler& compiler, Cons* form)
{
    if (countOf(form) < 1) return compiler.faulty(form, kTooFew);
    Lambda* made = compiler.nestedLambda(nullptr, argument(form, 0), cdr(form->cdr));
    if (made == nullptr) return compiler.faulty(form, kBadParameters, argument(form, 0));
    return kept(compiler, form, Value::object(made));
}

const Node* setq(Compiler& compiler, Cons* form)
{
    const int count = countOf(form);
    if (count == 0) return kept(compiler, form, Value::nil());
    if (count % 2 != 0) return compiler.faulty(form, kTooFew);
    const auto one = [&](Value pair) -> const Node* {
        if (!car(pair).isSymbol()) return compiler.faulty(form, kSyntax);
        Symbol* symbol = car(pair).asSymbol();
        const bool command = Evaluator::isCommandName(symbol);
        auto* node = compiler.make<SetqNode>(command ? runSetqCommand : runSetq, form);
        node->symbol = symbol;
        node->value = compiler.compile(car(cdr(pair)));
        return node;
    };
    if (count == 2) return one(form->cdr);
    auto* node = compiler.make<SequenceNode>(
        runSetqPairs, form, static_cast<std::size_t>(count / 2) * sizeof(const Node*));
    node->count = count / 2;
    const Node** child = Compiler::children(node);
    for (Value rest = form->cdr; rest.isCons(); rest = cdr(cdr(rest))) *child++ = one(rest);
    return node;
}

const Node* ifForm(Compiler& compiler, Cons* form)
{
    const int count = countOf(form);
    if (count != 2 && count != 3) return compiler.faulty(form, kSyntax);
    auto* node = compiler.make<IfNode>(count == 2 ? runIfOnly : runIf, form);
    node->condition = compiler.compile(argument(form, 0));
    node->whenTrue = compiler.compile(argument(form, 1));
    if (count == 3) node->otherwise = compiler.compile(argument(form, 2));
    return node;
}

const Node* cond(Compiler& compiler, Cons* form)
{
    const int count = countOf(form);
    auto* node = compiler.make<CondNode>(runCond, form,
                                         static_cast<std::size_t>(count) * sizeof(CondClause));
    node->count = count;
    auto* clause = reinterpret_cast<CondClause*>(node + 1);
    for (Value rest = form->cdr; rest.isCons(); rest = rest.asCons()->cdr, ++clause) {
        const Value item = rest.asCons()->car;
        if (!item.isCons() || Compiler::lengthOf(item) < 0) {
            *clause = {compiler.faulty(form, kSyntax), nullptr};
        } else {
            *clause = {compiler.compile(item.asCons()->car),
                       compiler.compileSequence(item.asCons()->cdr)};
        }
    }
    return node;
}

const Node* andForm(Compiler& compiler, Cons* form)
{
    return compiler.compileChildren(runAnd, form);
}

const Node* orForm(Compiler& compiler, Cons* form) { return compiler.compileChildren(runOr, form); }

const Node* progn(Compiler& compiler, Cons* form)
{
    return compiler.compileChildren(runProgn, form);
}

const Node* whileForm(Compiler& compiler, Cons* form) { return loop(compiler, runWhile, form); }

const Node* repeat(Compiler& compiler, Cons* form) { return loop(compiler, runRepeat, form); }

const Node* foreach (Compiler& compiler, Cons * form)
{
    if (countOf(form) < 2) return compiler.faulty(form, kTooFew);
    if (!argument(form, 0).isSymbol()) return compiler.faulty(form, kSyntax);
    auto* node = compiler.make<ForeachNode>(runForeach, form);
    node->symbol = argument(form, 0).asSymbol();
    node->variables = {&node->symbol, 1, nullptr};
    node->head = compiler.compile(argument(form, 1));
    node->body = compiler.compileSequence(cdr(cdr(form->cdr)));
    return node;
}

const Node* defun(Compiler& compiler, Cons* form)
{
    if (const Node* fault = checkDefinition(compiler, form)) return fault;
    Lambda* made = namedFunction(compiler, form);
    if (made == nullptr) return compiler.faulty(form, kBadParameters, argument(form, 1));
    auto* node = compiler.make<DefunNode>(runDefun, form);
    node->core = Core::defun;
    node->symbol = argument(form, 0).asSymbol();
    node->function = Value::object(made);
    return node;
}

const Node* defunQ(Compiler& compiler, Cons* form)
{
    if (const Node* fault = checkDefinition(compiler, form)) return fault;
    auto* node = compiler.make<DefunNode>(runDefun, form);
    node->core = Core::defunQ;
    node->symbol = argument(form, 0).asSymbol();
    node->function = cdr(form->cdr); // the list itself, as defun-q-list-ref gives it back
    return node;
}

const Node* trace(Compiler& compiler, Cons* form)
{
    Value last = Value::nil();
    for (Value rest = form->cdr; rest.isCons(); rest = rest.asCons()->cdr) {
        last = rest.asCons()->car;
    }
    return kept(compiler, form, last);
}

} // namespace hooks

} // namespace orvald::lisp
