// SPDX-License-Identifier: LicenseRef-ORVALD
// The evaluator's state: making it, definitions, safe points and the roots of a collection.
#include "evaluator.h"

#include "builtins/tables.h"

#include <algorithm>
#include <cstdlib>
#include <new>

namespace orvald::lisp {

namespace {

// Nodes of few operands push without asking: each push stands in a C++ frame of at least eight
// times its size, so the part behind the limit is sized after the machine stack.
constexpr std::size_t kUncheckedValues = kMostStackBytes / 16;

// A call takes more than this of the machine stack, so frames cannot run out before it does.
constexpr std::size_t kLeastCallBytes = 64;
constexpr std::size_t kFrames = kMostStackBytes / kLeastCallBytes + 1024;

// Untouched pages of these stacks cost address space only, so they are taken from malloc as they
// come and not cleared.
template <class T>
T* reserve(std::size_t count)
{
    void* memory = std::malloc(count * sizeof(T));
    if (memory == nullptr) throw std::bad_alloc();
    return static_cast<T*>(memory);
}

} // namespace

void Evaluator::Released::operator()(void* memory) const { std::free(memory); }

Evaluator::Evaluator(World& owner, WorldHost& worldHost, std::size_t heapLimit)
    : world(owner),
      host(worldHost),
      heap(heapLimit),
      stack_(reserve<Value>(kCheckedValues + kErrorReserve + kUncheckedValues)),
      frames_(reserve<Frame>(kFrames))
{
    sp = stack_.get();
    spLimit = sp + kCheckedValues;
    frameTop = frames_.get();
    heap.setCollectionRequest(&countdown);
    files_.emplace_back();

    for (const CoreRow& row : coreRows()) {
        symbols.adopt(coreSymbol(row.core).symbol, row.name);
    }
    for (const Builtin& row : specialForms()) {
        Subr* subr = heap.makePermanent<Subr>(row);
        subr->special = true;
        symbols.intern(toUtf16(row.name))->value = Value::object(subr);
    }
    for (const std::span<const Builtin> table : builtinTables()) define(table);
    for (CoreSymbol& entry : core) entry.builtin = entry.symbol.value;

    Symbol* t = symbols.intern(u"T");
    tValue = t->value = Value::symbol(t);
    symbols.intern(u"PI")->value = Value::real(3.14159265358979323846);
    symbols.intern(u"PAUSE")->value = heap.makeString(u"\\");
}

Evaluator::~Evaluator() = default;

// -- definitions

void Evaluator::define(std::span<const Builtin> table)
{
    for (const Builtin& row : table) {
        symbols.intern(toUtf16(row.name))->value = Value::object(heap.makePermanent<Subr>(row));
    }
}

External* Evaluator::externalFor(ExternalFunction& function)
{
    for (External* external : externals_) {
        if (external->function == &function) return external;
    }
    External* external = heap.makePermanent<External>();
    external->function = &function;
    external->name = function.name();
    externals_.push_back(external);
    return external;
}

void Evaluator::forgetExternal(const ExternalFunction& function)
{
    // The object stays for the variables that still hold it; calling it says that it is gone.
    std::erase_if(externals_, [&](External* external) {
        if (external->function != &function) return false;
        external->function = nullptr;
        return true;
    });
}

void Evaluator::assign(Symbol* symbol, Value value)
{
    const auto isFunction = [](Value v) {
        return v.isObject() && v.asObject()->kind >= Kind::subr &&
               v.asObject()->kind <= Kind::exrxsubr;
    };
    const bool was = isFunction(symbol->value);
    const bool is = isFunction(value);
    symbol->value = value;
    if ((was || is) && isCommandName(symbol)) host.commandDefined(symbol->name.substr(2), is);
}

// -- safe points

void Evaluator::setStress(bool on)
{
    stress_ = on;
    countdown = 0;
}

void Evaluator::safePointReached()
{
    countdown = stress_ ? 0 : kPollInterval;
    if (stress_ || heap.wantsCollection()) {
        collect();
        currentCall = nullptr; // it may be of a function that is gone
        if (heap.overLimit(symbols.bytes())) {
            raise(kInsufficientMemory, LispError::Sort::outOfMemory);
        }
    }
    raiseIfStopped();
    if (host.takeInterrupt()) {
        interrupted_ = true;
        raise(u"Function cancelled", LispError::Sort::cancelled);
    }
}

void Evaluator::collect()
{
    try {
        heap.beginCollection();
        markRoots();
        heap.finishCollection();
    } catch (...) {
        heap.abandonCollection();
        throw;
    }
}

void Evaluator::markRoots()
{
    symbols.forEach([this](const Symbol& symbol) { heap.mark(symbol.value); });
    for (const Value* value = stack_.get(); value != sp; ++value) heap.mark(*value);
    for (const Frame* frame = frames_.get(); frame != frameTop; ++frame) {
        heap.markObject(frame->variables->owner);
    }
    for (const Root* root = roots; root != nullptr; root = root->outer_) heap.mark(root->value);
    for (const auto& [name, value] : blackboard) heap.mark(value);
    heap.mark(lastResult);

    // Compiled forms live as long as the list they were made from. Code holds nothing that its
    // list does not hold, so no order among the tables matters.
    for (auto* table : {&thunks_, &generalThunks_, &listFunctions_}) {
        table->forEach([this](const Cons* cell, Lambda* lambda) {
            if (Heap::isMarked(cell)) heap.markObject(lambda);
        });
        table->sweep([](const Cons* cell) { return Heap::isMarked(cell); });
    }
    places_.sweep([](const Cons* cell) { return Heap::isMarked(cell); });
}

} // namespace orvald::lisp
