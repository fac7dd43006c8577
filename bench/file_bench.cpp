// SPDX-License-Identifier: LicenseRef-ORVALD
// Listing a folder of 20,000 files from LISP against `find` of the same folder, started as a
// program that prints to nowhere. Each order has the find that must look at as much of a file.
// Milliseconds, median of rounds that take turns; the folder is in the system's cache.
#include "bench_session.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;

constexpr int kFiles = 20000;
constexpr int kRounds = 21;

struct Case
{
    const char* name;
    int key;           // of kex_file_dirmode
    const char* print; // what find prints of each file
};
constexpr Case kCases[] = {{"names, in their order", 0, "%f\\n"},
                           {"names, by sort key 1", 1, "%f\\n"},
                           {"names, by size", 3, "%f %s\\n"},
                           {"names, by time", 4, "%f %T@\\n"}};

template <class Work>
double millisecondsOf(Work&& work)
{
    const Clock::time_point start = Clock::now();
    work();
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

/// Names as a drawing office has them, in no order.
void makeFiles(const std::filesystem::path& folder)
{
    std::filesystem::create_directories(folder);
    for (int i = 0; i < kFiles; ++i) {
        const int number = static_cast<int>(i * 7919LL % kFiles);
        const std::string name = "Fassade_" + std::to_string(number) + "_Träger.dwg";
        std::ofstream(folder / name) << std::string(static_cast<std::size_t>(number % 50), 'x');
    }
}

void compare(orvald::Session& session, const std::filesystem::path& folder)
{
    const std::string call = "(length (kex_file_dir \"" + folder.string() + "/*.*\" 0))";
    for (const Case& one : kCases) {
        const std::string mode = "(kex_file_dirmode " + std::to_string(one.key) + " 0)";
        const std::string find = "find '" + folder.string() +
                                 "' -mindepth 1 -maxdepth 1 -type f -printf '" + one.print +
                                 "' > /dev/null";
        session.eval(mode);
        if (session.eval(call).value != std::to_string(kFiles))
            kexbench::fail("not all files are listed");
        std::vector<double> ours, theirs;
        for (int round = 0; round < kRounds; ++round) {
            theirs.push_back(millisecondsOf([&] {
                if (std::system(find.c_str()) != 0) kexbench::fail("find fails");
            }));
            ours.push_back(millisecondsOf([&] { session.eval(call); }));
        }
        const double a = kexbench::median(ours), b = kexbench::median(theirs);
        std::printf("%-24s kex_file_dir %7.1f ms   find %7.1f ms %6.2f x\n", one.name, a, b, a / b);
    }
}

int measure()
{
    kexbench::Running running("file_bench");
    makeFiles(running.path() / "files");
    compare(running.session, running.path() / "files");
    return 0;
}

} // namespace

int main() { return orvald::runOnLispThread(measure); }
