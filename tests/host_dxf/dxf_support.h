// SPDX-License-Identifier: LicenseRef-ORVALD
// Small things that the DXF tests share: files, short forms of DXF text, comparing drawings.
#pragma once

#include "dxf/dxf.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace orvald::dxf {

inline std::string readFile(const std::string& path)
{
    std::ifstream in(path, std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

inline void writeFile(const std::string& path, std::string_view text)
{
    std::ofstream(path, std::ios::binary) << text;
}

inline const std::vector<std::string>& sampleVersions()
{
    static const std::vector<std::string> versions{"R2000", "R2004", "R2007",
                                                   "R2010", "R2013", "R2018"};
    return versions;
}

inline std::string samplePath(const std::string& version)
{
    return std::string(KEX_SOURCE_DIR) + "/tests/host_dxf/data/sample_" + version + ".dxf";
}

/// DXF text from "code value|code value|...", groups in the form that our writer gives them.
inline std::string groups(std::string_view text)
{
    std::string out;
    while (!text.empty()) {
        const std::size_t bar = text.find('|');
        const std::string_view group = text.substr(0, bar);
        const std::size_t blank = group.find(' ');
        const std::string_view code = group.substr(0, blank);
        out.append(code.size() < 3 ? 3 - code.size() : 0, ' ').append(code).append("\n");
        if (blank != std::string_view::npos) out.append(group.substr(blank + 1));
        out += '\n';
        text = bar == std::string_view::npos ? std::string_view() : text.substr(bar + 1);
    }
    return out;
}

/// Puts `what` in front of the end of a section.
inline std::string intoSection(std::string text, std::string_view section, std::string_view what)
{
    const std::size_t start = text.find("  2\n" + std::string(section) + "\n");
    const std::size_t end = text.find("  0\nENDSEC\n", start);
    return text.insert(end, what);
}

/// A text of a new drawing that our own writer made.
inline std::string newText() { return saveText(*drawing::Drawing::createNew()); }

/// Replaces the first `from`; the test fails when there is none.
inline std::string replaced(std::string text, std::string_view from, std::string_view to)
{
    const std::size_t at = text.find(from);
    EXPECT_NE(at, std::string::npos) << from;
    return at == std::string::npos ? text : text.replace(at, from.size(), to);
}

/// A folder that goes when the test ends.
class TemporaryFolder
{
public:
    TemporaryFolder()
    {
        std::string name = (std::filesystem::temp_directory_path() / "orvald_dxf_XXXXXX").string();
        path_ = ::mkdtemp(name.data());
    }
    ~TemporaryFolder() { std::filesystem::remove_all(path_); }
    std::string file(std::string_view name) const { return path_ + "/" + std::string(name); }
    const std::string& path() const { return path_; }

private:
    std::string path_;
};

/// Exit status of a tool that another program's library is missing for.
inline constexpr int kNoLibrary = 77;

/// Runs a tool of the tests; its exit status.
inline int runTool(const std::string& name, const std::string& arguments)
{
    const std::string command = "/usr/bin/python3 '" + std::string(KEX_SOURCE_DIR) +
                                "/tests/tools/" + name + "' " + arguments;
    return std::system(command.c_str()) / 256;
}

/// Passes when another program's library finds nothing wrong with the file, or is not installed.
inline void expectAudited(const std::string& path)
{
    const int code = runTool("dxf_audit.py", "'" + path + "'");
    if (code == kNoLibrary || code == 127) return; // no Python either
    EXPECT_EQ(code, 0) << path;
}

} // namespace orvald::dxf
