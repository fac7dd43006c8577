// SPDX-License-Identifier: LicenseRef-ORVALD
// Functions that give a changed copy of a text, or its parts.
#include "hostapi/lisp.h"
#include "kex/code_page.h"
#include "kex/names.h"
#include "kex/search.h"
#include "marshal/arg_reader.h"
#include "marshal/ret_ads.h"
#include "str/character.h"
#include "str/str_rows.h"

namespace KEX {
namespace {

/// A text padded by one of CKexString's functions.
int retFilled(const resbuf* args, CKexString& (CKexString::*fill)(int, ACHAR))
{
    ArgReader in(args);
    CKexString text = in.string(1);
    const int units = in.integer(2);
    in.require(units <= CKexString::kMostUnits, 2);
    // Code 0 is no character that a text can hold: like "", and like any other type, the blank.
    const ACHAR unit = characterOf(in.any()).value_or(0);
    if (in.failed()) return in.fail();
    return retAds((text.*fill)(units, unit == 0 ? KT(' ') : unit));
}

/// All arguments, each string among them converted where it stands.
int retConverted(void (*convert)(ACHAR*))
{
    resbuf* const arguments = acedGetArgs();
    for (resbuf* node = arguments; node != nullptr; node = node->rbnext) {
        if (node->restype == RTSTR) convert(node->resval.rstring);
    }
    return returnRb(arguments);
}

} // namespace

int strCase(const resbuf* args)
{
    ArgReader in(args);
    CKexString text = in.string(0);
    if (in.failed()) return in.fail();
    return retAds(in.flag() ? text.makeLower() : text.makeUpper());
}

int strTrim(const resbuf* args)
{
    ArgReader in(args);
    CKexString text = in.string(0);
    if (in.failed()) return in.fail();
    return retAds(text.trim());
}

int strRpl(const resbuf* args)
{
    ArgReader in(args);
    const TextView text = in.text(1);
    const TextView old = in.text(2);
    in.require(!in.isLast(), 3);
    const CKexString fresh = in.stringIfAny(3).value_or(CKexString()); // nil takes `old` away
    if (in.failed()) return in.fail();
    return retAds(replaced(text, old, fresh));
}

int strRFill(const resbuf* args) { return retFilled(args, &CKexString::rfill); }
int strLFill(const resbuf* args) { return retFilled(args, &CKexString::lfill); }

int strSub(const resbuf* args)
{
    ArgReader in(args);
    const CKexString text = in.string(1);
    const int start = in.integer(2);
    in.require(start >= 1, 2);
    int count = 0;
    const resbuf* node = in.any();
    const bool counted = readInteger(node, count); // kept: a count of another type is none
    in.require(count >= 0, 3);
    if (in.failed()) return in.fail();
    return retAds(text.mid(start - 1, counted ? count : -1)); // -1: up to the end
}

int strSplit(const resbuf* args)
{
    ArgReader in(args);
    const TextView text = in.text(1);
    const TextView delimiters = in.text(2);
    if (in.failed()) return in.fail();
    if (text.empty()) return retAds(false);
    // Straight into the result's chain: an array of texts would double the time.
    RbBuilder list;
    list.begin();
    forEachPart(text, delimiters, true, [&](TextView part) { list.text(part); });
    return returnRb(list.end().take());
}

int strToHtml(const resbuf* args)
{
    ArgReader in(args);
    CKexString text = in.string(1);
    if (in.failed()) return in.fail();
    return retAds(text.escapeHtml(in.flag()));
}

int strFromHtml(const resbuf* args)
{
    ArgReader in(args);
    CKexString text = in.string(1);
    if (in.failed()) return in.fail();
    return retAds(text.unEscapeHtml());
}

int strName(const resbuf* args)
{
    ArgReader in(args);
    const TextView text = in.text(0);
    if (in.failed()) return in.fail();
    return retAds(str_name(text, KT(' ')));
}

int strAToWin(const resbuf*) { return retConverted(dosToWin); }
int strAToDos(const resbuf*) { return retConverted(winToDos); }

} // namespace KEX
