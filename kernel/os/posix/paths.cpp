// SPDX-License-Identifier: LicenseRef-ORVALD
// The table of drives and shares. It is read anew for every path, so that a change of the variable
// counts at once; it has a handful of entries.
#include "kexos/paths.h"

#include "kexos/environment.h"

#include <algorithm>
#include <vector>

namespace kexos {
namespace {

struct Drive
{
    std::string name;   // "C:" or "\\server\share"
    std::string folder; // without a separator at the end: "" is the root
};

char upperAscii(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

bool startsWithNoCase(std::string_view text, std::string_view part)
{
    return text.size() >= part.size() &&
           std::equal(part.begin(), part.end(), text.begin(),
                      [](char a, char b) { return upperAscii(a) == upperAscii(b); });
}

std::vector<Drive> drives()
{
    std::vector<Drive> table;
    std::string text = environment("KEX_DRIVES").value_or("");
    if (text.empty()) text = "C=/";
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = std::min(text.find(';', at), text.size());
        const std::string_view entry = std::string_view(text).substr(at, end - at);
        const std::size_t equals = entry.find('=');
        if (equals != std::string_view::npos && equals > 0) {
            std::string name(entry.substr(0, equals));
            std::string folder(entry.substr(equals + 1));
            while (!folder.empty() && folder.back() == '/') folder.pop_back();
            const bool share = name.starts_with("\\\\");
            if (!share) name = std::string(1, upperAscii(name.front())) + ":";
            table.push_back({std::move(name), std::move(folder)});
        }
        at = end + 1;
    }
    return table;
}

/// What follows a drive or share, as a path below its folder.
std::string below(const std::string& folder, std::string_view rest)
{
    std::string path(rest);
    std::replace(path.begin(), path.end(), '\\', '/');
    if (!path.starts_with('/')) path.insert(path.begin(), '/');
    return folder + path;
}

bool isDrivePath(std::string_view path) { return path.size() >= 2 && path[1] == ':'; }

} // namespace

std::string nativePath(std::string_view kernelPath)
{
    if (kernelPath.starts_with('/')) return below("", kernelPath);
    const bool share = kernelPath.starts_with("\\\\");
    if (share || isDrivePath(kernelPath) || kernelPath.starts_with('\\')) {
        for (const Drive& drive : drives()) {
            const bool byName = share || isDrivePath(kernelPath);
            if (!byName && isDrivePath(drive.name)) return below(drive.folder, kernelPath);
            if (byName && startsWithNoCase(kernelPath, drive.name)) {
                const std::string_view rest = kernelPath.substr(drive.name.size());
                if (!share || rest.empty() || rest.front() == '\\')
                    return below(drive.folder, rest);
            }
        }
        return std::string();
    }
    std::string path(kernelPath);
    std::replace(path.begin(), path.end(), '\\', '/');
    return path;
}

std::string kernelPath(std::string_view nativePath)
{
    std::string path(nativePath);
    if (nativePath.starts_with('/')) {
        const std::vector<Drive> table = drives();
        const Drive* best = nullptr;
        for (const Drive& drive : table) {
            const bool holds =
                nativePath.starts_with(drive.folder) && (nativePath.size() == drive.folder.size() ||
                                                         nativePath[drive.folder.size()] == '/');
            if (holds && (best == nullptr || drive.folder.size() > best->folder.size())) {
                best = &drive;
            }
        }
        if (best != nullptr) path = best->name + path.substr(best->folder.size());
    }
    std::replace(path.begin(), path.end(), '/', '\\');
    return path;
}

} // namespace kexos
