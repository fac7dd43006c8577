// SPDX-License-Identifier: LicenseRef-ORVALD
// The registry as the file registry.txt in the home folder:
//
//   KEXREG 1
//   [KEX\Dialogs]
//   COUNTRY=49
//
// A control character, "%" and, in names, "=" are written as %XX. Every change reads the file,
// changes it and saves it whole under a lock, so that two processes lose nothing of each other.
#include "kexos/registry.h"

#include "kexos/environment.h"
#include "kexos/file_lock.h"
#include "kexos/files.h"
#include "kexos/folders.h"

#include <algorithm>
#include <chrono>
#include <map>
#include <thread>

namespace kexos {
namespace {

constexpr std::string_view kFirstLine = "KEXREG 1";
constexpr std::chrono::milliseconds kLongestWait{5000};
constexpr std::chrono::milliseconds kRetry{20};

struct LessNoCase
{
    static char upper(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c; }
    bool operator()(const std::string& a, const std::string& b) const
    {
        return std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(),
                                            [](char x, char y) { return upper(x) < upper(y); });
    }
};
using Values = std::map<std::string, std::string, LessNoCase>;
using Keys = std::map<std::string, Values, LessNoCase>;

std::string escaped(std::string_view text, bool isName)
{
    constexpr char kDigits[] = "0123456789ABCDEF";
    std::string result;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 32 || c == '%' || (isName && (c == '=' || c == '[' || c == ']'))) {
            result += {'%', kDigits[byte >> 4], kDigits[byte & 15]};
        } else {
            result += c;
        }
    }
    return result;
}

int hexDigit(char c)
{
    const char upper = LessNoCase::upper(c);
    if (upper >= '0' && upper <= '9') return upper - '0';
    return upper >= 'A' && upper <= 'F' ? upper - 'A' + 10 : -1;
}

std::string unescaped(std::string_view text)
{
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool code = text[i] == '%' && i + 2 < text.size() && hexDigit(text[i + 1]) >= 0 &&
                          hexDigit(text[i + 2]) >= 0;
        if (code) {
            result += static_cast<char>(hexDigit(text[i + 1]) * 16 + hexDigit(text[i + 2]));
            i += 2;
        } else {
            result += text[i];
        }
    }
    return result;
}

std::string registryFile() { return homeFolder() + "/registry.txt"; }

/// False when there is a file that is none of ours; then it must not be written either.
bool readKeys(Keys& keys)
{
    std::string bytes;
    const ReadResult result = readFile(registryFile(), bytes);
    if (result == ReadResult::missing) return true;
    if (result == ReadResult::failed || !bytes.starts_with(kFirstLine)) return false;
    Values* values = nullptr;
    for (std::size_t at = 0; at < bytes.size();) {
        const std::size_t end = std::min(bytes.find('\n', at), bytes.size());
        std::string_view line = std::string_view(bytes).substr(at, end - at);
        at = end + 1;
        if (line.ends_with('\r')) line.remove_suffix(1);
        const std::size_t equals = line.find('=');
        if (line.starts_with('[') && line.ends_with(']')) {
            values = &keys[unescaped(line.substr(1, line.size() - 2))];
        } else if (values != nullptr && equals != std::string_view::npos) {
            (*values)[unescaped(line.substr(0, equals))] = unescaped(line.substr(equals + 1));
        }
    }
    return true;
}

bool writeKeys(const Keys& keys)
{
    std::string bytes(kFirstLine);
    bytes += '\n';
    for (const auto& [key, values] : keys) {
        bytes += "[" + escaped(key, true) + "]\n";
        for (const auto& [name, value] : values) {
            bytes += escaped(name, true) + "=" + escaped(value, false) + "\n";
        }
    }
    return saveFile(registryFile(), bytes);
}

/// Lets `change` work on the keys; true when it wanted no change or the change is saved.
template <class Change>
bool changeKeys(Change&& change)
{
    if (!makeFolders(homeFolder())) return false;
    FileLock lock;
    const auto deadline = std::chrono::steady_clock::now() + kLongestWait;
    LockResult result = lock.tryLock(registryFile() + ".lk");
    while (result == LockResult::inUse && std::chrono::steady_clock::now() < deadline) {
        std::this_thread::sleep_for(kRetry);
        result = lock.tryLock(registryFile() + ".lk");
    }
    Keys keys;
    if (result != LockResult::locked || !readKeys(keys)) return false;
    return !change(keys) || writeKeys(keys);
}

/// The key and all keys above it; true when one of them was missing.
bool addKey(Keys& keys, const std::string& key)
{
    bool added = false;
    for (std::size_t end = 0; end != std::string::npos;) {
        end = key.find('\\', end + 1);
        added |= keys.try_emplace(key.substr(0, end)).second;
    }
    return added;
}

bool isBelow(const std::string& key, const std::string& top)
{
    const LessNoCase less;
    const std::string start = key.substr(0, top.size());
    return !less(start, top) && !less(top, start) &&
           (key.size() == top.size() || key[top.size()] == '\\');
}

} // namespace

bool registryMakeKey(const std::string& key)
{
    return !key.empty() && changeKeys([&](Keys& keys) { return addKey(keys, key); });
}

bool registryHasKey(const std::string& key)
{
    Keys keys;
    return readKeys(keys) && keys.contains(key);
}

std::optional<std::string> registryValue(const std::string& key, const std::string& name)
{
    Keys keys;
    if (!readKeys(keys)) return std::nullopt;
    const auto place = keys.find(key);
    if (place == keys.end()) return std::nullopt;
    const auto value = place->second.find(name);
    if (value == place->second.end()) return std::nullopt;
    return value->second;
}

bool registrySetValue(const std::string& key, const std::string& name, const std::string& value)
{
    return !key.empty() && changeKeys([&](Keys& keys) {
        addKey(keys, key);
        keys[key][name] = value;
        return true;
    });
}

bool registryRemoveKey(const std::string& key)
{
    return !key.empty() && changeKeys([&](Keys& keys) {
        return std::erase_if(keys, [&](const auto& entry) { return isBelow(entry.first, key); }) !=
               0;
    });
}

} // namespace kexos
