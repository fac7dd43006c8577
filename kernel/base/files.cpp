// SPDX-License-Identifier: LicenseRef-ORVALD
// The kernel's view of files: its paths on top of the system's files.
#include "kex/files.h"

#include "hostapi/lisp.h"
#include "kexos/environment.h"
#include "kexos/file_status.h"
#include "kexos/files.h"
#include "kexos/folders.h"
#include "kexos/paths.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <thread>

namespace KEX {
namespace {

using std::chrono::milliseconds;

// The time between two tries of a lock grows from the first to the second, so that a short hold is
// noticed soon and a long one costs little.
constexpr milliseconds kFirstPause{20};
constexpr milliseconds kLongestPause{50};
constexpr milliseconds kPauseGrowth{10};
constexpr std::size_t kPathRoom = 2048;

std::string systemPath(TextView file) { return kexos::nativePath(toUtf8(file)); }

CKexString kernelFolder(const std::string& path)
{
    CKexString folder = CKexString::fromUtf8(kexos::kernelPath(path));
    if (!folder.endsWith(KT("\\"))) folder += KT('\\');
    return folder;
}

} // namespace

std::optional<std::string> fileRead(TextView file)
{
    std::string bytes;
    if (kexos::readFile(systemPath(file), bytes) != kexos::ReadResult::read) return std::nullopt;
    return bytes;
}

bool fileSave(TextView file, std::string_view bytes)
{
    const std::string path = systemPath(file);
    return !path.empty() && kexos::saveFile(path, bytes);
}

bool fileExists(TextView file) { return kexos::fileExists(systemPath(file)); }

bool fileMakeWritable(TextView file) { return kexos::makeWritable(systemPath(file)); }

CKexString fileNameOnly(TextView path)
{
    const std::size_t separator = path.find_last_of(KT("\\/"));
    return TextView(separator == TextView::npos ? path : path.substr(separator + 1));
}

CKexString tmp_dir() { return kernelFolder(kexos::tempFolder()); }

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
    return kernelFolder(folder) + name;
}

CFileLock::CFileLock(TextView file, int waitMilliseconds)
{
    const std::string companion = systemPath(file) + ".lk";
    const auto deadline = std::chrono::steady_clock::now() + milliseconds(waitMilliseconds);
    milliseconds pause = kFirstPause;
    for (;;) {
        result_ = lock_.tryLock(companion);
        const auto now = std::chrono::steady_clock::now();
        if (result_ != kexos::LockResult::inUse || now >= deadline) return;
        std::this_thread::sleep_for(std::min<std::chrono::nanoseconds>(pause, deadline - now));
        pause = std::min(pause + kPauseGrowth, kLongestPause);
    }
}

} // namespace KEX
