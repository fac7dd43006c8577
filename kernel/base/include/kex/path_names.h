// SPDX-License-Identifier: LicenseRef-ORVALD
// Names of files and folders as text. The kernel writes paths in the Windows form on every system;
// what stands for a drive elsewhere says kexos/paths.h.
#pragma once

#include "kex/array.h"
#include "kex/string.h"

namespace KEX {

/// A path as LISP programs write it in the kernel's form, in place: blanks at the ends and quotes
/// around it go, "/" becomes "\", of several "\" one stays but for a leading pair, and the letter
/// of the drive becomes a capital. A "\" at the end stays, as does the case of all else. A name
/// with blanks at its ends can be written in quotes.
KEX_BASE_API CKexString& dos_name(CKexString& path);

/// ".dwg" of "C:\work\plan.dwg"; "" for a name without extension, as which counts ".cfg".
KEX_BASE_API CKexString file_type(TextView path);
/// Last component of a path, behind the last "\" or "/".
KEX_BASE_API CKexString fileNameOnly(TextView path);

/// The parts of a path in the kernel's form; together they are the path.
struct PathParts
{
    CKexString drive;     // "C:"
    CKexString folder;    // up to and with the last "\"
    CKexString name;      // without the extension
    CKexString extension; // with its dot
};
KEX_BASE_API PathParts splitPath(TextView path);

/// The full path of a file, from the current folder on, "\\server\share" in place of a drive that
/// stands for a share. The file need not exist. "" for no name.
KEX_BASE_API CKexString fileNameUnc(CKexString file);

/// "C:", "D:", ... in this order.
KEX_BASE_API CKexArrayTempl<CKexString> drives();
/// The current folder, with a "\" at the end.
KEX_BASE_API CKexString curDir();
/// A "\" at the end counts only behind a colon. False when the folder does not exist.
KEX_BASE_API bool curDirSet(TextView path);

} // namespace KEX
