// SPDX-License-Identifier: LicenseRef-ORVALD
// What is on the disk: files, folders, drives. What the file system refuses is nil, never an error.
#include "file/file_rows.h"
#include "kex/file_list.h"
#include "kex/files.h"
#include "path_arg.h"

namespace KEX {

int kexFileDcmp(const resbuf* args) { return onTwoPaths<fileIsOlder>(args); }

int kexFileInfo(const resbuf* args)
{
    ArgReader in(args);
    const CKexString path = in.path(0);
    if (in.failed()) return in.fail();
    const std::optional<FileInfo> info = fileInfo(path);
    if (!info) return retAds(false);
    RbBuilder list;
    list.text(info->date).text(info->time).real(info->size);
    return retList(list.take());
}

int kexFileDirinfo(const resbuf* args)
{
    ArgReader in(args);
    CKexString folder = readPathIfText(in);
    const CKexString pattern = readPathIfText(in);
    if (folder.isNull()) folder = curDir();
    const FolderSums sums = folderSums(folder, pattern);
    RbBuilder list;
    list.integer(sums.count).real(sums.size).real(sums.free).real(sums.total);
    return retList(list.take());
}

int kexFileDir(const resbuf* args)
{
    ArgReader in(args);
    CKexString pattern;
    const resbuf* const first = in.peek();
    if (first != nullptr && (first->restype == RTSTR || first->restype == RTNIL)) {
        pattern = readPathIfText(in);
    }
    const int mask = in.integer(0);
    if (in.failed()) return in.fail();
    return retAds(fileDir(pattern, mask));
}

int kexFileDirmode(const resbuf* args)
{
    ArgReader in(args);
    const int key = in.integer(0);
    if (in.failed()) return in.fail();
    int direction = 0;
    const resbuf* rest = in.peek();
    const bool given = readInteger(rest, direction);
    dirModeSet(key, given ? std::optional(direction) : std::nullopt);
    return retVoid();
}

int kexFileGetdrives(const resbuf*) { return retAds(drives()); }

} // namespace KEX
