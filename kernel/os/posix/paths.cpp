// SPDX-License-Identifier: LicenseRef-ORVALD
// The table of drives and shares. It is read anew for every path, so that a change of the variable
// counts at once; it has a handful of entries.
#include "kexos/paths.h"

#include "kexos/environment.h"
#include "native.h"

#include <algorithm>
#include <cstdlib>
#include <unistd.h>
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

bool isLetter(char c) { return upperAscii(c) >= 'A' && upperAscii(c) <= 'Z'; }

/// An entry that names neither a drive nor a share is passed over.
std::vector<Drive> driveTable()
{
    std::vector<Drive> table;
    std::string text = environment("KEX_DRIVES").value_or("");
    if (text.empty()) text = "C=/";
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = std::min(text.find(';', at), text.size());
        const std::string_view entry = std::string_view(text).substr(at, end - at);
        at = end + 1;
        const std::size_t equals = entry.find('=');
        if (equals == std::string_view::npos) continue;
        std::string name(entry.substr(0, equals));
        std::string folder(entry.substr(equals + 1));
        while (!folder.empty() && folder.back() == '/') folder.pop_back();
        const bool share = name.starts_with("\\\\");
        const bool drive = !name.empty() && isLetter(name[0]) &&
                           (name.size() == 1 || std::string_view(name).substr(1) == ":");
        if (drive) name = {upperAscii(name[0]), ':'};
        if (drive || share) table.push_back({std::move(name), std::move(folder)});
    }
    return table;
}

/// What follows a drive or share, as a path below its folder.
std::string below(const std::string& folder, std::string_view rest)
{
    std::string path(rest);
    std::replace(path.begin(), path.end(), '\\', '/');
    if (!path.starts_with('/')) path.insert(path.begin(), '/');
    return folder + native::bytesOf(path);
}

std::string backslashed(std::string_view path)
{
    std::string text(path);
    std::replace(text.begin(), text.end(), '/', '\\');
    return text;
}

bool isSeparator(char c) { return c == '\\' || c == '/'; }
bool isShare(std::string_view path) { return path.starts_with("\\\\"); }
bool isDrive(std::string_view path)
{
    return path.size() >= 2 && path[1] == ':' && isLetter(path[0]);
}
/// "C:plan.dwg": from the current folder of the drive. Only one drive has one, the others are taken
/// at their root.
bool isDriveRelative(std::string_view path)
{
    return isDrive(path) && (path.size() == 2 || !isSeparator(path[2]));
}

/// Length of the drive or of "\\server\share" that a full path begins with.
std::size_t rootLength(std::string_view path)
{
    if (isDrive(path)) return 2;
    if (!isShare(path)) return 0;
    const std::size_t share = path.find('\\', 2);
    return share == std::string_view::npos ? path.size()
                                           : std::min(path.find('\\', share + 1), path.size());
}

/// Components behind the root without "." and ".."; a separator at the end stays.
std::string withoutDots(std::string_view path)
{
    const std::size_t root = rootLength(path);
    std::string result(path.substr(0, root));
    for (std::size_t at = root; at < path.size();) {
        const std::size_t end = std::min(path.find('\\', at), path.size());
        const std::string_view component = path.substr(at, end - at);
        at = end + 1;
        if (component.empty() || component == ".") continue;
        if (component == "..") {
            const std::size_t last = result.rfind('\\');
            if (last != std::string::npos && last >= root) result.resize(last);
        } else {
            result += '\\';
            result += component;
        }
    }
    const bool bareRoot = result.size() == root && !isShare(result);
    if (bareRoot || (path.ends_with('\\') && !result.ends_with('\\'))) result += '\\';
    return result;
}

/// The folder of the table that holds `folder` and is the longest; null when none does. Only of
/// shares, or of drives and shares.
const Drive* holderOf(const std::vector<Drive>& table, std::string_view folder, bool sharesOnly)
{
    const Drive* best = nullptr;
    for (const Drive& drive : table) {
        const std::size_t length = drive.folder.size();
        const bool holds = folder.starts_with(drive.folder) &&
                           (folder.size() == length || folder[length] == '/') &&
                           (!sharesOnly || isShare(drive.name));
        if (holds && (best == nullptr || length > best->folder.size())) best = &drive;
    }
    return best;
}

} // namespace

