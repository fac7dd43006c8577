// SPDX-License-Identifier: LicenseRef-ORVALD
#include "kex/names.h"

#include <algorithm>

namespace KEX {
namespace {

constexpr TextView kRefused = KT("<>/\\\":;?*|,=`");
constexpr int kLongestName = 255;
constexpr ACHAR kLibSeparator = KT(':');

} // namespace

CKexString str_name(TextView text, ACHAR replacement)
{
    CKexString name(text);
    for (int i = 0; i < name.len(); ++i) {
        const ACHAR unit = name[i];
        if (unit < 32 || kRefused.find(unit) != TextView::npos) name.setAt(i, replacement);
    }
    name.trim();
    if (name.len() <= kLongestName) return name;
    const bool halfPair = isHighSurrogate(name[kLongestName - 1]);
    return name.mid(0, halfPair ? kLongestName - 1 : kLongestName).trim();
}

CKexString str_lib(TextView libtype, TextView name)
{
    if (libtype.empty()) return name;
    return CKexString(libtype) + kLibSeparator + name;
}

CKexString str_lib_name(TextView text)
{
    const std::size_t separator = text.find(kLibSeparator);
    return separator == TextView::npos ? text : TextView(text.substr(separator + 1));
}

CKexString str_lib_libtype(TextView text)
{
    const std::size_t separator = text.find(kLibSeparator);
    return separator == TextView::npos ? TextView() : TextView(text.substr(0, separator));
}

} // namespace KEX
