// SPDX-License-Identifier: LicenseRef-ORVALD
// CBinFile: a file of bytes, read and written as a whole; and the binary form of a data item.
//
// A data file is "KEXB", u16 version 1, u16 flags 0, u32 payload length, payload, u32 CRC-32 (IEEE)
// of the payload; little endian. The payload is one node, a tag byte and its content:
//   0 nil, 1 T, 2 int32, 3 double, 4 text (u32 bytes, UTF-8), 5 three doubles, 6 two doubles,
//   7 list (u32 count, nodes), 8 list whose last node is its tail,
//   9 directory (u32 count; each child 'S' and a text, or 'I' and an int32, then a node),
//   10 an entity's handle as text, which is good only in the drawing that it came from.
#pragma once

#include "kexdata/data_dir.h"

#include <string>

namespace KEX {

class KEX_DATA_API CBinFile
{
public:
    CBinFile() = default;
    CBinFile(const CBinFile&) = delete;
    CBinFile& operator=(const CBinFile&) = delete;
    /// A file that was being written and is not closed leaves nothing behind.
    ~CBinFile() = default;

    /// Mode "r" reads an existing file into memory, "w" begins a new one; false on failure.
    bool open(TextView file, const ACHAR* mode);
    bool isOpen() const { return mode_ != Mode::closed; }
    /// Up to `most` bytes from where the last reading ended; fewer at the end of the file.
    std::string_view read(std::size_t most);
    bool write(std::string_view bytes);
    /// Saves what was written, in place of an old file: as a whole, or not at all, which gives
    /// false.
    bool close();

private:
    enum class Mode
    {
        closed,
        reading,
        writing
    };
    Mode mode_ = Mode::closed;
    CKexString file_;
    std::string bytes_;
    std::size_t at_ = 0;
};

struct BinOptions
{
    /// Directories in the order of their keys, not in stored order.
    bool sorted = false;
    /// Children whose key this is true for are left out; null: none.
    bool (*skips)(const DataKeyView& key) = nullptr;
};

/// The bytes of a data file for the item.
KEX_DATA_API std::string binEncode(const CKexDataItem& item, const BinOptions& options = {});
KEX_DATA_API std::string binEncode(const CKexDataDir& directory, const BinOptions& options = {});
/// The item of a data file's bytes; nothing unless all of them are as binEncode writes them.
KEX_DATA_API std::optional<CKexDataItem> binDecode(std::string_view bytes);
/// Reads a data file. False, and no change, when it cannot be read or is damaged.
KEX_DATA_API bool binLoad(TextView file, CKexDataItem& item);
/// Saves a data file as a whole; false on failure.
KEX_DATA_API bool binSave(TextView file, const CKexDataItem& item);
/// The check that stands at the end of a data file's bytes.
KEX_DATA_API std::uint32_t binCheck(std::string_view bytes);
/// CRC-32 (IEEE 802.3, as in zip).
KEX_DATA_API std::uint32_t crc32(std::string_view bytes);

} // namespace KEX
