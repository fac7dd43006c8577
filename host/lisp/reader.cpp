// SPDX-License-Identifier: LicenseRef-ORVALD
#include "reader.h"

#include "characters.h"
#include "number_text.h"

namespace orvald::lisp {

namespace {

constexpr char16_t kMalformedList[] = u"malformed list on input";
constexpr char16_t kMalformedString[] = u"malformed string on input";
constexpr char16_t kExtraParen[] = u"extra right paren on input";
constexpr char16_t kMisplacedDot[] = u"misplaced dot on input";
constexpr char16_t kExtraCdrs[] = u"extra cdrs in dotted pair on input";

// Files of old systems end in Ctrl-Z; a byte order mark may stand at the start of an insertion.
bool isSpace(char16_t unit) { return unit <= u' ' || unit == 0xFEFF; }

bool endsToken(char16_t unit)
{
    return isSpace(unit) || unit == u'(' || unit == u')' || unit == u'\'' || unit == u'"' ||
           unit == u';';
}

} // namespace

Reader::Reader(Heap& heap, SymbolTable& symbols, std::u16string_view text, ListPlaces* places)
    : heap_(heap), symbols_(symbols), text_(text), places_(places), quote_(symbols.intern(u"QUOTE"))
{
}

void Reader::fail(const char16_t* message) const
{
    ReadFault fault{message, {}};
    for (auto level = levels_.rbegin(); level != levels_.rend(); ++level) {
        fault.openings.push_back(level->opening);
    }
    throw fault;
}

void Reader::failAt(const char16_t* message, std::size_t place) const
{
    throw ReadFault{message, {place}};
}

void Reader::skipBlanks()
{
    while (at_ < text_.size()) {
        const char16_t unit = text_[at_];
        if (unit == u';') {
            const bool block = at_ + 1 < text_.size() && text_[at_ + 1] == u'|';
            std::size_t end = block ? text_.find(u"|;", at_ + 2) : text_.find(u'\n', at_);
            end = end == std::u16string_view::npos ? text_.size() : end + (block ? 2 : 0);
            for (; at_ < end; ++at_) line_ += text_[at_] == u'\n';
        } else if (isSpace(unit)) {
            line_ += unit == u'\n';
            ++at_;
        } else {
            return;
        }
    }
}

Value Reader::readString()
{
    const std::size_t opening = at_++;
    unescaped_.clear();
    while (at_ < text_.size() && text_[at_] != u'"') {
        const char16_t unit = text_[at_++];
        line_ += unit == u'\n';
        if (unit != u'\\') {
            unescaped_.push_back(unit);
            continue;
        }
        if (at_ == text_.size()) break;
        const char16_t escape = text_[at_++];
        switch (escape) {
        case u'n': unescaped_.push_back(u'\n'); break;
        case u'r': unescaped_.push_back(u'\r'); break;
        case u't': unescaped_.push_back(u'\t'); break;
        case u'e': unescaped_.push_back(0x1B); break;
        case u'U': {
            int code = 0;
            std::size_t digits = 0;
            while (digits < 4 && at_ + 1 + digits < text_.size() && text_[at_] == u'+' &&
                   text::hexDigit(text_[at_ + 1 + digits]) >= 0) {
                code = code * 16 + text::hexDigit(text_[at_ + 1 + digits++]);
            }
            unescaped_.push_back(digits == 4 ? static_cast<char16_t>(code) : escape);
            if (digits == 4) at_ += 5;
            break;
        }
        default: {
            int code = 0;
            std::size_t digits = 0;
            for (--at_; digits < 3 && at_ < text_.size() && text_[at_] >= u'0' && text_[at_] < u'8';
                 ++digits) {
                code = code * 8 + (text_[at_++] - u'0');
            }
            if (digits > 0) {
                unescaped_.push_back(static_cast<char16_t>(code));
            } else {
                line_ += text_[at_] == u'\n';
                unescaped_.push_back(text_[at_++]); // \" and \\, and any other unit as it stands
            }
        }
        }
    }
    if (at_ == text_.size()) failAt(kMalformedString, opening);
    ++at_;
    return heap_.makeString(unescaped_);
}

Value Reader::readToken()
{
    const std::size_t begin = at_;
    while (at_ < text_.size() && !endsToken(text_[at_])) ++at_;
    const std::u16string_view token = text_.substr(begin, at_ - begin);
    if (const auto number = readNumber(token)) return *number;
    Symbol* symbol = symbols_.intern(token);
    return symbol->name == u"NIL" ? Value::nil() : Value::symbol(symbol);
}

bool Reader::deliver(Value& datum)
{
    while (!levels_.empty()) {
        Level& level = levels_.back();
        switch (level.state) {
        case Level::State::quote:
            datum = Value::cons(heap_.makeCons(Value::symbol(quote_),
                                               Value::cons(heap_.makeCons(datum, Value::nil()))));
            levels_.pop_back();
            continue;
        case Level::State::afterDot:
            level.last->cdr = datum;
            level.state = Level::State::afterTail;
            return false;
        case Level::State::afterTail: failAt(kExtraCdrs, level.opening);
        case Level::State::items: break;
        }
        Cons* cell = heap_.makeCons(datum, Value::nil());
        if (level.first == nullptr) {
            level.first = cell;
            if (places_ != nullptr) places_->listRead(cell, level.line);
        } else {
            level.last->cdr = Value::cons(cell);
        }
        level.last = cell;
        return false;
    }
    return true;
}

Value Reader::closeList()
{
    if (levels_.empty()) failAt(kExtraParen, at_ - 1);
    const Level level = levels_.back();
    if (level.state == Level::State::quote) fail(kMalformedList);
    if (level.state == Level::State::afterDot) failAt(kMisplacedDot, level.opening);
    levels_.pop_back();
    return level.first == nullptr ? Value::nil() : Value::cons(level.first);
}

bool Reader::next(Value& datum)
{
    levels_.clear();
    for (;;) {
        skipBlanks();
        if (at_ == text_.size()) {
            if (!levels_.empty()) fail(kMalformedList);
            return false;
        }
        switch (text_[at_]) {
        case u'(':
            levels_.push_back({Level::State::items, nullptr, nullptr, at_++, line_});
            continue;
        case u'\'':
            levels_.push_back({Level::State::quote, nullptr, nullptr, at_++, line_});
            continue;
        case u')':
            ++at_;
            datum = closeList();
            break;
        case u'"': datum = readString(); break;
        case u'.':
            if (at_ + 1 == text_.size() || endsToken(text_[at_ + 1])) {
                if (levels_.empty()) failAt(kMisplacedDot, at_);
                Level& level = levels_.back();
                if (level.state == Level::State::afterTail) failAt(kExtraCdrs, level.opening);
                if (level.state != Level::State::items || level.first == nullptr) {
                    failAt(kMisplacedDot, at_);
                }
                level.state = Level::State::afterDot;
                ++at_;
                continue;
            }
            [[fallthrough]];
        default: datum = readToken();
        }
        if (deliver(datum)) return true;
    }
}

} // namespace orvald::lisp
