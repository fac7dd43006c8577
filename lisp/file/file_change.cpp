// SPDX-License-Identifier: LicenseRef-ORVALD
// Functions that make, change or remove files. What the file system refuses is nil, never an error.
#include "file/file_rows.h"
#include "kex/file_list.h"
#include "kex/files.h"
#include "path_arg.h"

namespace KEX {

int kexFileAccess(const resbuf* args) { return onPath<fileAccess>(args); }

int kexFileMkdir(const resbuf* args)
{
    ArgReader in(args);
    const CKexString path = in.path(0);
    if (in.failed()) return RTERROR; // kept: without a message
    return retAds(fileMkdir(path));
}

int kexFileCopy(const resbuf* args) { return onTwoPaths<fileCopy>(args); }

int kexFileRename(const resbuf* args) { return onTwoPaths<fileRename>(args); }

int kexFileRemove(const resbuf* args)
{
    for (ArgReader in(args); !in.isLast();) fileRemove(readPathIfText(in));
    return retVoid();
}

int kexFileRmRdonly(const resbuf* args)
{
    ArgReader in(args);
    const CKexString folder = readPathIfText(in);
    if (!folder.isNull()) clearReadOnly(folder);
    return retVoid();
}

} // namespace KEX
