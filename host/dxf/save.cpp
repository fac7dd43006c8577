// SPDX-License-Identifier: LicenseRef-ORVALD
// Saving: a temporary file beside the target, flushed, read back, renamed, the folder flushed.
#include "dxf/dxf.h"

#include "open_file.h"
#include "verify.h"
#include "writer.h"

#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <new>
#include <sys/file.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace orvald::dxf {

int FileCalls::create(const std::string& path, const std::string& model, int& file)
{
    // Twice: what a killed writer left behind is removed once.
    for (int attempt = 0; attempt < 2; ++attempt) {
        file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, 0666);
        const bool fresh = file >= 0;
        if (!fresh && errno != EEXIST) return errno;
        if (!fresh) file = ::open(path.c_str(), O_WRONLY | O_CLOEXEC | O_NOFOLLOW);
        if (file < 0) return errno;
        if (::flock(file, LOCK_EX | LOCK_NB) != 0) {
            ::close(file);
            return EBUSY; // another process is writing it
        }
        struct stat mine
        {
        }, there{};
        const bool same = ::fstat(file, &mine) == 0 && ::lstat(path.c_str(), &there) == 0 &&
                          mine.st_ino == there.st_ino && mine.st_dev == there.st_dev;
        if (fresh && same) {
            struct stat target
            {
            };
            if (::stat(model.c_str(), &target) == 0) (void)::fchmod(file, target.st_mode & 0777);
            return 0;
        }
        if (same) ::unlink(path.c_str());
        ::close(file);
    }
    return EBUSY;
}

int FileCalls::write(int file, const char* bytes, std::size_t count)
{
    while (count != 0) {
        const ssize_t done = ::write(file, bytes, count);
        if (done < 0 && errno == EINTR) continue;
        if (done < 0) return errno;
        if (done == 0) return ENOSPC; // nothing is taken any more
        bytes += done;
        count -= static_cast<std::size_t>(done);
    }
    return 0;
}

int FileCalls::flush(int file) { return ::fsync(file) == 0 ? 0 : errno; }

int FileCalls::close(int file) { return ::close(file) == 0 ? 0 : errno; }

int FileCalls::rename(const std::string& from, const std::string& to)
{
    return std::rename(from.c_str(), to.c_str()) == 0 ? 0 : errno;
}

int FileCalls::flushFolder(const std::string& folder)
{
    const int file = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (file < 0) return errno;
    const int error = ::fsync(file) == 0 ? 0 : errno;
    ::close(file);
    return error;
}

void FileCalls::remove(const std::string& path) { ::unlink(path.c_str()); }

std::string temporaryName(const std::string& target) { return target + ".new~"; }

namespace {

std::string folderOf(const std::string& path)
{
    const std::size_t slash = path.rfind('/');
    return slash == std::string::npos ? "." : slash == 0 ? "/" : path.substr(0, slash);
}

/// Where a link leads, so that the file is replaced and not the link.
std::string realTarget(const std::string& path)
{
    char resolved[PATH_MAX];
    return ::realpath(path.c_str(), resolved) != nullptr ? std::string(resolved) : path;
}

/// Reads the text at `path` and compares it with the drawing. Throws Fail.
void readBack(const drawing::Drawing& drawing, const std::string& path, const Writer& writer)
{
    DxfError error;
    OpenFile file(path, error);
    if (!file.isOpen()) throw Fail{error};
    LineSource lines(file.number());
    Verifier verifier(drawing, writer.anyLeft());
    Parser(lines, verifier).run();
    if (verifier.count() != writer.count())
        throw Fail{{{}, 0, DxfError::kNoGroup, "records are missing", 0}};
}

/// Writes, flushes and reads back the temporary file. Gives the reason for a failure, "" for none.
std::string fillTemporary(const drawing::Drawing& drawing, const std::string& path, int file,
                          FileCalls& calls, DxfError& error)
{
    int code = 0;
    Writer writer(drawing, [&](std::string_view text) {
        code = calls.write(file, text.data(), text.size());
        return code == 0;
    });
    if (!writer.run() && code == 0) {
        error.handle = writer.unwritable();
        return "a number of the drawing is not finite";
    }
    if (code == 0) code = calls.flush(file);
    if (code != 0) return std::generic_category().message(code);
    try {
        readBack(drawing, path, writer);
    } catch (const Fail& fail) {
        error.line = fail.error.line;
        error.group = fail.error.group;
        error.handle = fail.error.handle;
        return "what was written does not read back: " + fail.error.reason;
    }
    return {};
}

} // namespace

Saved save(const drawing::Drawing& drawing, const std::string& path)
{
    FileCalls calls;
    return save(drawing, path, calls);
}

Saved save(const drawing::Drawing& drawing, const std::string& path, FileCalls& calls)
{
    Saved saved;
    saved.error.file = path;
    const std::string target = realTarget(path), temporary = temporaryName(target);
    int file = -1;
    if (const int code = calls.create(temporary, target, file); code != 0) {
        saved.error.reason = std::generic_category().message(code);
        return saved;
    }
    try {
        saved.error.reason = fillTemporary(drawing, temporary, file, calls, saved.error);
    } catch (const std::bad_alloc&) {
        saved.error.reason = "not enough memory";
    }
    bool renamed = false;
    if (saved.error.reason.empty()) {
        const int code = calls.rename(temporary, target);
        renamed = code == 0;
        if (!renamed) saved.error.reason = std::generic_category().message(code);
    }
    const int closed = calls.close(file);
    if (renamed) {
        // The new file stands there, whole; what may be missing is the certainty that it stays.
        int code = closed;
        if (code == 0) code = calls.flushFolder(folderOf(target));
        if (code != 0)
            saved.error.reason = "saved, but not flushed: " + std::generic_category().message(code);
    } else {
        calls.remove(temporary);
    }
    saved.good = saved.error.reason.empty();
    return saved;
}

std::string saveText(const drawing::Drawing& drawing)
{
    std::string text;
    Writer(drawing, [&text](std::string_view piece) {
        text += piece;
        return true;
    }).run();
    return text;
}

} // namespace orvald::dxf
