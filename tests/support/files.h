// SPDX-License-Identifier: LicenseRef-ORVALD
// Files of tests: a folder of its own for each, and files as a whole.
#pragma once

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <string_view>
#include <unistd.h>

namespace kextest {

/// A new folder that is removed with the object.
class TempFolder
{
public:
    TempFolder()
    {
        path_ = (std::filesystem::temp_directory_path() / "kextestXXXXXX").string();
        if (::mkdtemp(path_.data()) == nullptr) path_.clear();
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;
    ~TempFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    std::string operator/(std::string_view name) const { return path_ + "/" + std::string(name); }
    const std::string& path() const { return path_; }

private:
    std::string path_;
};

inline std::string readFile(const std::string& path)
{
    std::ifstream in(path, std::ios::binary);
    std::ostringstream bytes;
    bytes << in.rdbuf();
    return bytes.str();
}

inline void writeFile(const std::string& path, std::string_view bytes)
{
    std::ofstream(path, std::ios::binary) << bytes;
}

} // namespace kextest