std::string nativePath(std::string_view kernelPath)
{
    if (kernelPath.find('\0') != std::string_view::npos) return std::string();
    if (kernelPath.starts_with('/')) return below("", kernelPath);
    const bool share = isShare(kernelPath);
    const bool byName = share || isDrive(kernelPath);
    if (isDriveRelative(kernelPath) && startsWithNoCase(currentFolder(), kernelPath.substr(0, 2))) {
        const std::string_view rest = kernelPath.substr(2);
        return rest.empty() ? "." : nativePath(rest);
    }
    if (byName || kernelPath.starts_with('\\')) {
        for (const Drive& drive : driveTable()) {
            if (!byName && isDrive(drive.name)) return below(drive.folder, kernelPath);
            if (byName && startsWithNoCase(kernelPath, drive.name)) {
                const std::string_view rest = kernelPath.substr(drive.name.size());
                if (!share || rest.empty() || isSeparator(rest.front())) {
                    return below(drive.folder, rest);
                }
            }
        }
        return std::string();
    }
    std::string path(kernelPath);
    std::replace(path.begin(), path.end(), '\\', '/');
    return native::bytesOf(path);
}

std::string kernelPath(std::string_view nativePath)
{
    if (!nativePath.starts_with('/')) return backslashed(native::textOf(nativePath));
    const std::vector<Drive> table = driveTable();
    const Drive* const holder = holderOf(table, nativePath, false);
    // What no drive holds stays a path of the system, which is understood as well.
    if (holder == nullptr) return native::textOf(nativePath);
    const std::string rest = native::textOf(nativePath.substr(holder->folder.size()));
    if (rest.empty() && isDrive(holder->name)) return holder->name + '\\';
    return holder->name + backslashed(rest);
}

std::string fullPath(std::string_view path)
{
    std::string text = path.starts_with('/') ? kernelPath(nativePath(path)) : backslashed(path);
    if (isDriveRelative(text)) {
        const std::string current = currentFolder();
        const bool here = startsWithNoCase(current, text.substr(0, 2));
        const std::string rest = text.size() > 2 ? '\\' + text.substr(2) : std::string();
        text = (here ? current : text.substr(0, 2)) + rest;
    } else if (text.starts_with('\\') && !isShare(text)) {
        const std::vector<Drive> table = driveTable();
        const auto first =
            std::ranges::find_if(table, [](const Drive& drive) { return isDrive(drive.name); });
        if (first != table.end()) text.insert(0, first->name);
    } else if (!text.empty() && !text.starts_with('/') && !isShare(text) && !isDrive(text)) {
        text = currentFolder() + '\\' + text;
    }
    // What no drive holds stays the system's path.
    return text.empty() || text.starts_with('/') ? text : withoutDots(text);
}

std::string networkPath(std::string_view path)
{
    std::string text(path);
    if (!isDrive(path)) return text;
    const std::vector<Drive> table = driveTable();
    const auto drive = std::ranges::find_if(
        table, [&](const Drive& one) { return startsWithNoCase(path, one.name); });
    if (drive == table.end()) return text;
    const Drive* const share = holderOf(table, drive->folder, true);
    if (share == nullptr) return text;
    const std::string_view inside = std::string_view(drive->folder).substr(share->folder.size());
    return share->name + backslashed(native::textOf(inside)) + text.substr(2);
}

std::string drives()
{
    std::string letters;
    for (const Drive& drive : driveTable()) {
        const bool known = letters.find(drive.name[0]) != std::string::npos;
        if (isDrive(drive.name) && !known) letters += drive.name[0];
    }
    std::ranges::sort(letters);
    return letters;
}

std::string currentFolder()
{
    char* const folder = ::getcwd(nullptr, 0);
    if (folder == nullptr) return std::string();
    std::string path = kernelPath(folder);
    std::free(folder);
    return path;
}

bool setCurrentFolder(std::string_view path)
{
    return ::chdir(native::existing(path).c_str()) == 0;
}

} // namespace kexos
