// SPDX-License-Identifier: LicenseRef-ORVALD
// The command line as a user types it: output, messages and exit status of the real program.
#include "command_line.h"

#include <array>

namespace {

using kextest::CommandLine;
using kextest::Result;

TEST_F(CommandLine, EvalPrintsEachValueAsLispDoes)
{
    const Result run =
        orvald("eval '(+ 1 2)' '\"a\\\"b\"' '(kex_str_len \"Maß\")' '(princ)' -e 'pi'");
    EXPECT_EQ(run.out, "3\n\"a\\\"b\"\n3\n3.14159\n");
    EXPECT_EQ(run.err, "");
    EXPECT_EQ(run.status, 0);
}

TEST_F(CommandLine, RunGivesArgumentsAndSavesAndDraws)
{
    const std::string program = write("p.lsp", "(princ (argv))\n"
                                               "(entmake '((0 . \"LINE\") (10 0.0 0.0 0.0)"
                                               " (11 100.0 50.0 0.0)))\n(princ)");
    const Result run = orvald("run p.lsp one -s a.dxf --picture a.svg -- -two");
    EXPECT_EQ(run.out, "(one -two)\n") << run.err;
    EXPECT_EQ(run.status, 0);
    EXPECT_NE(kextest::readFile(file("a.svg")).find("<svg"), std::string::npos);
    const Result again = orvald("run -e '(princ (cdr (assoc 0 (entget (entlast)))))' -d a.dxf");
    EXPECT_EQ(again.out, "LINE\n") << again.err;
    EXPECT_EQ(orvald("draw a.dxf a.png").status, 0);
    EXPECT_TRUE(kextest::readFile(file("a.png")).starts_with("\x89PNG"));
    // What is drawn twice in the complement is not there.
    const auto drawn = [&](const std::string& expression) {
        EXPECT_EQ(orvald("draw a.dxf b.svg --overlay -e \"" + expression + "\"").status, 0);
        return kextest::readFile(file("b.svg"));
    };
    const std::string bare = drawn("1"), cross = "(kex_g_gr_cross '(50 20))";
    EXPECT_GT(drawn(cross).size(), bare.size());
    EXPECT_EQ(drawn(cross + cross), bare);
    EXPECT_EQ(orvald("draw a.dxf b.svg -e 1").status, 64);
}

TEST_F(CommandLine, DrawTakesTheLookOfThePicture)
{
    const std::string make = "(entmake (list (quote (0 . \"CIRCLE\")) (list 10 5.0 5.0 0.0)"
                             " (quote (40 . 5.0))))";
    const Result made =
        orvald("eval '" + make + "' -s a.dxf --picture a.svg --width 300 --margin 0");
    EXPECT_EQ(made.status, 0) << made.err;
    EXPECT_NE(kextest::readFile(file("a.svg")).find("width=\"300\" height=\"300\""),
              std::string::npos);
    const Result dark = orvald("draw a.dxf b.svg --dark --thin --height=90 --window 0,0,10,10");
    EXPECT_EQ(dark.status, 0) << dark.err;
    const std::string picture = kextest::readFile(file("b.svg"));
    for (const char* piece : {"width=\"1600\" height=\"90\"", "fill=\"#212830\"",
                              "stroke=\"#ffffff\" stroke-width=\"1\""})
        EXPECT_NE(picture.find(piece), std::string::npos) << piece;
    EXPECT_EQ(orvald("draw a.dxf c.svg --layout nowhere").status, 4);
    for (const char* wrong : {"--width 1.5", "--height -1", "--window 1,2,3", "--window 5,0,1,9",
                              "--dark=1", "--width"})
        EXPECT_EQ(orvald(std::string("draw a.dxf c.svg ") + wrong).status, 64) << wrong;
}

TEST_F(CommandLine, ErrorsTellMessageCallsAndPlace)
{
    write("bad.lsp",
          "(defun inner (x)\n  (+ x \"a\"))\n\n(defun outer ()\n  (inner 1))\n(outer)\n");
    const Result run = orvald("run bad.lsp");
    EXPECT_EQ(run.status, 3);
    EXPECT_NE(run.err.find("error: bad argument type: numberp: \"a\""), std::string::npos)
        << run.err;
    const std::size_t inner = run.err.find("bad.lsp:2"), outer = run.err.find("bad.lsp:5");
    EXPECT_NE(inner, std::string::npos) << run.err;
    EXPECT_NE(outer, std::string::npos) << run.err;
    EXPECT_LT(inner, outer);
    // A program that ends in the middle of a list names where it began.
    write("open.lsp", "(setq a 1)\n\n(setq b (list 1 2\n");
    const Result open = orvald("run open.lsp");
    EXPECT_EQ(open.status, 3);
    EXPECT_NE(open.err.find("open.lsp:3"), std::string::npos) << open.err;
}

TEST_F(CommandLine, NothingIsSavedAfterAnError)
{
    EXPECT_EQ(orvald("run -e '(car 1)' -s never.dxf").status, 3);
    EXPECT_FALSE(std::filesystem::exists(file("never.dxf")));
}

TEST_F(CommandLine, InfoAndCheckTellWhatIsInADrawingAndWhatIsWrong)
{
    ASSERT_EQ(orvald("eval '(entmake (list (quote (0 . \"LINE\")) (list 10 1.0 2.0 0.0)"
                     " (list 11 4.0 6.5 0.0)))' -s a.dxf")
                  .status,
              0);
    const Result info = orvald("info a.dxf");
    EXPECT_EQ(info.status, 0);
    for (const char* piece : {"AC1027 (R2013)", "mm", "1, 2, 0 to 4, 6.5, 0", "LINE", "Layout1"})
        EXPECT_NE(info.out.find(piece), std::string::npos) << piece << "\n" << info.out;
    const Result json = orvald("info a.dxf --json");
    EXPECT_NE(json.out.find("\"LINE\": 1"), std::string::npos) << json.out;
    EXPECT_EQ(orvald("check a.dxf").out, "0 errors, 0 warnings (AC1027, R2013)\n");
    std::string text = kextest::readFile(file("a.dxf"));
    text.replace(text.find("AcDbLine\n"), 9, "AcDbLine\n 62\n   300\n150\nx\n");
    write("b.dxf", text);
    const Result check = orvald("check b.dxf");
    EXPECT_EQ(check.status, 2);
    EXPECT_NE(check.out.find("group code 150 does not exist [unknown-group]"), std::string::npos);
    EXPECT_NE(check.out.find("1 error, 0 warnings"), std::string::npos) << check.out;
    EXPECT_NE(orvald("check b.dxf --json").out.find("\"kind\": \"unknown-group\""),
              std::string::npos);
}

struct Status
{
    const char* what;
    const char* line;
    int status;
    const char* says;
};
constexpr std::array kStatuses = {
    Status{"help", "--help", 0, ""},
    Status{"version", "--version", 0, ""},
    Status{"no command", "", 64, ""},
    Status{"unknown command", "fly", 64, "no command fly"},
    Status{"unknown option", "eval 1 --fly", 64, "unknown option --fly"},
    Status{"option without value", "eval 1 -d", 64, "-d needs a value"},
    Status{"missing program", "run nowhere.lsp", 66, "nowhere.lsp: no such file"},
    Status{"missing drawing", "eval 1 -d nowhere.dxf", 66, "nowhere.dxf: no such file"},
    Status{"no drawing", "eval 1 -d stdin", 2, "stdin"},
    Status{"info on nothing", "info", 64, "needs one drawing"},
    Status{"check of nothing", "check nowhere.dxf", 66, "nowhere.dxf: no such file"},
    Status{"info on no drawing", "info stdin", 2, "stdin"},
    Status{"missing module", "eval 1 --load nowhere.arx", 66, "nowhere.arx"},
    Status{"refusing module", "eval 1 --load refusing.arx", 66, "refused to start"},
    Status{"output in no folder", "eval 1 -s nowhere/a.dxf", 4, "nowhere/a.dxf"},
    Status{"picture of no kind", "eval 1 --picture a.xyz", 4, "a.xyz"},
    Status{"no input", "eval '(getstring \"Name: \")'", 5, "Name: "},
    Status{"exit", "eval '(exit)'", 3, "quit / exit abort"},
    Status{"variable", "eval 1 --set NOSUCH=1", 64, "NOSUCH"},
};

TEST_F(CommandLine, ExitStatusTellsWhatHappened)
{
    for (const Status& one : kStatuses) {
        SCOPED_TRACE(one.what);
        const Result run = orvald(one.line);
        EXPECT_EQ(run.status, one.status) << run.err;
        EXPECT_NE(run.err.find(one.says), std::string::npos) << run.err;
    }
}

TEST_F(CommandLine, ProgramErrorFunctionHasTheLastWord)
{
    write("e.lsp", "(defun *error* (msg) (princ (strcat \"own: \" msg)))\n(car 1)\n");
    const Result run = orvald("run e.lsp");
    EXPECT_EQ(run.out, "own: bad argument type: consp 1\n");
    EXPECT_EQ(run.err, "");
    EXPECT_EQ(run.status, 3);
}

TEST_F(CommandLine, FunctionsListAsTextAndAsJson)
{
    const Result text = orvald("functions str_len");
    EXPECT_EQ(text.out, "(kex_str_len  str s) -> int\n");
    EXPECT_EQ(text.err, "1 functions, 1 of them built\n");
    const Result json = orvald("functions kex_dlg_pop --json");
    EXPECT_EQ(json.out, "[\n  {\"name\": \"kex_dlg_pop\", \"arguments\": \"\", "
                        "\"result\": \"str or nil\", \"built\": true}\n]\n");
}

TEST_F(CommandLine, DataFilesBecomeTextAndComeBackToTheSameBytes)
{
    ASSERT_EQ(
        orvald("eval '(kex_d_bwrite \"a.dex\" (list (cons \"Maß\" 2.0) (list 7 \"x\" 1)))'").out,
        "T\n");
    const Result text = orvald("data a.dex");
    EXPECT_EQ(text.out, "{\n  \"Maß\" 2.0\n  7 (\"x\" 1)\n}\n");
    EXPECT_EQ(text.status, 0);
    write("a.txt", text.out);
    EXPECT_EQ(orvald("data --from-text a.txt b.dex").status, 0);
    EXPECT_EQ(kextest::readFile(file("b.dex")), kextest::readFile(file("a.dex")));

    write("cut.dex", kextest::readFile(file("a.dex")).substr(0, 40));
    const Result cut = orvald("data cut.dex");
    EXPECT_EQ(cut.out, "{\n  \"Maß\" 2.0\n  7 nil\n}\n");
    EXPECT_EQ(cut.err, "cut.dex: it is cut short; the text is what could be read\n");
    EXPECT_EQ(cut.status, 2);
    write("bad.txt", "{\n 1\n}");
    const Result bad = orvald("data --from-text bad.txt b.dex");
    EXPECT_EQ(bad.err, "bad.txt: line 3: a value is expected\n");
    EXPECT_EQ(bad.status, 2);
    EXPECT_EQ(kextest::readFile(file("b.dex")), kextest::readFile(file("a.dex")));
    EXPECT_EQ(orvald("data none.dex").status, 66);
    EXPECT_EQ(orvald("data").status, 64);
    EXPECT_EQ(orvald("data a.dex --no-kernel").status, 2);
    EXPECT_EQ(orvald("data --from-text a.txt no/such/b.dex").status, 4);
}

TEST_F(CommandLine, TraceAndTimeShowTheCallsIntoTheKernel)
{
    const Result run = orvald("run -e '(kex_str_len \"ab\")' --trace --time");
    EXPECT_NE(run.err.find("(KEX_STR_LEN \"ab\")"), std::string::npos) << run.err;
    EXPECT_NE(run.out.find("kex_str_len\n"), std::string::npos) << run.out;
}

TEST_F(CommandLine, BoxesAreAnsweredByPolicy)
{
    EXPECT_EQ(orvald("eval 1 --boxes maybe").status, 64);
    EXPECT_EQ(orvald("eval '(alert \"Achtung\")'").err, "ALERT: Achtung\n");
}

} // namespace
