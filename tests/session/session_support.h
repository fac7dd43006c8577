// SPDX-License-Identifier: LicenseRef-ORVALD
// A session with a home folder of its own, for tests of the whole system.
#pragma once

#include "session/session.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>
#include <string>
#include <unistd.h>

namespace kextest {

/// A folder that goes with its object.
class Home
{
public:
    Home()
    {
        std::string pattern = (std::filesystem::temp_directory_path() / "kexhomeXXXXXX").string();
        path_ = ::mkdtemp(pattern.data());
    }
    Home(const Home&) = delete;
    Home& operator=(const Home&) = delete;
    ~Home()
    {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    std::string file(const std::string& name) const { return (path_ / name).string(); }
    std::string path() const { return path_.string(); }

private:
    std::filesystem::path path_;
};

inline std::string readFile(const std::string& path)
{
    std::ifstream in(path, std::ios::binary);
    std::ostringstream bytes;
    bytes << in.rdbuf();
    return bytes.str();
}

/// A session with the kernel and a new drawing.
struct Running
{
    explicit Running(const orvald::SessionOptions& options = {}) : session(withHome(options))
    {
        EXPECT_EQ(session.problem(), "");
        std::string problem;
        EXPECT_TRUE(session.newDrawing(problem)) << problem;
    }
    /// The value of an expression, "! message" for an error.
    std::string value(std::string_view expression)
    {
        const orvald::Evaluation result = session.eval(expression);
        return result.ok ? result.value : "! " + result.error;
    }

    Home home;
    orvald::Session session;

private:
    orvald::SessionOptions withHome(orvald::SessionOptions options) const
    {
        options.home = home.path();
        options.quiet = true;
        return options;
    }
};

} // namespace kextest
