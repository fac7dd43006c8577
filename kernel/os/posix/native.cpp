// SPDX-License-Identifier: LicenseRef-ORVALD
#include "native.h"

#include "kex/string.h"
#include "kexos/paths.h"

#include <algorithm>
#include <climits>
#include <dirent.h>
#include <sys/stat.h>

namespace kexos::native {
namespace {

// A lone surrogate U+DC00 + byte in UTF-8: 0xED, 0xB0 to 0xB3, 0x80 to 0xBF.
constexpr unsigned char kEscapeFirst = 0xED;
constexpr unsigned char kEscapeSecond = 0xB0;
constexpr std::size_t kEscapeLength = 3;

bool isPlain(std::string_view bytes)
{
    return std::ranges::none_of(bytes, [](char c) { return c == '\\' || (c & 0x80) != 0; });
}

/// Length of the UTF-8 sequence that begins at `at`, 0 when none does.
std::size_t sequenceAt(std::string_view bytes, std::size_t at)
{
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(bytes[i]); };
    const unsigned first = byte(at);
    if (first < 0x80) return 1;
    if (first < 0xC2 || first > 0xF4) return 0;
    const std::size_t length = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
    if (bytes.size() - at < length) return 0;
    for (std::size_t i = 1; i < length; ++i) {
        if ((byte(at + i) & 0xC0) != 0x80) return 0;
    }
    const unsigned second = byte(at + 1);
    const bool wrong = (first == 0xE0 && second < 0xA0) || (first == 0xED && second > 0x9F) ||
                       (first == 0xF0 && second < 0x90) || (first == 0xF4 && second > 0x8F);
    return wrong ? 0 : length;
}

bool isThere(const std::string& path)
{
    struct stat status = {};
    return ::lstat(path.c_str(), &status) == 0;
}

/// The first entry by bytes that is equal to the component without regard to case; "" for none.
std::string entryLike(const std::string& folder, const std::string& component)
{
    DIR* const open = ::opendir(folder.c_str());
    if (open == nullptr) return std::string();
    const CKexString wanted = CKexString::fromUtf8(textOf(component));
    const bool plain = isPlain(component);
    std::string best;
    while (const dirent* entry = ::readdir(open)) {
        const std::string_view name = entry->d_name;
        // Most names are told apart by their length; only other letters change it with their case.
        if (plain && name.size() != component.size() && isPlain(name)) continue;
        if (!best.empty() && name >= best) continue;
        if (KEX::equalNoCase(CKexString::fromUtf8(textOf(name)), wanted)) best = name;
    }
    ::closedir(open);
    return best;
}

} // namespace

std::string textOf(std::string_view bytes)
{
    if (isPlain(bytes)) return std::string(bytes);
    std::string text;
    for (std::size_t at = 0; at < bytes.size();) {
        const std::size_t length = bytes[at] == '\\' ? 0 : sequenceAt(bytes, at);
        if (length > 0) {
            text += bytes.substr(at, length);
            at += length;
            continue;
        }
        const unsigned byte = static_cast<unsigned char>(bytes[at++]);
        text += {static_cast<char>(kEscapeFirst), static_cast<char>(kEscapeSecond | (byte >> 6)),
                 static_cast<char>(0x80 | (byte & 0x3F))};
    }
    return text;
}

std::string bytesOf(std::string_view text)
{
    std::string bytes;
    bytes.reserve(text.size());
    for (std::size_t at = 0; at < text.size(); ++at) {
        const auto unit = [&](std::size_t i) { return static_cast<unsigned char>(text[at + i]); };
        if (unit(0) == kEscapeFirst && text.size() - at >= kEscapeLength &&
            (unit(1) & 0xFC) == kEscapeSecond) {
            const unsigned byte = (unit(1) & 3u) << 6 | (unit(2) & 0x3Fu);
            // Other bytes stand for themselves: a "/" must not come in by this way.
            if (byte >= 0x80 || byte == '\\') {
                bytes += static_cast<char>(byte);
                at += kEscapeLength - 1;
                continue;
            }
        }
        bytes += text[at];
    }
    return bytes;
}

std::string existing(std::string_view kernelPath)
{
    std::string path = nativePath(kernelPath);
    if (path.empty() || path.size() >= PATH_MAX || isThere(path)) return path;
    // From the longest part that is there on; mostly only the last component is not.
    std::size_t known = path.size();
    do {
        const std::size_t slash = path.rfind('/', known - 1);
        known = slash == std::string::npos ? 0 : slash;
    } while (known > 0 && !isThere(path.substr(0, known)));
    std::string found = path.substr(0, known);
    for (std::size_t at = known; at < path.size();) {
        if (path[at] == '/') {
            found += path[at++];
            continue;
        }
        const std::size_t end = std::min(path.find('/', at), path.size());
        const std::string component = path.substr(at, end - at);
        if (isThere(found + component)) {
            found += component;
        } else {
            const std::string entry = entryLike(found.empty() ? "." : found, component);
            if (entry.empty()) return found + path.substr(at);
            found += entry;
        }
        at = end;
    }
    return found;
}

std::string folderOf(const std::string& path)
{
    const std::size_t slash = path.rfind('/');
    if (slash == std::string::npos) return ".";
    return slash == 0 ? "/" : path.substr(0, slash);
}

std::string_view nameOf(std::string_view path) { return path.substr(path.rfind('/') + 1); }

} // namespace kexos::native
