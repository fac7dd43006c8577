// SPDX-License-Identifier: LicenseRef-ORVALD
// Names of the kernel and names of the system: bytes that are no UTF-8, and look-up without regard
// to case.
#pragma once

#include <string>
#include <string_view>

namespace kexos::native {

/// A name of the system as the kernel's text: every byte that is no part of UTF-8, and every "\",
/// becomes the lone surrogate U+DC00 + byte.
std::string textOf(std::string_view bytes);
/// The bytes of a text that textOf gave.
std::string bytesOf(std::string_view text);

/// The system's path of a kernel path, each component in the spelling of the folder's entry: the
/// exact one, else the first by bytes that is equal without regard to case, else as given.
std::string existing(std::string_view kernelPath);

/// Of a path of the system; "." for a relative path without folder.
std::string folderOf(const std::string& path);
std::string_view nameOf(std::string_view path);

} // namespace kexos::native
