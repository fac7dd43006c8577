// SPDX-License-Identifier: LicenseRef-ORVALD
#include "kex/path_names.h"

#include "kexos/paths.h"

namespace KEX {
namespace {

bool isSmallLetter(ACHAR unit) { return unit >= KT('a') && unit <= KT('z'); }

/// Behind the last separator.
std::size_t nameStart(TextView path)
{
    const std::size_t separator = path.find_last_of(KT("\\/"));
    return separator == TextView::npos ? 0 : separator + 1;
}

/// Where the extension of a name begins, its end when it has none.
std::size_t extensionStart(TextView name)
{
    const std::size_t dot = name.rfind(KT('.'));
    return dot == TextView::npos || dot == 0 ? name.size() : dot;
}

} // namespace

CKexString& dos_name(CKexString& path)
{
    path.trim();
    TextView text = path;
    if (text.size() >= 2 && text.front() == KT('"') && text.back() == KT('"')) {
        text = text.substr(1, text.size() - 2);
    }
    CKexString result;
    result.reserve(static_cast<int>(text.size()));
    for (const ACHAR unit : text) {
        const ACHAR plain = unit == KT('/') ? KT('\\') : unit;
        const int length = result.len();
        const bool repeated = plain == KT('\\') && length > 0 && result[length - 1] == KT('\\');
        const bool leadingPair = length == 1;
        if (!repeated || leadingPair) result += plain;
    }
    if (result[1] == KT(':') && isSmallLetter(result[0])) result.setAt(0, upperUnit(result[0]));
    return path = std::move(result);
}

CKexString file_type(TextView path)
{
    const TextView name = path.substr(nameStart(path));
    return TextView(name.substr(extensionStart(name)));
}

CKexString fileNameOnly(TextView path) { return TextView(path.substr(nameStart(path))); }

PathParts splitPath(TextView path)
{
    const std::size_t drive = path.size() >= 2 && path[1] == KT(':') ? 2 : 0;
    const std::size_t start = std::max(drive, nameStart(path));
    const TextView name = path.substr(start);
    const std::size_t end = extensionStart(name);
    return {TextView(path.substr(0, drive)), TextView(path.substr(drive, start - drive)),
            TextView(name.substr(0, end)), TextView(name.substr(end))};
}

CKexString fileNameUnc(CKexString file)
{
    dos_name(file);
    return CKexString::fromUtf8(kexos::networkPath(kexos::fullPath(file.toUtf8())));
}

CKexArrayTempl<CKexString> drives()
{
    CKexArrayTempl<CKexString> list;
    for (const char letter : kexos::drives()) list.append(CKexString(ACHAR(letter), 1) + KT(":"));
    return list;
}

CKexString curDir()
{
    CKexString folder = CKexString::fromUtf8(kexos::currentFolder());
    if (!folder.endsWith(KT("\\"))) folder += KT('\\');
    return folder;
}

bool curDirSet(TextView path)
{
    const bool cut = path.size() > 1 && path.back() == KT('\\') && path[path.size() - 2] != KT(':');
    return kexos::setCurrentFolder(toUtf8(cut ? TextView(path.substr(0, path.size() - 1)) : path));
}

} // namespace KEX
