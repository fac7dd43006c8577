// SPDX-License-Identifier: LicenseRef-ORVALD
#include "text_file.h"

#include "characters.h"

#include "lisp/world.h"

#include <filesystem>

namespace orvald::lisp {

namespace {

// Some files of a system have no end.
constexpr std::size_t kLargestFile = std::size_t{512} << 20;

} // namespace

std::FILE* openFile(const std::string& path, const char* mode)
{
    std::error_code error;
#ifdef _WIN32
    const std::filesystem::path file(toUtf16(path));
    std::wstring wideMode(mode, mode + std::char_traits<char>::length(mode));
    wideMode += L'b';
    return std::filesystem::is_directory(file, error) ? nullptr
                                                      : _wfopen(file.c_str(), wideMode.c_str());
#else
    return std::filesystem::is_directory(path, error) ? nullptr : std::fopen(path.c_str(), mode);
#endif
}

std::optional<std::u16string> readTextFile(const std::string& path)
{
    std::FILE* stream = openFile(path, "r");
    if (stream == nullptr) return std::nullopt;
    std::string octets;
    char buffer[16384];
    for (std::size_t got = 0; (got = std::fread(buffer, 1, sizeof buffer, stream)) > 0;) {
        octets.append(buffer, got);
        if (octets.size() > kLargestFile) break;
    }
    const bool failed = std::ferror(stream) != 0 || octets.size() > kLargestFile;
    std::fclose(stream);
    if (failed) return std::nullopt;
    return decodeFile(octets);
}

} // namespace orvald::lisp
