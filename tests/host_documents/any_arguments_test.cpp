// SPDX-License-Identifier: LicenseRef-ORVALD
// Every function of the drawing takes whatever a program passes: it answers or raises an error of
// the language, and the drawing stays sound.
#include "document.h"
#include "drawing_functions.h"
#include "host.h"

#include <gtest/gtest.h>
#include <random>

namespace {

using namespace orvald;
using lisp::Value;

/// One value of each kind that programs have, and those that look like something else.
constexpr char16_t kValues[] = uR"((list nil T 0 1 -3 70000 2.5 -1e300 "" "X" "LAYER" "0" "'2A"
    "CLAYER" 'a car '(lambda (x) x) (entlast) (car dead) (ssadd) (open "/dev/null" "r")
    '(1 2) '(1.0 2.0 3.0) '(1 . 2) '(nil) '((0 . "LINE")) '("*")
    '((0 . "LINE") (10 1 2) (11 3 4)) '((0 . "POLYLINE")) '((0 . "VERTEX") (10 1 1)) '((0 . "SEQEND"))
    '((0 . "BLOCK") (2 . "B") (10 0 0) (70 . 0)) '((0 . "ENDBLK")) '((-4 . "<AND") (0 . "LINE"))
    '((0 . "LWPOLYLINE") (100 . "AcDbEntity") (100 . "AcDbPolyline") (90 . -5) (10 0 0))
    (if (entlast) (entget (entlast))) (if (entlast) (cons '(40 . -1.0) (entget (entlast)))) (list (cons -1 (namedobjdict)) '(3 . "K"))
    (namedobjdict) (tblobjname "LAYER" "0") (tblobjname "BLOCK" "*Model_Space")))";

TEST(DrawingFunctions, TakeAnyArguments)
{
    Host host;
    host.console().setLevel(Console::Level::quiet);
    host.input().setAnswers({});
    lisp::World& world = host.newDocument().world();
    world.evalText(
        u"(entmake '((0 . \"CIRCLE\") (10 0 0) (40 . 1)))"
        u"(setq dead (list (entmakex '((0 . \"POINT\") (10 0 0))))) (entdel (car dead))");
    std::mt19937 random(20250711);
    for (const auto& table : {entityFunctions(), selectionFunctions(), tableFunctions(),
                              systemFunctions(), graphicsFunctions(), inputFunctions()}) {
        for (const lisp::Builtin& row : table) {
            if (std::string_view(row.name) == "alert") continue; // a line on stderr each time
            SCOPED_TRACE(row.name);
            const int most = row.most < 0 ? row.least + 2 : row.most;
            for (int round = 0; round < 400; ++round) {
                const lisp::Outcome made = world.evalText(kValues);
                ASSERT_TRUE(made.ok()) << lisp::toUtf8(made.error->message);
                const lisp::Root values(world, made.value);
                std::vector<Value> pool;
                for (Value rest = values.value; rest.isCons(); rest = lisp::cdr(rest)) {
                    pool.push_back(lisp::car(rest));
                }
                ASSERT_GT(pool.size(), 30u);
                lisp::ListBuilder arguments(world);
                const int count = row.least + static_cast<int>(random() % (most - row.least + 1));
                for (int i = 0; i < count; ++i) arguments.add(pool[random() % pool.size()]);
                const Value call[] = {world.symbolValue(lisp::toUtf16(row.name)), arguments.list()};
                const lisp::Outcome outcome = world.applyTop(u"VL-CATCH-ALL-APPLY", call);
                ASSERT_TRUE(outcome.ok());
            }
        }
    }
    // A walk over all that was made comes to its end, and everything in it can be read.
    const lisp::Outcome walk = world.evalText(
        u"(entmake) (setq e (entnext) n 0)"
        u"(while e (if (entget e '(\"*\")) (setq n (1+ n))) (setq e (entnext e))) (> n 0)");
    ASSERT_TRUE(walk.ok());
    EXPECT_EQ(walk.value, world.t());
}

TEST(DrawingFunctions, ACommandThatCallsItselfEndsInAnError)
{
    Host host;
    host.console().setLevel(Console::Level::quiet);
    lisp::World& world = host.newDocument().world();
    const lisp::Outcome outcome =
        world.evalText(u"(defun c:again () (command \"again\")) (command \"again\")");
    EXPECT_FALSE(outcome.ok());
}

} // namespace
