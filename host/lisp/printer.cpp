// SPDX-License-Identifier: LicenseRef-ORVALD
#include "printer.h"

#include "characters.h"
#include "lambda.h"
#include "number_text.h"
#include "objects.h"

#include <vector>

namespace orvald::lisp {

namespace {

void appendHex(std::u16string& text, std::uint64_t value)
{
    char16_t digits[16];
    std::size_t count = 0;
    do {
        digits[count++] = u"0123456789abcdef"[value & 15];
        value >>= 4;
    } while (value != 0);
    while (count > 0) text.push_back(digits[--count]);
}

void appendQuoted(std::u16string& text, std::u16string_view units)
{
    text.push_back(u'"');
    for (const char16_t unit : units) {
        switch (unit) {
        case u'"': text += u"\\\""; break;
        case u'\\': text += u"\\\\"; break;
        case u'\n': text += u"\\n"; break;
        case u'\r': text += u"\\r"; break;
        case u'\t': text += u"\\t"; break;
        case 0x1B: text += u"\\e"; break;
        default:
            if (unit < u' ' || unit == 0x7F) {
                text.push_back(u'\\');
                for (int shift = 6; shift >= 0; shift -= 3) {
                    text.push_back(static_cast<char16_t>(u'0' + (unit >> shift & 7)));
                }
            } else {
                text.push_back(unit);
            }
        }
    }
    text.push_back(u'"');
}

void appendFunction(std::u16string& text, std::u16string_view kind, const Object* object,
                    std::u16string_view name)
{
    text += u"#<";
    text += kind;
    text += u" @";
    appendHex(text, reinterpret_cast<std::uintptr_t>(object));
    text.push_back(u' ');
    text += name;
    text.push_back(u'>');
}

void appendObject(std::u16string& text, const Object* object, Quoting quoting)
{
    switch (object->kind) {
    case Kind::string: {
        const std::u16string_view units = static_cast<const String*>(object)->view();
        if (quoting == Quoting::quoted) {
            appendQuoted(text, units);
        } else {
            text += units;
        }
        break;
    }
    case Kind::subr: {
        const std::string_view name = static_cast<const Subr*>(object)->builtin->name;
        appendFunction(text, u"SUBR", object,
                       text::upperText(std::u16string(name.begin(), name.end())));
        break;
    }
    case Kind::usubr: {
        const Symbol* name = static_cast<const Lambda*>(object)->name;
        appendFunction(text, u"USUBR", object, name == nullptr ? u"-lambda-" : name->name);
        break;
    }
    case Kind::exrxsubr:
        appendFunction(text, u"EXRXSUBR", object, static_cast<const External*>(object)->name);
        break;
    case Kind::pickset:
        text += u"<Selection set: ";
        appendHex(text, static_cast<std::uint32_t>(static_cast<const Pickset*>(object)->set));
        text.push_back(u'>');
        break;
    case Kind::file:
        text += u"#<file ";
        appendQuoted(text, static_cast<const File*>(object)->name);
        text.push_back(u'>');
        break;
    case Kind::vlaObject: {
        const auto* stand = static_cast<const VlaObject*>(object);
        text += u"#<VLA-OBJECT ";
        text += stand->className;
        if (stand->entity.isEntity()) {
            text.push_back(u' ');
            appendHex(text, stand->entity.asEntity());
        }
        text.push_back(u'>');
        break;
    }
    default: text += u"#<%catch-all-apply-error%>";
    }
}

void appendAtom(std::u16string& text, Value value, Quoting quoting)
{
    if (value.isNil()) {
        text += u"nil";
    } else if (value.isBlank()) {
        return;
    } else if (value.isInteger()) {
        text += integerText(value.asInteger());
    } else if (value.isReal()) {
        text += realText(value.asReal());
    } else if (value.isSymbol()) {
        text += value.asSymbol()->name;
    } else if (value.isEntity()) {
        text += u"<Entity name: ";
        appendHex(text, value.asEntity());
        text.push_back(u'>');
    } else {
        appendObject(text, value.asObject(), quoting);
    }
}

} // namespace

std::u16string printedText(Value value, Quoting quoting, std::size_t limit)
{
    std::u16string text;
    std::vector<Value> rests; // what follows the element that is being printed, outermost first
    for (Value now = value;;) {
        if (now.isCons() && text.size() <= limit) {
            text.push_back(u'(');
            rests.push_back(now.asCons()->cdr);
            now = now.asCons()->car;
            continue;
        }
        if (!now.isCons()) appendAtom(text, now, quoting);
        if (text.size() > limit) {
            text.resize(limit);
            return text += u"...";
        }
        while (!rests.empty() && !rests.back().isCons()) {
            if (!rests.back().isNil()) {
                text += u" . ";
                appendAtom(text, rests.back(), quoting);
            }
            text.push_back(u')');
            rests.pop_back();
        }
        if (rests.empty()) return text;
        text.push_back(u' ');
        now = rests.back().asCons()->car;
        rests.back() = rests.back().asCons()->cdr;
    }
}

} // namespace orvald::lisp
