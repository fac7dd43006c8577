// SPDX-License-Identifier: LicenseRef-ORVALD
// What the benchmarks of LISP functions share.
#pragma once

#include "session/session.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

namespace kexbench {

[[noreturn]] inline void fail(const std::string& reason)
{
    std::fprintf(stderr, "%s\n", reason.c_str());
    std::exit(1);
}

inline double median(std::vector<double> values)
{
    std::ranges::sort(values);
    return values[values.size() / 2];
}

/// A folder of the benchmark's own for as long as it runs.
class Place
{
public:
    explicit Place(const std::string& name)
        : path_(std::filesystem::temp_directory_path() / ("orvald_" + name))
    {
        std::filesystem::remove_all(path_);
        std::filesystem::create_directories(path_);
    }
    Place(const Place&) = delete;
    Place& operator=(const Place&) = delete;
    ~Place()
    {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    const std::filesystem::path& path() const { return path_; }

private:
    std::filesystem::path path_;
};

/// A session with the kernel loaded, settings of its own and a new drawing.
class Running
{
public:
    explicit Running(const std::string& name) : place_(name), session(options())
    {
        std::string problem = session.problem();
        if (!problem.empty() || !session.newDrawing(problem)) fail(name + ": " + problem);
    }
    const std::filesystem::path& path() const { return place_.path(); }

private:
    orvald::SessionOptions options() const
    {
        orvald::SessionOptions result;
        result.home = (place_.path() / "home").string();
        result.quiet = true;
        return result;
    }
    Place place_; // outlives the session

public:
    orvald::Session session;
};

} // namespace kexbench
