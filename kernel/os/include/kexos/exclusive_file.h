// SPDX-License-Identifier: LicenseRef-ORVALD
// A file that nobody else has open: opened so that the opening fails while anybody has the file
// open, and every later opening fails while this one lasts. Where the system cannot keep foreign
// programs out, this holds between programs of this system, and an opening of a foreign program is
// noticed as far as the system tells. Paths as in kexos/paths.h.
#pragma once

#include "kex/export.h"

#include <string>
#include <string_view>
#include <utility>

namespace kexos {

enum class OpenMode
{
    read,
    change,       // read and write an existing file
    create,       // a new file
    createBarred, // a new file without permission bits, for one that goes again at once
    replace       // emptied, made when it does not exist
};

enum class OpenResult
{
    opened,
    exists, // where a new file was asked for
    inUse,
    failed // missing, a folder, no permission, read-only, ...
};

class KEX_BASE_API ExclusiveFile
{
public:
    ExclusiveFile() = default;
    ExclusiveFile(const ExclusiveFile&) = delete;
    ExclusiveFile& operator=(const ExclusiveFile&) = delete;
    ~ExclusiveFile() { close(); }

    /// Never waits. A file that was open before is closed.
    OpenResult open(const std::string& path, OpenMode mode);
    /// Number of the open file in the C run-time, -1 while none is open.
    int descriptor() const { return descriptor_; }
    /// Writes all bytes at the present position.
    bool write(std::string_view bytes);
    /// True when nothing that was written got lost; also when no file was open.
    bool close();

private:
    int descriptor_ = -1;
};

} // namespace kexos
