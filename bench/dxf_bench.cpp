// SPDX-License-Identifier: LicenseRef-ORVALD
// Loading and saving DXF against a plain read of the same bytes, and memory: dxf_bench [COUNT]
// COUNT mixed entities (100,000 when not given), as facade drawings have them; best of several
// runs, milliseconds of wall clock. Each case first checks that its result is right. When
// python3-ezdxf is installed its load and save of the same file are timed as well.
#include "dxf/dxf.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <functional>
#include <random>
#include <sys/mman.h>
#include <unistd.h>
#include <vector>

namespace {

using namespace orvald;
using drawing::Drawing;
using drawing::Family;
using drawing::Index;
using drawing::Kind;
using drawing::Point;
using drawing::Record;

constexpr int kRuns = 10;
constexpr std::size_t kWindow = std::size_t{1} << 20;

[[noreturn]] void give_up(const std::string& reason)
{
    std::fprintf(stderr, "dxf_bench: %s\n", reason.c_str());
    std::exit(1);
}

double bestOf(int runs, const std::function<void()>& work)
{
    double best = 1e30;
    for (int i = 0; i < runs; ++i) {
        const auto start = std::chrono::steady_clock::now();
        work();
        const std::chrono::duration<double, std::milli> taken =
            std::chrono::steady_clock::now() - start;
        best = std::min(best, taken.count());
    }
    return best;
}

class Maker
{
public:
    explicit Maker(Drawing& drawing) : drawing_(drawing)
    {
        for (int i = 0; i < 12; ++i) drawing_.needLayer("LAYER_" + std::to_string(i));
        const Index block = drawing_.addBlock("BOLT");
        Record circle = begin(Kind::circle, 0, "AcDbCircle");
        circle.tags.addPoint(10, {});
        circle.tags.addReal(40, 5.0);
        drawing_.appendChild(block, drawing_.add(std::move(circle)));
    }
    /// 4 lines, a circle, an arc, 2 polylines, a text and an insert in every 10.
    void addMixed(int count)
    {
        for (int i = 0; i < count; ++i) add(make(i));
    }
    void addLines(int count)
    {
        for (int i = 0; i < count; ++i) add(makeLine(i));
    }

private:
    double number(double most)
    {
        return std::uniform_real_distribution<double>(0.0, most)(random_);
    }
    Point point() { return {number(1e4), number(1e4), 0.0}; }
    static Record begin(Kind kind, int i, const char* marker)
    {
        Record record(kind, Family::entity);
        record.tags.addText(100, "AcDbEntity");
        record.tags.addText(8, "LAYER_" + std::to_string(i % 12));
        record.tags.addText(100, marker);
        return record;
    }
    Record makeLine(int i)
    {
        Record record = begin(Kind::line, i, "AcDbLine");
        record.tags.addPoint(10, point());
        record.tags.addPoint(11, point());
        return record;
    }
    Record make(int i)
    {
        if (i % 10 < 4) return makeLine(i);
        if (i % 10 < 6) {
            Record record = begin(i % 10 == 4 ? Kind::circle : Kind::arc, i, "AcDbCircle");
            record.tags.addPoint(10, point());
            record.tags.addReal(40, number(50.0) + 1.0);
            if (i % 10 == 4) return record;
            record.tags.addText(100, "AcDbArc");
            record.tags.addReal(50, number(360.0));
            record.tags.addReal(51, number(360.0));
            return record;
        }
        if (i % 10 < 8) {
            Record record = begin(Kind::lwpolyline, i, "AcDbPolyline");
            record.tags.addInteger(90, 6);
            record.tags.addInteger(70, 1);
            record.tags.addReal(43, 0.0);
            for (int vertex = 0; vertex < 6; ++vertex) {
                record.tags.addPoint(10, point(), true);
                if (vertex % 3 == 0) record.tags.addReal(42, 0.5);
            }
            return record;
        }
        if (i % 10 == 8) {
            Record record = begin(Kind::text, i, "AcDbText");
            record.tags.addPoint(10, point());
            record.tags.addReal(40, 2.5);
            record.tags.addText(1, "Position " + std::to_string(i));
            record.tags.addText(100, "AcDbText");
            return record;
        }
        Record record = begin(Kind::insert, i, "AcDbBlockReference");
        record.tags.addText(2, "BOLT");
        record.tags.addPoint(10, point());
        record.tags.addReal(50, number(360.0));
        return record;
    }
    void add(Record&& record)
    {
        record.tags.shrink();
        drawing_.appendChild(drawing_.modelSpace(), drawing_.add(std::move(record)));
    }

