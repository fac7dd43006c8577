// SPDX-License-Identifier: LicenseRef-ORVALD
// A file that is open for reading as long as the object lives.
#pragma once

#include "dxf/dxf.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace orvald::dxf {

class OpenFile
{
public:
    /// A file that cannot be opened, or is a folder, gives the reason in `error`.
    OpenFile(const std::string& path, DxfError& error)
        : file_(::open(path.c_str(), O_RDONLY | O_CLOEXEC))
    {
        struct stat status
        {
        };
        int code = file_ < 0 || ::fstat(file_, &status) != 0 ? errno : 0;
        if (code == 0 && S_ISDIR(status.st_mode)) code = EISDIR;
        if (code == 0) return;
        error.file = path;
        error.reason = std::generic_category().message(code);
        close();
    }
    ~OpenFile() { close(); }
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;

    bool isOpen() const { return file_ >= 0; }
    int number() const { return file_; }

private:
    void close()
    {
        if (file_ >= 0) ::close(file_);
        file_ = -1;
    }
    int file_;
};

} // namespace orvald::dxf
