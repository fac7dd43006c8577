// SPDX-License-Identifier: LicenseRef-ORVALD
#include "core.h"

#include <iterator>

namespace orvald::lisp {

namespace {

constexpr CoreRow kRows[] = {
    {Core::quote, u"QUOTE", hooks::quote},
    {Core::function, u"FUNCTION", hooks::function},
    {Core::lambda, u"LAMBDA", hooks::lambda},
    {Core::setq, u"SETQ", hooks::setq},
    {Core::ifForm, u"IF", hooks::ifForm},
    {Core::cond, u"COND", hooks::cond},
    {Core::andForm, u"AND", hooks::andForm},
    {Core::orForm, u"OR", hooks::orForm},
    {Core::progn, u"PROGN", hooks::progn},
    {Core::whileForm, u"WHILE", hooks::whileForm},
    {Core::repeat, u"REPEAT", hooks::repeat},
    {Core::foreach, u"FOREACH", hooks::foreach},
    {Core::defun, u"DEFUN", hooks::defun},
    {Core::defunQ, u"DEFUN-Q", hooks::defunQ},
    {Core::trace, u"TRACE", hooks::trace},
    {Core::untrace, u"UNTRACE", hooks::trace},
    {Core::add, u"+", hooks::add},
    {Core::subtract, u"-", hooks::subtract},
    {Core::multiply, u"*", hooks::multiply},
    {Core::divide, u"/", hooks::divide},
    {Core::rem, u"REM", hooks::rem},
    {Core::logand, u"LOGAND", hooks::logand},
    {Core::numEqual, u"=", hooks::numEqual},
    {Core::numUnequal, u"/=", hooks::numUnequal},
    {Core::less, u"<", hooks::less},
    {Core::lessEqual, u"<=", hooks::lessEqual},
    {Core::greater, u">", hooks::greater},
    {Core::greaterEqual, u">=", hooks::greaterEqual},
    {Core::eq, u"EQ", hooks::eq},
    {Core::equal, u"EQUAL", hooks::equal},
    {Core::cons, u"CONS", hooks::cons},
    {Core::nth, u"NTH", hooks::nth},
    {Core::increment, u"1+", hooks::increment},
    {Core::decrement, u"1-", hooks::decrement},
    {Core::car, u"CAR", hooks::car},
    {Core::cdr, u"CDR", hooks::cdr},
    {Core::caar, u"CAAR", hooks::caar},
    {Core::cadr, u"CADR", hooks::cadr},
    {Core::cdar, u"CDAR", hooks::cdar},
    {Core::cddr, u"CDDR", hooks::cddr},
    {Core::caddr, u"CADDR", hooks::caddr},
    {Core::nullTest, u"NULL", hooks::nullTest},
    {Core::notTest, u"NOT", hooks::notTest},
    {Core::zerop, u"ZEROP", hooks::zerop},
    {Core::minusp, u"MINUSP", hooks::minusp},
    {Core::numberp, u"NUMBERP", hooks::numberp},
    {Core::listp, u"LISTP", hooks::listp},
    {Core::atom, u"ATOM", hooks::atom},
    {Core::consp, u"VL-CONSP", hooks::consp},
};
static_assert(std::size(kRows) == kCoreCount);
static_assert([] {
    for (std::size_t i = 0; i < kCoreCount; ++i) {
        if (static_cast<std::size_t>(kRows[i].core) != i) return false;
    }
    return true;
}());

} // namespace

std::span<const CoreRow> coreRows() { return kRows; }

} // namespace orvald::lisp