    Drawing& drawing_;
    std::mt19937_64 random_{4711};
};

void line(const char* name, double time, double plain, const char* rest = "")
{
    std::printf("%-34s %9.2f ms %8.1f x%s\n", name, time, time / plain, rest);
}

/// Every byte of the file into `room` bytes at `to`, over and over when the file is larger.
void readInto(const std::string& path, char* to, std::size_t room, std::size_t size)
{
    const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    std::size_t done = 0, at = 0;
    for (ssize_t got = 1; got > 0; done += static_cast<std::size_t>(std::max<ssize_t>(got, 0))) {
        at = done % room;
        got = ::read(file, to + at, std::min(room - at, kWindow));
    }
    ::close(file);
    if (done != size) give_up("the file has another size");
}

/// Into memory that nobody has touched before, as a program does that reads a file into a string.
void readFresh(const std::string& path, std::size_t size)
{
    void* memory =
        ::mmap(nullptr, size + 1, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (memory == MAP_FAILED) give_up("no memory");
    readInto(path, static_cast<char*>(memory), size + 1, size);
    ::munmap(memory, size + 1);
}

void againstEzdxf(const std::string& path, double plain)
{
    const std::string command = "/usr/bin/python3 -c 'import sys, time, ezdxf; t = time.time(); d "
                                "= ezdxf.readfile(sys.argv[1]);"
                                " u = time.time(); d.saveas(sys.argv[1] + \".ez\"); v = "
                                "time.time(); print((u - t) * 1e3, (v - u) * 1e3)' '" +
                                path + "' 2>/dev/null";
    std::FILE* pipe = ::popen(command.c_str(), "r");
    char text[200] = {};
    const bool read = pipe != nullptr && std::fgets(text, sizeof text, pipe) != nullptr;
    if (pipe != nullptr) ::pclose(pipe);
    std::filesystem::remove(path + ".ez");
    char* rest = nullptr;
    const double load = std::strtod(text, &rest), save = std::strtod(rest, nullptr);
    if (!read || load == 0.0) {
        std::printf("python3-ezdxf is not installed\n");
        return;
    }
    line("python3-ezdxf: load", load, plain);
    line("python3-ezdxf: save", save, plain);
}

} // namespace

int main(int argc, char** argv)
{
    const int count = argc > 1 ? std::atoi(argv[1]) : 100000;
    if (count <= 0) give_up("usage: dxf_bench [COUNT]");
    const std::string folder = std::filesystem::temp_directory_path().string();
    const std::string path = folder + "/dxf_bench_" + std::to_string(::getpid()) + ".dxf";

    const auto original = Drawing::createNew();
    Maker(*original).addMixed(count);
    if (const dxf::Saved saved = dxf::save(*original, path); !saved.good)
        give_up(saved.error.message());
    const dxf::Loaded loaded = dxf::load(path);
    if (!loaded.drawing) give_up(loaded.error.message());
    if (dxf::saveText(*loaded.drawing) != dxf::saveText(*original))
        give_up("the drawing came back changed");

    const auto size = static_cast<std::size_t>(std::filesystem::file_size(path));
    std::printf("%d mixed entities, %.1f MB; times against a plain read of the bytes\n", count,
                static_cast<double>(size) / 1e6);
    const double plain = bestOf(kRuns, [&] { readFresh(path, size); });
    line("plain read into fresh memory", plain, plain);
    std::vector<char> window(kWindow);
    line("plain read through one window",
         bestOf(kRuns, [&] { readInto(path, window.data(), kWindow, size); }), plain);
    const double load = bestOf(kRuns, [&] { dxf::load(path); });
    line("load", load, plain);
    const double text = bestOf(kRuns, [&] { dxf::saveText(*original); });
    line("text in memory", text, plain);
    const double save = bestOf(kRuns, [&] { dxf::save(*original, path); });
    line("save, flushed and read back", save, plain);
    line("load and save", load + save, plain,
         load + save <= 25.0 * plain ? "  (aim: 25)" : "  (aim missed: 25)");
    againstEzdxf(path, plain);
    std::printf("memory: %.0f bytes an entity in the mixed drawing\n",
                static_cast<double>(loaded.drawing->memory()) / count);

    const auto lines = Drawing::createNew();
    const std::size_t empty = lines->memory();
    Maker(*lines).addLines(count);
    std::printf("memory: %.0f bytes a LINE\n",
                static_cast<double>(lines->memory() - empty) / count);
    std::filesystem::remove(path);
    return 0;
}
