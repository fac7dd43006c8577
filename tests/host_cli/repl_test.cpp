// SPDX-License-Identifier: LicenseRef-ORVALD
// The console: forms from a pipe, and a user at a terminal.
#include "command_line.h"
#include "form_scanner.h"
#include "terminal.h"

#include <array>
#include <vector>

namespace {

using kextest::CommandLine;
using kextest::Result;
using kextest::Terminal;
using orvald::cli::FormScanner;
using orvald::cli::onOneLine;

struct Cut
{
    std::string_view text;
    std::vector<std::string> forms; // each on one line
    bool open;
};

TEST(FormScanner, CutsWhatTheReaderWouldRead)
{
    const std::vector<Cut> cuts = {
        {"1 a\"b\"'c(d)'(e)", {"1", "a", "\"b\"", "'c", "(d)", "'(e)"}, false},
        {"(a \"(\" ; )\n b) ; c\n;| ( |; d", {"(a \"(\" b)", "d"}, false},
        {"\"a\\\"\nb\" )\n(", {"\"a\\\"\\nb\"", ")"}, true},
        {"'\n;x\n(a\n  (b)\n )", {"' (a (b))"}, false},
        {"(a ;|;| \" ( |; b)", {"(a b)"}, false},
        {"(a ;| b", {}, true},
        {"\"a\nb", {}, true},
        {"'", {}, true},
        {"", {}, false},
    };
    for (const Cut& cut : cuts) {
        SCOPED_TRACE(cut.text);
        FormScanner scanner;
        std::string_view rest = cut.text;
        for (int number = 1; !rest.empty(); ++number) {
            const std::size_t end = std::min(rest.find('\n'), rest.size());
            scanner.add(rest.substr(0, end), number);
            rest.remove_prefix(std::min(end + 1, rest.size()));
        }
        std::vector<std::string> forms;
        while (const auto form = scanner.take()) forms.push_back(onOneLine(form->text));
        EXPECT_EQ(forms, cut.forms);
        EXPECT_EQ(scanner.isOpen(), cut.open);
    }
}

using Repl = CommandLine;

TEST_F(Repl, FormsFromAPipeAreEvaluatedOneAfterTheOther)
{
    const Result run = orvald("repl --no-kernel", "(setq a 3) (+ a 4)\n"
                                                  "(defun f (x)\n"
                                                  "  (car x)) ; comment (\n"
                                                  "(f 2)\n"
                                                  ",bt\n"
                                                  "(getstring T \"Name: \")\n"
                                                  "Jürgen (von)\n"
                                                  "(princ \"abc\")\n"
                                                  ",fly\n"
                                                  ")\n"
                                                  "(vl-catch-all-apply 'exit nil)\n"
                                                  "(list (exit))\n"
                                                  "a");
    EXPECT_EQ(run.out, "3\n7\nF\nerror: bad argument type: consp 2\n  in (CAR X)\n  in (F 2)\n"
                       "\"Jürgen (von)\"\nabc\n\"abc\"\n#<%catch-all-apply-error%>\n3\n");
    EXPECT_EQ(run.err, "line 4: error: bad argument type: consp 2\n"
                       "Name: Jürgen (von)\n"
                       "no such command: ,fly (,help tells what there is)\n"
                       "line 10: error: extra right paren on input\n"
                       "line 12: error: quit / exit abort\n");
    EXPECT_EQ(run.status, 0);
}

TEST_F(Repl, EndsByExitAndByTheEndOfInputButNotInTheMiddleOfAForm)
{
    for (const char* leave : {"(exit)", "( QUIT )", ",quit"}) {
        const Result run = orvald("repl --no-kernel", std::string("1\n") + leave + "\n2\n");
        EXPECT_EQ(run.out, "1\n") << leave;
        EXPECT_EQ(run.status, 0) << leave;
    }
    const Result open = orvald("repl --no-kernel", "(+ 1 2)\n\n(list 1\n  (list 2)");
    EXPECT_EQ(open.out, "3\n");
    EXPECT_EQ(open.err, "line 3: error: the form that begins here has no end: (list 1\n");
    EXPECT_EQ(open.status, 3);
}

TEST_F(Repl, KeepsBindingsAfterLimitsAndLoadsProgramsFirstAndSavesAtTheEnd)
{
    write("p.lsp", "(setq a 5)\n(defun g (n / m) n)");
    const Result run = orvald("repl p.lsp --no-kernel --timeout 0.2 -s end.dxf",
                              "(while T)\n(g a)\n,doc g\n(defun f (n) (1+ (f n)))\n(f 1)\n"
                              "(entmake '((0 . \"POINT\") (10 0.0 0.0 0.0)))\n"
                              ",draw end.svg\n,time (repeat 1000 (list 1 2))");
    EXPECT_EQ(run.out.substr(0, run.out.find("((0")), "5\n(defun g (N / M) ...)   p.lsp:2\nF\n");
    EXPECT_NE(run.out.find("\nend.svg\n(1 2)\n"), std::string::npos) << run.out;
    EXPECT_NE(run.err.find("line 1: stopped: time limit of 0.2 s passed\n"), std::string::npos);
    EXPECT_NE(run.err.find("line 5: error: stack overflow\n"), std::string::npos) << run.err;
    EXPECT_NE(run.err.find(" s, 0.032 MB of LISP data, 0 collections\n"), std::string::npos)
        << run.err;
    EXPECT_NE(kextest::readFile(file("end.dxf")).find("POINT"), std::string::npos);
    EXPECT_NE(kextest::readFile(file("end.svg")).find("<svg"), std::string::npos);
}

TEST_F(Repl, DocTellsWhatIsKnownOfAName)
{
    const Result run = orvald("repl", ",doc kex_str_len\n,doc SUBSTR\n,doc strcat\n,doc foreach\n"
                                      ",doc luprec\n,doc pi\n,doc nosuch\n");
    EXPECT_EQ(run.out, "(kex_str_len  str s) -> int\n"
                       "(substr ...)   2 to 3 arguments\n"
                       "(strcat ...)   any number of arguments\n"
                       "(foreach ...)   special form\n"
                       "system variable: integer from 0 to 8, now 4\n"
                       "pi = 3.14159\n"
                       "nothing is known of nosuch\n");
}

TEST_F(Repl, UserAtATerminalHasPromptsAndCanStopWhatRuns)
{
    Terminal user(file("."), program() + " repl --no-kernel");
    ASSERT_TRUE(user.waitFor("orvald> ")) << user.seen();
    EXPECT_TRUE(user.answers("(setq a\r", "...> ")) << user.seen();
    EXPECT_TRUE(user.answers(" \"Maß\")\r", "\"Maß\"\norvald> ")) << user.seen();
    EXPECT_TRUE(user.answers("(car a)\r", "error: bad argument type: consp \"Maß\"\n"
                                          "(,bt shows the calls that led to it)\norvald> "))
        << user.seen();
    EXPECT_TRUE(user.answers("(princ \"\\nbegun\\n\") (while T)\r", "\nbegun\n")) << user.seen();
    EXPECT_TRUE(user.waitFor("\"\\nbegun\\n\"\n")) << user.seen(); // the value; then the loop
    usleep(100'000);
    EXPECT_TRUE(user.answers("\x03", "interrupted\norvald> ")) << user.seen();
    EXPECT_TRUE(user.answers("(getstring \"Name: \")\r", "\nName: ")) << user.seen();
    EXPECT_TRUE(user.answers("Eva\r", "\"Eva\"\norvald> ")) << user.seen();
    // pasted: a form, the answers that it wants, and more forms
    EXPECT_TRUE(user.answers("(+ (getint) (getint))\r40\r2\r(list\r(* 7 7))\r", "\n(49)\norvald> "))
        << user.seen();
    EXPECT_NE(user.seen().find("42\norvald> "), std::string::npos) << user.seen();
    EXPECT_TRUE(user.answers("(list 1\r", "...> ")) << user.seen();
    EXPECT_TRUE(user.answers("\x03", "orvald> ")) << user.seen();
    EXPECT_TRUE(user.answers("(strlen a)\r", "\n3\norvald> ")) << user.seen();
    user.type("\x04");
    EXPECT_EQ(user.end(), 0);
}

#ifdef ORVALD_LINE_EDITING
TEST_F(Repl, UserAtATerminalHasCompletionAndAHistoryThatStays)
{
    write("plan west.dxf", "");
    {
        Terminal user(file("."), program() + " repl --no-kernel");
        ASSERT_TRUE(user.waitFor("orvald> ")) << user.seen();
        EXPECT_TRUE(user.answers("(defun half (x)\r", "...> "));
        EXPECT_TRUE(user.answers("(/ x 2.0)) ; so\r", "HALF\norvald> ")) << user.seen();
        EXPECT_TRUE(user.answers("(HAL\t", "(HALF")) << user.seen();
        EXPECT_TRUE(user.answers(" 5)\r", "2.5\norvald> ")) << user.seen();
        EXPECT_TRUE(user.answers("(getvar \"luni\t", "(getvar \"lunits\"")) << user.seen();
        EXPECT_TRUE(user.answers(")\r", "\n2\norvald> ")) << user.seen();
        EXPECT_TRUE(user.answers("(findfile \"pla\t", "plan west.dxf\"")) << user.seen();
        EXPECT_TRUE(user.answers("\x03", "orvald> ")) << user.seen();
        EXPECT_TRUE(user.answers("(vl-catch-all-e\t", "(vl-catch-all-error-")) << user.seen();
        EXPECT_TRUE(user.answers("\t", "vl-catch-all-error-message")) << user.seen();
        EXPECT_TRUE(user.answers("\x03", "orvald> ")) << user.seen();
        user.type("(quit)\r");
        EXPECT_EQ(user.end(), 0);
    }
    EXPECT_EQ(kextest::readFile(file("home/history")),
              "(defun half (x) (/ x 2.0))\n(HALF 5)\n(getvar \"lunits\")\n(quit)\n");
    Terminal user(file("."), program() + " repl --no-kernel");
    ASSERT_TRUE(user.waitFor("orvald> ")) << user.seen();
    EXPECT_TRUE(user.answers("(def\x1b[A", "(defun half (x) (/ x 2.0))")) << user.seen();
    EXPECT_TRUE(user.answers("\r", "HALF\norvald> ")) << user.seen();
}
#endif

} // namespace
