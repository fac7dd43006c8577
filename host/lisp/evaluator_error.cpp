// SPDX-License-Identifier: LicenseRef-ORVALD
// Errors: raising them, undoing bindings, the calls that led to one, *error*; and reading and
// evaluating whole texts, whose faults carry file and line.
#include "evaluator.h"

#include <algorithm>

namespace orvald::lisp {

namespace {

// A message quotes a value, not a data base.
constexpr std::size_t kLongestQuote = 1000;
constexpr std::size_t kLongestCall = 80;

// Of a deep recursion the innermost and the outermost calls tell what happened.
constexpr std::size_t kInnermostCalls = 30;
constexpr std::size_t kOutermostCalls = 10;

} // namespace

void Evaluator::raise(std::u16string message, LispError::Sort sort)
{
    throw LispError{std::move(message), sort, {}};
}

void Evaluator::raiseAt(const FormNode* call, std::u16string message)
{
    currentCall = call;
    raise(std::move(message));
}

void Evaluator::badArgument(std::u16string_view what, Value value)
{
    std::u16string message = u"bad argument type: ";
    message += what;
    message += u' ';
    raise(message + printedText(value, Quoting::quoted, kLongestQuote));
}

void Evaluator::raiseIfStopped()
{
    if (host.mustStop()) raise(u"stopped", LispError::Sort::stopped);
}

void Evaluator::raiseOverflow() { raise(u"stack overflow"); }

void Evaluator::exitWithValue(Value value)
{
    lastResult = value;
    exitsWithValue_ = true;
    raise({}, LispError::Sort::exit);
}

void Evaluator::unwindTo(Frame* frame, Value* stack)
{
    while (frameTop != frame) {
        --frameTop;
        const Variables& variables = *frameTop->variables;
        for (int i = variables.count; i-- > 0;) {
            variables.symbols[i]->value = frameTop->base[i];
        }
    }
    sp = stack;
}

LispError Evaluator::errorOf(const std::exception& fault)
{
    using Sort = LispError::Sort;
    try {
        if (dynamic_cast<const std::bad_alloc*>(&fault) == nullptr) {
            return {toUtf16(fault.what()), Sort::error, {}};
        }
        return {kInsufficientMemory, Sort::outOfMemory, {}};
    } catch (const std::bad_alloc&) {
        return {u"memory", Sort::outOfMemory, {}}; // short enough to need none
    }
}

Outcome Evaluator::afterError(LispError error, Frame* frame, Value* stack)
{
    Outcome outcome;
    interrupted_ = false;
    if (exitsWithValue_) {
        exitsWithValue_ = false;
        unwindTo(frame, stack);
        outcome.value = lastResult;
        return outcome;
    }
    try {
        addCallPlaces(error, frame);
        Symbol* handler = symbols.find(u"*ERROR*");
        const bool hears = error.sort != LispError::Sort::stopped;
        if (hears && handler != nullptr && !handler->value.isNil()) {
            // A full stack must not keep the handler from running.
            spLimit += kErrorReserve;
            const Value message = heap.makeString(error.message);
            currentCall = nullptr;
            try {
                apply(handler->value, {&message, 1});
                outcome.handled = true;
            } catch (LispError& second) {
                if (!exitsWithValue_) {
                    if (second.sort == LispError::Sort::exit) {
                        outcome.handled = true; // (exit) is a way to leave the handler
                    } else {
                        error = std::move(second);
                        addCallPlaces(error, frame);
                    }
                }
                exitsWithValue_ = false;
                interrupted_ = false;
            }
            spLimit -= kErrorReserve;
        }
    } catch (const std::exception&) {
        spLimit = stack_.get() + kCheckedValues; // the first error is what is reported
    }
    unwindTo(frame, stack);
    outcome.error = std::move(error);
    return outcome;
}

// -- places

class Evaluator::PlaceRecorder final : public ListPlaces
{
public:
    PlaceRecorder(CellTable<Place>& places, int file) : places_(places), file_(file) {}
    void listRead(const Cons* list, int line) override { places_.set(list, {file_, line}); }

private:
    CellTable<Place>& places_;
    int file_;
};

int Evaluator::fileIndex(const std::string& file)
{
    const auto known = std::find(files_.begin(), files_.end(), file);
    if (known == files_.end()) files_.push_back(file);
    return static_cast<int>(std::find(files_.begin(), files_.end(), file) - files_.begin());
}

CallPlace Evaluator::placeOf(const Cons* form)
{
    CallPlace place;
    place.call = printedText(Value::cons(const_cast<Cons*>(form)), Quoting::quoted, kLongestCall);
    if (const Place* known = places_.find(form)) {
        place.file = files_[static_cast<std::size_t>(known->file)];
        place.line = known->line;
    }
    return place;
}

void Evaluator::addCallPlaces(LispError& error, const Frame* from)
{
    struct Run // one call, or the same one again and again in a recursion
    {
        const Cons* form;
        int times;
    };
    std::vector<Run> runs; // innermost first
    const auto add = [&](const FormNode* call) {
        if (call == nullptr) return;
        if (!runs.empty() && runs.back().form == call->form) {
            ++runs.back().times;
        } else {
            runs.push_back({call->form, 1});
        }
    };
    add(currentCall);
    for (const Frame* frame = frameTop; frame != from; --frame) add(frame[-1].call);

    // A fault of the reader has its own places at the front.
    std::vector<CallPlace>& places = error.calls;
    for (std::size_t i = 0; i < runs.size(); ++i) {
        if (i == kInnermostCalls && runs.size() > kInnermostCalls + kOutermostCalls) {
            const std::size_t skipped = runs.size() - kInnermostCalls - kOutermostCalls;
            places.push_back({toUtf16("... " + std::to_string(skipped) + " more calls"), {}, 0});
            i += skipped;
        }
        places.push_back(placeOf(runs[i].form));
        if (runs[i].times > 1) {
            places.back().call +=
                toUtf16(" (again " + std::to_string(runs[i].times - 1) + " times)");
        }
    }
}

// -- texts

void Evaluator::raiseRead(const ReadFault& fault, std::u16string_view text, const std::string& file)
{
    LispError error{fault.message, LispError::Sort::error, {}};
    for (const std::size_t opening : fault.openings) {
        if (error.calls.size() == kOutermostCalls) break;
        CallPlace place;
        const std::u16string_view line = text.substr(opening, kLongestCall);
        place.call = line.substr(0, line.find_first_of(u"\r\n"));
        place.file = file;
        place.line = 1 + static_cast<int>(std::count(
                             text.begin(), text.begin() + static_cast<long>(opening), u'\n'));
        error.calls.push_back(std::move(place));
    }
    throw error;
}

std::u16string Evaluator::printed(Value value, Quoting quoting)
{
    std::u16string text = printedText(value, quoting, kLongestPrinted);
    if (text.size() > kLongestPrinted) throw HeapExhausted();
    return text;
}

Value Evaluator::readFirst(std::u16string_view text)
{
    Value datum;
    try {
        Reader(heap, symbols, text).next(datum);
    } catch (const ReadFault& fault) {
        raise(fault.message);
    }
    return datum;
}

Value Evaluator::evalAll(std::u16string_view text, const std::string& file)
{
    PlaceRecorder recorder(places_, fileIndex(file));
    Reader reader(heap, symbols, text, &recorder);
    Value* const root = sp; // keeps the last value
    push(Value::nil());
    for (;;) {
        Value form;
        try {
            if (!reader.next(form)) break;
        } catch (const ReadFault& fault) {
            raiseRead(fault, text, file);
        }
        *root = form;
        safePoint();
        *root = evalForm(form);
    }
    sp = root;
    return *root;
}

} // namespace orvald::lisp
