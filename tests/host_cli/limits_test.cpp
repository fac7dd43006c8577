// SPDX-License-Identifier: LicenseRef-ORVALD
// Programs that do not end by themselves, and such that eat memory: each ends with its message, the
// LISP calls it was in, and its status.
#include "command_line.h"

#include <array>
#include <chrono>

namespace {

using kextest::CommandLine;
using kextest::Result;

class Limits : public CommandLine
{
protected:
    void expectSaid(const Result& run, std::initializer_list<const char*> pieces) const
    {
        for (const char* piece : pieces) {
            EXPECT_NE(run.err.find(piece), std::string::npos) << piece << "\nin\n" << run.err;
        }
    }
};

struct Endless
{
    const char* what;
    const char* program;
};
constexpr std::array kEndless = {
    Endless{"loop", "(while T)"},
    Endless{"loop with a builtin", "(while T (strcat \"a\" \"b\"))"},
    Endless{"repeat", "(repeat 2147483647 (setq a 1))"},
    Endless{"mutual recursion caught at every level",
            "(defun a () (vl-catch-all-apply 'b nil) (b)) (defun b () (a)) (a)"},
    Endless{"loop that catches", "(while T (vl-catch-all-apply '(lambda () (while T)) nil))"},
    Endless{"loop in its own error function", "(defun *error* (m) (while T)) (car 1)"},
    Endless{"error function that catches",
            "(defun *error* (m) (while T (vl-catch-all-apply 'car '(1)))) (while T)"},
    Endless{"mapcar with builtins", "(while T (mapcar '+ '(1 2) '(3 4)))"},
    Endless{"sort that never agrees",
            "(while T (vl-sort '(1 2 3) '(lambda (a b) (vl-sort '(2 1) '<) T)))"},
    Endless{"memory that is given back",
            "(while T (setq l nil) (repeat 1000 (setq l (cons 1 l))))"},
    Endless{"selection sets", "(entmake '((0 . \"POINT\") (10 0.0 0.0 0.0)))"
                              "(setq e (entlast)) (repeat 2147483647 (setq s (ssadd e)))"},
};

TEST_F(Limits, EndlessProgramsEndAtTheTimeLimitWithTheirCalls)
{
    for (const Endless& one : kEndless) {
        SCOPED_TRACE(one.what);
        write("e.lsp", one.program);
        const Result run = orvald("run e.lsp --no-kernel --timeout 0.15");
        EXPECT_EQ(run.status, 124);
        expectSaid(run, {"stopped: time limit of 0.15 s passed\n"});
        EXPECT_EQ(run.out, "");
    }
    write("e.lsp", "(defun inner (n)\n (while T (strcat \"a\")))\n(defun outer ()\n (inner 3))\n"
                   "(defun *error* (m) (princ m))\n(outer)");
    const Result run = orvald("run e.lsp --timeout 0.2 -s never.dxf");
    expectSaid(run, {"  in (INNER 3)   e.lsp:4\n", "  in (OUTER)   e.lsp:6\n"});
    EXPECT_EQ(run.out, "") << "the program's error function is not asked";
    EXPECT_FALSE(std::filesystem::exists(file("never.dxf")));
}

TEST_F(Limits, WaitingForInputOrForAFileEndsAtTheTimeLimit)
{
    const Result prompt = shell("mkfifo pipe && exec 3<>pipe && " + program() +
                                " eval '(getstring \"Name: \")' --no-kernel --timeout 0.15 <&3");
    EXPECT_EQ(prompt.status, 124) << prompt.err;
    expectSaid(prompt, {"stopped: time limit", "  in (GETSTRING \"Name: \")\n"});
    const Result file =
        shell(program() + " eval '(open \"pipe\" \"r\")' --no-kernel --timeout 0.15");
    EXPECT_EQ(file.status, 124) << file.err;
}

TEST_F(Limits, FunctionOfAModuleThatDoesNotComeBackIsEndedWithItsCalls)
{
    write("e.lsp", "(princ \"begun\")\n(defun inner ()\n  (probe_never))\n"
                   "(defun outer (n) (if (> n 0) (outer (1- n)) (inner)))\n(outer 5)");
    const Result run = orvald("run e.lsp --load probe.arx --timeout 0.2");
    EXPECT_EQ(run.status, 124);
    EXPECT_EQ(run.out, "begun");
    EXPECT_EQ(run.err, "stopped: time limit of 0.2 s passed, and the program does not come back\n"
                       "  in (PROBE_NEVER)   e.lsp:3\n"
                       "  in (INNER)   e.lsp:4\n"
                       "  in (OUTER ...)   e.lsp:4 (again 4 times)\n"
                       "  in (OUTER ...)   e.lsp:5\n");
}

struct Greedy
{
    const char* what;
    const char* program;
    const char* says;
};
constexpr std::array kGreedy = {
    Greedy{"list", "(while T (setq l (cons 1 l)))", "insufficient memory"},
    Greedy{"string", "(setq s \"abc\") (while T (setq s (strcat s s)))", "insufficient memory"},
    Greedy{"many strings", "(while T (setq l (cons (strcat \"abc\" \"def\") l)))",
           "insufficient memory"},
    Greedy{"symbols", "(setq i 0) (while T (read (strcat \"s\" (itoa (setq i (1+ i))))))",
           "insufficient memory"},
    Greedy{"forms", "(setq f 1) (while T (setq f (list '+ f f)) (eval f))", ""},
    Greedy{"drawing", "(while T (entmake '((0 . \"POINT\") (10 0.0 0.0 0.0))))",
           "stopped: memory limit of 96 MB passed\n  in (ENTMAKE"},
};

TEST_F(Limits, GreedyProgramsEndAtTheMemoryLimit)
{
    if (kextest::kSanitized) GTEST_SKIP() << "the sanitizer keeps memory that was given back";
    for (const Greedy& one : kGreedy) {
        SCOPED_TRACE(one.what);
        write("e.lsp", one.program);
        const Result run = orvald("run e.lsp --no-kernel --memory 96 --timeout 20");
        EXPECT_EQ(run.status, 137) << run.err;
        expectSaid(run, {one.says});
    }
}

struct Blunder
{
    const char* what;
    const char* program;
    const char* says;
};
constexpr std::array kBlunders = {
    Blunder{"recursion without end", "(defun f (n) (+ 1 (f n))) (f 1)", "error: stack overflow"},
    Blunder{"mutual recursion", "(defun a (n) (list (b n))) (defun b (n) (list (a n))) (a 1)",
            "error: stack overflow"},
    Blunder{"selection sets that are kept", "(while T (setq l (cons (ssadd) l)))",
            "error: exceeded maximum number of selection sets"},
    Blunder{"file closed twice", "(setq f (open \"a.txt\" \"w\")) (close f) (close f)", "error: "},
    Blunder{"write to a closed file",
            "(setq f (open \"a.txt\" \"w\")) (close f) (write-line \"x\" f)", "error: "},
};

TEST_F(Limits, BlundersAreErrorsThatReachTheTop)
{
    for (const Blunder& one : kBlunders) {
        SCOPED_TRACE(one.what);
        write("e.lsp", one.program);
        const Result run = orvald("run e.lsp --no-kernel");
        EXPECT_EQ(run.status, 3);
        expectSaid(run, {one.says, "  in ("});
    }
}

TEST_F(Limits, EntitiesMayGoWhileAProgramWalks)
{
    write("e.lsp", "(repeat 5 (entmake '((0 . \"POINT\") (10 0.0 0.0 0.0))))\n"
                   "(setq n 0 e (entnext))\n"
                   "(while e (setq n (1+ n) next (entnext e)) (entdel e) (setq e next))\n"
                   "(princ (list n (entnext)))\n"
                   "(entmake '((0 . \"POINT\") (10 0.0 0.0 0.0))) (setq e (entlast)) (entdel e)\n"
                   "(princ (list (entget e) (entmod (list (cons -1 e)))))");
    const Result run = orvald("run e.lsp --no-kernel");
    EXPECT_EQ(run.out, "(5 nil)(nil nil)\n") << run.err;
    EXPECT_EQ(run.status, 0);
}

TEST_F(Limits, CtrlCEndsALoopAndAPromptWithTheCalls)
{
    write("loop.lsp", "(defun f () (while T))\n(f)\n");
    const std::string interrupted = "timeout --foreground --preserve-status -s INT 1 " + program();
    const Result loop = shell(interrupted + " run loop.lsp --no-kernel");
    EXPECT_EQ(loop.status, 130);
    expectSaid(loop, {"interrupted\n  in (F)   loop.lsp:2\n"});
    const Result prompt = shell("mkfifo pipe && exec 3<>pipe && " + interrupted +
                                " eval '(getstring \"Name: \")' --no-kernel <&3");
    EXPECT_EQ(prompt.status, 130);
    expectSaid(prompt, {"interrupted"});
}

} // namespace
