// SPDX-License-Identifier: LicenseRef-ORVALD
#include "kex/files.h"

#include "hostapi/lisp.h"
#include "kex/date.h"
#include "kex/format.h"
#include "kexos/environment.h"
#include "kexos/exclusive_file.h"
#include "kexos/file_status.h"
#include "kexos/files.h"
#include "kexos/folders.h"
#include "kexos/paths.h"
#include "kexos/random.h"
#include "kexos/time.h"

#include <algorithm>
#include <array>
#include <chrono>

namespace KEX {
namespace {

// The time between two tries of a lock grows from the first to the second, so that a short hold is
// noticed soon and a long one costs little. Milliseconds.
constexpr int kFirstPause = 20;
constexpr int kLongestPause = 50;
constexpr int kPauseGrowth = 10;
constexpr std::size_t kPathRoom = 2048;
/// Units that a path can have on any system; bounds the work over one that cannot exist.
constexpr std::size_t kLongestPath = 32767;

CKexString withSeparator(CKexString folder)
{
    if (!folder.endsWith(KT("\\"))) folder += KT('\\');
    return folder;
}

} // namespace

std::optional<std::string> fileRead(TextView file)
{
    std::string bytes;
    if (kexos::readFile(toUtf8(file), bytes) != kexos::ReadResult::read) return std::nullopt;
    return bytes;
}

bool fileSave(TextView file, std::string_view bytes)
{
    return kexos::saveFile(toUtf8(file), bytes);
}

bool fileExists(TextView file) { return kexos::fileExists(toUtf8(file)); }

bool fileMakeWritable(TextView file) { return kexos::makeWritable(toUtf8(file)); }

bool fileCopy(TextView source, TextView target)
{
    return kexos::copyFile(toUtf8(source), toUtf8(target));
}

bool fileRename(TextView old, TextView fresh)
{
    return kexos::moveFile(toUtf8(old), toUtf8(fresh));
}

bool fileRemove(TextView file) { return kexos::removeFile(toUtf8(file)); }

bool fileMkdir(TextView folder)
{
    if (folder.size() > kLongestPath) return false;
    bool made = false;
    for (std::size_t i = 0; i + 1 < folder.size(); ++i) {
        const bool ends =
            folder[i + 1] == KT('\\') && folder[i] != KT('\\') && folder[i] != KT(':');
        if (ends) made = kexos::makeFolder(toUtf8(folder.substr(0, i + 1)));
    }
    // kept: what counts is the last one, so a folder that exists is a failure
    return folder.ends_with(KT('\\')) ? made : kexos::makeFolder(toUtf8(folder));
}

bool fileAccess(TextView file)
{
    const std::string path = toUtf8(file);
    const bool existed = kexos::fileExists(path);
    kexos::ExclusiveFile trial;
    trial.open(path, existed ? kexos::OpenMode::change : kexos::OpenMode::createBarred);
    const int descriptor = trial.descriptor();
    trial.close();
    if (!existed && descriptor >= 0) {
        kexos::makeWritable(path);
        kexos::removeFile(path);
    }
    return descriptor > 0; // kept: the descriptor 0, open or not, counts as failure
}

std::optional<FileInfo> fileInfo(TextView file)
{
    const std::optional<kexos::FileStatus> status = kexos::fileStatus(toUtf8(file));
    SystemTime written;
    if (!status || !timeToSystemTime(written, status->writtenSeconds(), true)) return std::nullopt;
    return FileInfo{str_date(written), str_time(written), status->lowSize()};
}

bool fileIsOlder(TextView a, TextView b)
{
    const std::optional<kexos::FileStatus> first = kexos::fileStatus(toUtf8(a));
    if (!first) return true; // kept: also when b does not exist either
    const std::optional<kexos::FileStatus> second = kexos::fileStatus(toUtf8(b));
    return second && first->written < second->written;
}

CKexString tmp_dir() { return withSeparator(CKexString::fromUtf8(kexos::tempFolder())); }

CKexString tmp_nam(TextView prefix)
{
    const CKexString start = tmp_dir() + prefix;
    std::uint32_t number = static_cast<std::uint32_t>(kexos::processId());
    for (;;) {
        // Where the system has no random bytes to give, numbers are tried one after the other.
        if (!kexos::randomBytes(&number, sizeof number)) ++number;
        CKexString name = start + format(KT("{:08X}.tmp"), number);
        if (!fileExists(name)) return name;
    }
}

CKexString dataFileName(TextView name, bool own)
{
    std::array<ACHAR, kPathRoom> found;
    const CKexString searched = name;
    if (!own &&
        acedFindFile(searched.c_str(), found.data(), static_cast<int>(kPathRoom)) == RTNORM) {
        return CKexString::fromUtf8(kexos::kernelPath(toUtf8(found.data())));
    }
    const std::string folder = kexos::homeFolder();
    kexos::makeFolders(folder); // where it fails, the later use of the file says so
    return withSeparator(CKexString::fromUtf8(folder)) + name;
}

CFileLock::CFileLock(TextView file, int waitMilliseconds)
{
    using std::chrono::ceil, std::chrono::milliseconds, std::chrono::steady_clock;
    const std::string companion = toUtf8(file) + ".lk";
    const auto deadline = steady_clock::now() + milliseconds(waitMilliseconds);
    int pause = kFirstPause;
    for (;;) {
        result_ = lock_.tryLock(companion);
        const auto now = steady_clock::now();
        if (result_ != kexos::LockResult::inUse || now >= deadline) return;
        const auto left = ceil<milliseconds>(deadline - now).count();
        kexos::sleepFor(static_cast<int>(std::min<std::int64_t>(pause, left)));
        pause = std::min(pause + kPauseGrowth, kLongestPause);
    }
}

} // namespace KEX
