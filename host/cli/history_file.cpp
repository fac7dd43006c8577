// SPDX-License-Identifier: LicenseRef-ORVALD
#include "history_file.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace orvald::cli {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kMostEntries = 2000;

fs::path folderOf(const std::string& home)
{
    if (!home.empty()) return home;
    if (const char* state = std::getenv("XDG_STATE_HOME"); state != nullptr && *state == '/') {
        return fs::path(state) / "orvald";
    }
    const char* user = std::getenv("HOME");
    return user == nullptr || *user == 0 ? fs::path() : fs::path(user) / ".local/state/orvald";
}

} // namespace

HistoryFile::HistoryFile(const std::string& home)
{
    const fs::path folder = folderOf(home);
    if (folder.empty()) return;
    std::error_code ignored;
    fs::create_directories(folder, ignored);
    path_ = (folder / "history").string();
}

std::vector<std::string> HistoryFile::load() const
{
    std::vector<std::string> entries;
    std::ifstream in(path_, std::ios::binary);
    for (std::string line; std::getline(in, line);) entries.push_back(line);
    if (entries.size() > 2 * kMostEntries) {
        entries.erase(entries.begin(), entries.end() - static_cast<std::ptrdiff_t>(kMostEntries));
        std::ofstream out(path_, std::ios::binary | std::ios::trunc);
        for (const std::string& entry : entries) out << entry << '\n';
    }
    return entries;
}

void HistoryFile::add(const std::string& entry) const
{
    if (path_.empty()) return;
    std::error_code ignored;
    const bool isNew = !fs::exists(path_, ignored);
    std::ofstream(path_, std::ios::binary | std::ios::app) << entry << '\n';
    if (isNew) fs::permissions(path_, fs::perms::owner_read | fs::perms::owner_write, ignored);
}

} // namespace orvald::cli
