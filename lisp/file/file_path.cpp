// SPDX-License-Identifier: LicenseRef-ORVALD
// Functions over names of files, and the current folder.
#include "file/file_rows.h"
#include "kex/files.h"
#include "kex/system.h"
#include "path_arg.h"

namespace KEX {
namespace {

constexpr int kPartLimit = 260; // units of a part of a path
constexpr const ACHAR* kTemporaryPrefix = KT("tmp");

} // namespace

int kexFileSplitpath(const resbuf* args)
{
    ArgReader in(args);
    const CKexString path = in.path(0);
    if (in.failed()) return in.fail();
    const PathParts parts = splitPath(path);
    RbBuilder list;
    for (const CKexString& part : {parts.drive, parts.folder, parts.name, parts.extension}) {
        list.text(part.mid(0, kPartLimit));
    }
    return retList(list.take());
}

int kexFileUnc(const resbuf* args)
{
    ArgReader in(args);
    const CKexString path = in.string(0);
    if (in.failed()) return in.fail();
    const CKexString full = fileNameUnc(path);
    return full.isNull() ? retAds(false) : retAds(full);
}

int kexFileCpath(const resbuf* args)
{
    ArgReader in(args);
    const CKexString before = curDir();
    const CKexString path = readPathIfText(in);
    if (!path.isNull()) curDirSet(path); // kept: where it fails the result is the same
    return retAds(before);
}

int kexFileTmpname(const resbuf* args)
{
    const bool given = args != nullptr && args->restype == RTSTR;
    return retAds(tmp_nam(given ? args->resval.rstring : kTemporaryPrefix));
}

int kexFileFillenv(const resbuf* args)
{
    ArgReader in(args);
    const CKexString text = in.string(0);
    if (in.failed()) return in.fail();
    return retAds(envExpand(text));
}

} // namespace KEX
