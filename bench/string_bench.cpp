// SPDX-License-Identifier: LicenseRef-ORVALD
// String functions through LISP against the same work over std::u16string, on texts of 10, 1,000
// and 1,000,000 units in the same run. The peers are functions as C++ has them: texts go in by
// value, as LISP hands them over, and results come out by value. A text is rows of a list file,
// "Abwicklun;" again and again; what is searched for stands at its end. The LISP loop's own cost is
// taken off. Microseconds a call, median of rounds that take turns; every result is checked first.
#include "bench_session.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;

constexpr int kRounds = 15;
constexpr std::size_t kUnitsARound = 2'000'000; // that a loop goes through
constexpr int kMostCalls = 20'000;
constexpr char16_t kRow[] = u"Abwicklun;";
constexpr char16_t kLast[] = u"_Ende";

// -- the peers; not inlined, so that they stay calls

[[gnu::noinline]] std::size_t length(std::u16string text)
{
    // Texts cross the border with an end mark and no length.
    return std::char_traits<char16_t>::length(text.c_str());
}

[[gnu::noinline]] std::size_t position(std::u16string text, std::u16string part)
{
    return text.find(part) + 1;
}

[[gnu::noinline]] std::vector<std::u16string> split(std::u16string text, std::u16string delimiters)
{
    std::vector<std::u16string> parts;
    std::size_t start = 0;
    for (;;) {
        const std::size_t end = text.find_first_of(delimiters, start);
        parts.push_back(text.substr(start, end - start));
        if (end == std::u16string::npos) return parts;
        start = end + 1;
    }
}

[[gnu::noinline]] std::u16string replaced(std::u16string text, std::u16string old,
                                          std::u16string fresh)
{
    std::u16string result;
    result.reserve(text.size());
    std::size_t done = 0;
    for (std::size_t hit = text.find(old); hit != std::u16string::npos;
         hit = text.find(old, done)) {
        result.append(text, done, hit - done).append(fresh);
        done = hit + old.size();
    }
    return result.append(text, done);
}

std::u16string textOf(std::size_t units)
{
    std::u16string text;
    while (text.size() < units) text += kRow;
    text.resize(units - 5);
    return text + kLast;
}

struct Case
{
    const char* name;
    const char* expression;                          // of the text s
    const char* number;                              // the result as a number, of the result r
    std::size_t (*work)(const std::u16string& text); // the same number from the peer
};

const Case kCases[] = {
    {"kex_str_len", "(kex_str_len s)", "r", [](const std::u16string& s) { return length(s); }},
    {"kex_str_str", "(kex_str_str s \"_Ende\")", "r",
     [](const std::u16string& s) { return position(s, u"_Ende"); }},
    {"kex_str_split", "(kex_str_split s \";\")", "(length r)",
     [](const std::u16string& s) { return split(s, u";").size(); }},
    {"kex_str_rpl, as long", "(kex_str_rpl s \"wick\" \"WICK\")", "(strlen r)",
     [](const std::u16string& s) { return replaced(s, u"wick", u"WICK").size(); }},
    {"kex_str_rpl, none", "(kex_str_rpl s \"wack\" \"WICK\")", "(strlen r)",
     [](const std::u16string& s) { return replaced(s, u"wack", u"WICK").size(); }},
};

double microsecondsPer(Clock::time_point start, int count)
{
    const std::chrono::duration<double, std::micro> taken = Clock::now() - start;
    return taken.count() / count;
}

std::string evaluated(orvald::Session& session, const std::string& expression)
{
    const orvald::Evaluation result = session.eval(expression);
    if (result.ok) return result.value;
    std::fprintf(stderr, "string_bench: %s: %s\n", expression.c_str(), result.error.c_str());
    std::exit(1);
}

void compare(orvald::Session& session, const Case& one, std::size_t units)
{
    const std::u16string text = textOf(units);
    const int calls =
        static_cast<int>(std::clamp<std::size_t>(kUnitsARound / units, 2, kMostCalls));
    const std::string repeat = "(repeat " + std::to_string(calls) + " ";
    evaluated(session, std::string("(defun call () ") + repeat + one.expression + ") nil)");
    evaluated(session, "(defun bare () " + repeat + "s) nil)");
    const std::string found =
        evaluated(session, std::string("((lambda (r) ") + one.number + ") " + one.expression + ")");
    if (found != std::to_string(one.work(text))) {
        std::fprintf(stderr, "string_bench: %s gives %s\n", one.expression, found.c_str());
        std::exit(1);
    }
    std::vector<double> ours, peers;
    std::size_t sum = 0;
    for (int round = 0; round < kRounds; ++round) {
        Clock::time_point start = Clock::now();
        for (int i = 0; i < calls; ++i) sum += one.work(text);
        peers.push_back(microsecondsPer(start, calls));
        start = Clock::now();
        evaluated(session, "(bare)");
        const double bare = microsecondsPer(start, calls);
        start = Clock::now();
        evaluated(session, "(call)");
        ours.push_back(microsecondsPer(start, calls) - bare);
    }
    if (sum == 0) std::abort(); // keeps the work
    const double own = kexbench::median(ours), peer = kexbench::median(peers);
    std::printf("%-22s %8zu units %12.3f us %12.3f us %7.2f x\n", one.name, units, own, peer,
                own / peer);
}

int measure()
{
    kexbench::Running running("string_bench");
    orvald::Session& session = running.session;
    std::printf("%-22s %14s %15s %15s\n", "", "", "LISP", "std::u16string");
    for (const Case& one : kCases) {
        for (const std::size_t units : {std::size_t(10), std::size_t(1000), std::size_t(1000000)}) {
            evaluated(session, "(setq s (strcat (substr (apply 'strcat (mapcar '(lambda (i) "
                               "\"Abwicklun;\") (kex_str_split (kex_str_rfill \"\" " +
                                   std::to_string(units / 10 + 1) + " \"x\") \"x\"))) 1 " +
                                   std::to_string(units - 5) + ") \"_Ende\"))");
            compare(session, one, units);
        }
    }
    return 0;
}

} // namespace

int main() { return orvald::runOnLispThread(measure); }
