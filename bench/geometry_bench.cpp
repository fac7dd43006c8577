// SPDX-License-Identifier: LicenseRef-ORVALD
// Plane primitives against the same formula in plain C++ (geometry_peers.cpp), in tight loops over
// 4,096 random inputs, taking turns; then functions through LISP against kex_str_len. Nanoseconds a
// call, median of rounds. Results are compared first. What the peers leave out: tolerances,
// touching, degenerate input, the digits that near-degenerate input loses.
#include "bench_session.h"
#include "geometry_peers.h"

#include "kex/arc.h"
#include "kex/basket_handle.h"
#include "kex/ellipse.h"
#include "kex/intersection.h"
#include "kex/line.h"
#include "kex/rounding.h"
#include "kex/tangent.h"
#include "kex/vector.h"

#include <chrono>
#include <cmath>
#include <random>

namespace {

using namespace KEX;
using Clock = std::chrono::steady_clock;

constexpr int kInputs = 4096;
constexpr int kRounds = 41;
constexpr int kLispCalls = 100000;

/// Four points and eight numbers: the numbers are lengths, then angles.
struct Input
{
    CKexPoint3d p[4];
    double length[4], angle[4];
    peers::P q[4];
};
std::vector<Input> inputs;

void makeInputs()
{
    std::mt19937_64 engine(7);
    const auto from = [&](double low, double high) {
        return std::uniform_real_distribution<double>(low, high)(engine);
    };
    for (int i = 0; i < kInputs; ++i) {
        Input input;
        for (int n = 0; n < 4; ++n) {
            input.p[n] = {from(-50, 50), from(-50, 50), 0.0};
            input.q[n] = {input.p[n].x, input.p[n].y, 0.0};
            input.length[n] = from(20, 60);
            input.angle[n] = from(-7, 7);
        }
        inputs.push_back(input);
    }
}

double sumOf(const FewPoints& points)
{
    double sum = 0.0;
    for (const CKexPoint3d& p : points) sum += p.x + p.y;
    return sum;
}
double sumOf(const peers::Two& points)
{
    double sum = 0.0;
    for (int i = 0; i < points.count; ++i) sum += points.at[i].x + points.at[i].y;
    return sum;
}

template <class Call>
double once(const Call& call, double& sum)
{
    const Clock::time_point start = Clock::now();
    for (const Input& input : inputs) sum += call(input);
    const std::chrono::duration<double, std::nano> taken = Clock::now() - start;
    return taken.count() / kInputs;
}

template <class Own, class Peer>
void compare(const char* name, const Own& own, const Peer& peer)
{
    int differ = 0;
    for (const Input& input : inputs) {
        const double a = own(input), b = peer(input);
        differ += std::abs(a - b) > 1e-6 * (1 + std::abs(a));
    }
    // The tolerances decide otherwise for a few of thousands.
    if (differ > kInputs / 200) kexbench::fail(std::string("geometry_bench: results of ") + name);
    std::vector<double> ours, peers;
    double sum = 0.0;
    for (int round = 0; round < kRounds; ++round) {
        ours.push_back(once(own, sum));
        peers.push_back(once(peer, sum));
    }
    if (sum == 0.12345) std::abort(); // keeps the work
    const double mine = kexbench::median(ours), other = kexbench::median(peers);
    std::printf("%-26s %8.1f ns %8.1f ns %6.2f x\n", name, mine, other, mine / other);
}

void primitives()
{
    std::printf("%-26s %11s %11s\n", "primitive", "kernel", "plain C++");
    compare(
        "g_ang", [](const Input& i) { return g_ang(i.angle[0]); },
        [](const Input& i) { return peers::angle(i.angle[0]); });
    compare(
        "g_dw1", [](const Input& i) { return g_dw1(i.angle[0], i.angle[1]); },
        [](const Input& i) { return peers::difference(i.angle[0], i.angle[1]); });
    compare(
        "g_oktant", [](const Input& i) { return g_oktant(i.angle[0], 1e-6); },
        [](const Input& i) { return peers::octant(i.angle[0]); });
    compare(
        "g_w_3eck", [](const Input& i) { return g_w_3eck(i.length[0], i.length[1], i.length[2]); },
        [](const Input& i) { return peers::triangle(i.length[0], i.length[1], i.length[2]); });
    compare(
        "round", [](const Input& i) { return round(i.p[0].x, 2.5); },
        [](const Input& i) { return peers::rounded(i.p[0].x, 2.5); });
    compare(
        "g_delta_w2", [](const Input& i) { return g_delta_w2(i.p[0], i.p[1], i.p[2]); },
        [](const Input& i) { return peers::turn(i.q[0], i.q[1], i.q[2]); });
    compare(
        "g_arc3p_cen",
        [](const Input& i) {
            CKexPoint3d c;
            return g_arc3p_cen(i.p[0], i.p[1], i.p[2], c) ? c.x : 0.0;
        },
        [](const Input& i) {
            peers::P c{};
            return peers::circle(i.q[0], i.q[1], i.q[2], c) ? c.x : 0.0;
        });
    compare(
        "g_arc3p_bulg",
        [](const Input& i) {
            double b = 0;
            return g_arc3p_bulg(i.p[0], i.p[1], i.p[2], b) ? b : 0.0;
        },
        [](const Input& i) {
            double b = 0;
            return peers::bulge(i.q[0], i.q[1], i.q[2], b) ? b : 0.0;
        });
    compare(
        "g_arcrad_bulg",
        [](const Input& i) {
            double b = 0;
            return g_arcrad_bulg(b, 4 * i.length[0], i.p[0], i.p[1]) ? b : 0.0;
        },
        [](const Input& i) { return peers::bulgeOfRadius(4 * i.length[0], i.q[0], i.q[1]); });
    compare(
        "g_cli", [](const Input& i) { return sumOf(g_cli(i.p[0], i.length[0], i.p[1], i.p[2])); },
        [](const Input& i) {
            return sumOf(peers::circleLine(i.q[0], i.length[0], i.q[1], i.q[2]));
        });
    compare(
        "g_cci",
        [](const Input& i) { return sumOf(g_cci(i.p[0], i.length[0], i.p[1], i.length[1])); },
        [](const Input& i) {
            return sumOf(peers::circles(i.q[0], i.length[0], i.q[1], i.length[1]));
        });
    compare(
        "g_aai",
        [](const Input& i) {
            return sumOf(g_aai(i.p[0], i.length[0], i.angle[0], i.angle[1], i.p[1], i.length[1],
                               i.angle[2], i.angle[3]));
        },
        [](const Input& i) {
            return sumOf(peers::arcs(i.q[0], i.length[0], i.angle[0], i.angle[1], i.q[1],
                                     i.length[1], i.angle[2], i.angle[3]));
        });
    compare(
        "g_int_ll",
        [](const Input& i) {
            const auto p = g_int_ll(i.p[0], i.p[1], i.p[2], i.p[3], false, 1e-4, 1e-6);
            return p ? p->x : 0.0;
        },
        [](const Input& i) {
            peers::P p{};
            return peers::lines(i.q[0], i.q[1], i.q[2], i.q[3], p) ? p.x : 0.0;
        });
    compare(
        "g_lotp",
        [](const Input& i) { return g_lotp(i.p[0], i.p[1], i.p[2]).value_or(CKexPoint3d()).x; },
        [](const Input& i) { return peers::foot(i.q[0], i.q[1], i.q[2]).x; });
    compare(
        "g_line_dist", [](const Input& i) { return g_line_dist(i.p[0], i.p[1], i.p[2]); },
        [](const Input& i) { return peers::distance(i.q[0], i.q[1], i.q[2]); });
    compare(
        "g_tang_pc", [](const Input& i) { return sumOf(g_tang_pc(i.p[0], i.p[1], i.length[0])); },
        [](const Input& i) { return sumOf(peers::contacts(i.q[0], i.q[1], i.length[0])); });
    compare(
        "g_ellips_pt",
        [](const Input& i) { return g_ellips_pt(i.length[0], i.length[1], i.angle[0]); },
        [](const Input& i) { return peers::ellipseRadius(i.length[0], i.length[1], i.angle[0]); });
    compare(
        "g_korb_3m", [](const Input& i) { return g_korb_3m(i.length[0], i.length[1]); },
        [](const Input& i) { return peers::springing(i.length[0], i.length[1]); });
    compare(
        "g_vc_ang", [](const Input& i) { return g_vc_ang(i.p[0].asVector(), i.p[1].asVector()); },
        [](const Input& i) { return peers::turned(i.q[0], i.q[1]); });
}

struct Case
{
    const char* name;
    const char* expression;
};
const Case kCases[] = {
    {"kex_str_len", "(kex_str_len s)"},
    {"kex_g_ang", "(kex_g_ang a)"},
    {"kex_g_ang_dif", "(kex_g_ang_dif p q r)"},
    {"kex_g_oktant", "(kex_g_oktant a)"},
    {"kex_g_arc3p_bulg", "(kex_g_arc3p_bulg p q r)"},
    {"kex_g_lotp", "(kex_g_lotp p q r)"},
    {"kex_g_int_cl", "(kex_g_int_cl p 6.0 q r)"},
    {"kex_g_int_cc", "(kex_g_int_cc p 4.0 q 5.0)"},
    {"kex_g_p_mtx", "(kex_g_p_mtx p m)"},
};

int throughLisp()
{
    kexbench::Running running("geometry_bench");
    const auto evaluate = [&](const std::string& expression) {
        const orvald::Evaluation result = running.session.eval(expression);
        if (!result.ok) kexbench::fail("geometry_bench: " + expression + ": " + result.error);
        return result.value;
    };
    evaluate("(setq s \"Abwicklung\" a 4.5 p '(0.0 0.0 0.0) q '(3.0 4.0 0.0) r '(6.0 1.0 0.0) m "
             "(kex_g_mtx_move p))");
    const std::string repeat = "(repeat " + std::to_string(kLispCalls) + " ";
    evaluate("(defun bare () " + repeat + "s))");
    std::vector<std::vector<double>> taken(std::size(kCases));
    for (std::size_t i = 0; i < std::size(kCases); ++i) {
        if (evaluate(kCases[i].expression) == "nil") kexbench::fail(kCases[i].name);
        evaluate("(defun call" + std::to_string(i) + " () " + repeat + kCases[i].expression + "))");
    }
    const auto timed = [&](const std::string& function) {
        const Clock::time_point start = Clock::now();
        evaluate("(" + function + ")");
        const std::chrono::duration<double, std::nano> time = Clock::now() - start;
        return time.count() / kLispCalls;
    };
    for (int round = 0; round < 15; ++round) {
        const double bare = timed("bare");
        for (std::size_t i = 0; i < std::size(kCases); ++i)
            taken[i].push_back(timed("call" + std::to_string(i)) - bare);
    }
    std::printf("\n%-26s %11s %15s\n", "through LISP", "", "of kex_str_len");
    const double length = kexbench::median(taken[0]);
    for (std::size_t i = 0; i < std::size(kCases); ++i) {
        const double call = kexbench::median(taken[i]);
        std::printf("%-26s %8.1f ns %11.2f x\n", kCases[i].name, call, call / length);
    }
    return 0;
}

int measure()
{
    makeInputs();
    primitives();
    return throughLisp();
}

} // namespace

int main() { return orvald::runOnLispThread(measure); }
