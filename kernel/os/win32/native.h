// SPDX-License-Identifier: LicenseRef-ORVALD
// Texts and paths as the Windows calls take and give them.
#pragma once

#include "windows_api.h"

#include <string>
#include <string_view>
#include <utility>

namespace kexos::native {

std::wstring wide(std::string_view text);
std::string utf8(std::wstring_view text);

/// What the file calls take for a kernel path; "" when its drive does not exist.
std::wstring callPath(std::string_view kernelPath);
/// The same path; one that is too long for the file calls in the form that has no limit.
std::wstring longPath(const std::wstring& path);

/// The text of a system call that takes a buffer with its size, and gives the text's length or,
/// when that is too small, the size that it needs; "" when the call fails.
template <class Call>
std::wstring textOf(Call&& call)
{
    std::wstring text(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length = call(text.data(), static_cast<DWORD>(text.size()));
        const bool fits = length < text.size();
        text.resize(fits ? length : length + 1);
        if (fits) return text;
    }
}

/// An open handle, closed without a look at the result when its scope ends.
class Handle
{
public:
    explicit Handle(HANDLE handle) : handle_(handle) {}
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;
    ~Handle()
    {
        if (isOpen()) CloseHandle(handle_);
    }
    bool isOpen() const { return handle_ != INVALID_HANDLE_VALUE; }
    HANDLE get() const { return handle_; }
    /// The handle is the caller's from now on.
    HANDLE release() { return std::exchange(handle_, INVALID_HANDLE_VALUE); }

private:
    HANDLE handle_;
};

} // namespace kexos::native
