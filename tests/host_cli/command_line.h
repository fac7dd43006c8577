// SPDX-License-Identifier: LicenseRef-ORVALD
// The real program in a folder of its own: what it prints, says and ends with.
#pragma once

#include "files.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <string>
#include <sys/wait.h>

namespace kextest {

struct Result
{
    int status = -1;
    std::string out, err;
};

class CommandLine : public testing::Test
{
protected:
    std::string write(const std::string& name, const std::string& text) const
    {
        writeFile(home_ / name, text);
        return home_ / name;
    }
    std::string file(const std::string& name) const { return home_ / name; }

    /// Runs orvald; `rest` is shell text, `input` what standard input holds.
    Result orvald(const std::string& rest, const std::string& input = {}) const
    {
        return shell(program() + " " + rest + " <" + write("stdin", input));
    }
    /// Runs a line of shell text in the folder.
    Result shell(const std::string& line) const
    {
        const std::string whole =
            "cd " + home_.path() + " && " + line + " >" + home_ / "out" + " 2>" + home_ / "err";
        const int status = std::system(whole.c_str());
        return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, readFile(home_ / "out"),
                readFile(home_ / "err")};
    }
    /// The command without anything of the user's.
    std::string program() const { return KEX_BIN_DIR "/orvald --home " + home_ / "home"; }

private:
    TempFolder home_;
};

#if defined(__SANITIZE_ADDRESS__)
constexpr bool kSanitized = true;
#else
constexpr bool kSanitized = false;
#endif

} // namespace kextest
