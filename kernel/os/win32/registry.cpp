// SPDX-License-Identifier: LicenseRef-ORVALD
// The keys stand under "Software" of the current user.
#include "kexos/registry.h"

#include "native.h"

namespace kexos {
namespace {

/// A key that is closed when its scope ends.
class Key
{
public:
    Key() = default;
    Key(const Key&) = delete;
    Key& operator=(const Key&) = delete;
    ~Key()
    {
        if (key_ != nullptr) RegCloseKey(key_);
    }
    HKEY* place() { return &key_; }
    HKEY get() const { return key_; }

private:
    HKEY key_ = nullptr;
};

std::wstring fullName(const std::string& key) { return L"Software\\" + native::wide(key); }

/// With the keys above it.
bool makeKey(const std::string& key, Key& made)
{
    return !key.empty() &&
           RegCreateKeyExW(HKEY_CURRENT_USER, fullName(key).c_str(), 0, nullptr, 0,
                           KEY_READ | KEY_WRITE, nullptr, made.place(), nullptr) == ERROR_SUCCESS;
}

bool openKey(const std::string& key, Key& opened)
{
    return !key.empty() && RegOpenKeyExW(HKEY_CURRENT_USER, fullName(key).c_str(), 0, KEY_READ,
                                         opened.place()) == ERROR_SUCCESS;
}

} // namespace

bool registryMakeKey(const std::string& key)
{
    Key made;
    return makeKey(key, made);
}

bool registryHasKey(const std::string& key)
{
    Key opened;
    return openKey(key, opened);
}

std::optional<std::string> registryValue(const std::string& key, const std::string& name)
{
    Key opened;
    if (!openKey(key, opened)) return std::nullopt;
    const std::wstring value = native::wide(name);
    std::wstring text(MAX_PATH, L'\0');
    for (;;) {
        auto size = static_cast<DWORD>(text.size() * sizeof(wchar_t));
        const LSTATUS result = RegGetValueW(opened.get(), nullptr, value.c_str(),
                                            RRF_RT_REG_SZ | RRF_RT_REG_EXPAND_SZ | RRF_NOEXPAND,
                                            nullptr, text.data(), &size);
        if (result == ERROR_SUCCESS) return native::utf8(text.c_str());
        if (result != ERROR_MORE_DATA) return std::nullopt;
        text.resize(size / sizeof(wchar_t) + 1);
    }
}

bool registrySetValue(const std::string& key, const std::string& name, const std::string& value)
{
    Key made;
    if (!makeKey(key, made)) return false;
    const std::wstring text = native::wide(value);
    const std::size_t size = (text.size() + 1) * sizeof(wchar_t);
    return RegSetValueExW(made.get(), native::wide(name).c_str(), 0, REG_SZ,
                          reinterpret_cast<const BYTE*>(text.c_str()),
                          static_cast<DWORD>(size)) == ERROR_SUCCESS;
}

bool registryRemoveKey(const std::string& key)
{
    if (key.empty()) return false;
    const LSTATUS result = RegDeleteTreeW(HKEY_CURRENT_USER, fullName(key).c_str());
    return result == ERROR_SUCCESS || result == ERROR_FILE_NOT_FOUND;
}

} // namespace kexos
