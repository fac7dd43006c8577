// SPDX-License-Identifier: LicenseRef-ORVALD
// The public face of a world: thin, the evaluator does the work.
#include "lisp/world.h"

#include "characters.h"
#include "equality.h"
#include "evaluator.h"
#include "printer.h"
#include "text_file.h"

namespace orvald::lisp {

Kind Value::kind() const
{
    if (isReal()) return Kind::real;
    if (isInteger()) return Kind::integer;
    if (isNil()) return Kind::nil;
    if (isBlank()) return Kind::blank;
    if (isEntity()) return Kind::entity;
    if (isSymbol()) return Kind::symbol;
    return isCons() ? Kind::cons : asObject()->kind;
}

std::u16string_view Value::asString() const { return stringOf(*this); }

bool WorldHost::mustStop() const { return false; }

bool WorldHost::lacksFunction(std::u16string_view) { return false; }

std::optional<Value> WorldHost::systemVariable(std::u16string_view) { return std::nullopt; }

std::string WorldHost::filePath(std::u16string_view name)
{
    std::string path = toUtf8(name);
#ifndef _WIN32
    for (char& octet : path) {
        if (octet == '\\') octet = '/';
    }
#endif
    return path;
}

Root::Root(World& world, Value initial)
    : value(initial), world_(world), outer_(world.evaluator().roots)
{
    if (outer_ != nullptr) outer_->inner_ = this;
    world.evaluator().roots = this;
}

Root::~Root()
{
    if (outer_ != nullptr) outer_->inner_ = inner_;
    (inner_ != nullptr ? inner_->outer_ : world_.evaluator().roots) = outer_;
}

void ListBuilder::add(Value item)
{
    Cons* cell = world_.evaluator().heap.makeCons(item, Value::nil());
    if (last_ == nullptr) {
        first_ = Value::cons(cell);
    } else {
        last_->cdr = Value::cons(cell);
    }
    last_ = cell;
}

void ListBuilder::endWith(Value tail)
{
    if (last_ == nullptr) {
        first_ = tail;
    } else {
        last_->cdr = tail;
    }
}

World::World(WorldHost& host, std::size_t heapLimit)
    : host_(host),
      evaluator_(std::make_unique<Evaluator>(*this, host, heapLimit)),
      t_(evaluator_->tValue)
{
}

World::~World() = default;

Symbol* World::intern(std::u16string_view name) { return evaluator_->symbols.intern(name); }
Value World::makeString(std::u16string_view text) { return evaluator_->heap.makeString(text); }

Value World::makeCons(Value first, Value rest)
{
    return Value::cons(evaluator_->heap.makeCons(first, rest));
}

Value World::makeList(std::initializer_list<Value> items)
{
    ListBuilder list(*this);
    for (const Value item : items) list.add(item);
    return list.list();
}

Value World::makePickset(std::int32_t set)
{
    auto* pickset = evaluator_->heap.make<Pickset>();
    pickset->set = set;
    pickset->host = &host_;
    return Value::object(pickset);
}

Value World::makeVlaObject(std::u16string_view className, Value entity)
{
    auto* object = evaluator_->heap.make<VlaObject>();
    object->className = className;
    object->entity = entity;
    return Value::object(object);
}

std::u16string_view World::vlaClass(Value object) const
{
    return static_cast<const VlaObject*>(object.asObject())->className;
}

Value World::vlaEntity(Value object) const
{
    return static_cast<const VlaObject*>(object.asObject())->entity;
}

bool World::isVlaReleased(Value object) const
{
    return static_cast<const VlaObject*>(object.asObject())->released;
}

void World::releaseVla(Value object)
{
    static_cast<VlaObject*>(object.asObject())->released = true;
}

std::int32_t World::picksetNumber(Value pickset) const
{
    return static_cast<const Pickset*>(pickset.asObject())->set;
}

void World::define(std::span<const Builtin> table) { evaluator_->define(table); }

void World::defineExternal(std::u16string_view name, ExternalFunction& function)
{
    evaluator_->assign(intern(name), Value::object(evaluator_->externalFor(function)));
}

bool World::undefineExternal(std::u16string_view name, const ExternalFunction& function)
{
    Symbol* symbol = evaluator_->symbols.find(name);
    const bool holds = symbol != nullptr && isObjectOf(symbol->value, Kind::exrxsubr) &&
                       static_cast<External*>(symbol->value.asObject())->function == &function;
    if (holds) evaluator_->assign(symbol, Value::nil());
    evaluator_->forgetExternal(function);
    return holds;
}

Value World::symbolValue(std::u16string_view name) const
{
    const Symbol* symbol = evaluator_->symbols.find(name);
    return symbol == nullptr ? Value::nil() : symbol->value;
}

void World::setSymbol(std::u16string_view name, Value value)
{
    evaluator_->assign(intern(name), value);
}

Value World::eval(Value form)
{
    evaluator_->enterThread();
    return evaluator_->evalForm(form);
}

Value World::apply(Value function, std::span<const Value> args)
{
    return evaluator_->apply(function, args);
}

void World::raise(std::u16string message) { evaluator_->raise(std::move(message)); }

void World::raise(LispError::Sort sort, std::u16string message)
{
    evaluator_->raise(std::move(message), sort);
}

void World::badArgument(std::string_view what, Value value)
{
    evaluator_->badArgument(toUtf16(what), value);
}

Outcome World::evalText(std::u16string_view text, std::string_view file)
{
    return evaluator_->atTop([&] { return evaluator_->evalAll(text, std::string(file)); });
}

Outcome World::loadFile(const std::string& path)
{
    return evaluator_->atTop([&] {
        const std::optional<std::u16string> text = readTextFile(path);
        if (!text) {
            evaluator_->raise(u"LOAD failed: " +
                              printedText(makeString(toUtf16(path)), Quoting::quoted));
        }
        return evaluator_->evalAll(*text, path);
    });
}

Outcome World::applyTop(std::u16string_view function, std::span<const Value> args)
{
    return evaluator_->atTop(
        [&] { return evaluator_->apply(Value::symbol(intern(function)), args); });
}

Value World::read(std::u16string_view text) { return evaluator_->readFirst(text); }

std::u16string World::princ(Value value) const { return printedText(value, Quoting::bare); }
std::u16string World::prin1(Value value) const { return printedText(value, Quoting::quoted); }

std::size_t World::describeCalls(char* text, std::size_t room) const noexcept
{
    return evaluator_->describeCalls(text, room);
}

bool World::equal(Value a, Value b, double fuzz) const { return equalValues(a, b, fuzz); }

void World::collectGarbage() { evaluator_->collect(); }
std::size_t World::heapBytes() const { return evaluator_->heap.bytes(); }
void World::stressCollector(bool on) { evaluator_->setStress(on); }

} // namespace orvald::lisp
