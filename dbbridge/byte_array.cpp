// SPDX-License-Identifier: LicenseRef-ORVALD
#include "dbbridge/byte_array.h"

#include "kex/base64.h"
#include "kex/hex.h"
#include "kexdata/bin_file.h"
#include "kexdata/data_dir.h"

namespace {

using KEX::TextView;

constexpr const ACHAR* kEncoding = KT("ENCODING");
constexpr std::size_t kBytesOfChunk = 512;

enum Encoding : int
{
    kHexadecimal,
    kBase64,
    kPackedBase64
};

void putChunk(CKexDataDir& dir, int index, std::string_view bytes)
{
    dir.makeChild(index) = CKexDataItem(KEX::base64Encode(bytes));
}

/// Pairs of digits; a pair counts as far as it has digits, so that no text is refused.
void decodePairs(TextView text, std::string& bytes)
{
    for (std::size_t at = 0; at < text.size(); at += 2) {
        bytes += static_cast<char>(KEX::xtol(text.substr(at, 2)));
    }
}

CKexString unpacked(TextView text)
{
    CKexString result;
    result.reserve(static_cast<int>(text.size()) * 2);
    for (const ACHAR unit : text) {
        result += static_cast<ACHAR>(unit & 0xFF);
        result += static_cast<ACHAR>(unit >> 8);
    }
    return result;
}

/// Appends a chunk's bytes; false when it is not written so.
bool decodeChunk(int encoding, TextView text, std::string& bytes)
{
    switch (encoding) {
    case kHexadecimal: decodePairs(text, bytes); return true;
    case kBase64: return KEX::base64Decode(text, bytes);
    case kPackedBase64: return KEX::base64Decode(unpacked(text), bytes);
    default: return false;
    }
}

} // namespace

bool KEX::isByteArray(const CKexDataItem& item)
{
    const CKexDataDir* dir = item.getDir();
    return dir != nullptr && (dir->child(kEncoding) != nullptr || dir->child(0) != nullptr);
}

bool kexBinToDataItem(CKexDataItem* item, const CKexArrayTempl<std::uint8_t>& bytes)
{
    if (item == nullptr) return false;
    CKexDataDir& dir = item->mkDir();
    dir.clear();
    dir.makeChild(kEncoding) = CKexDataItem(static_cast<int>(kBase64));
    std::string_view rest(reinterpret_cast<const char*>(bytes.data()),
                          static_cast<std::size_t>(bytes.length()));
    for (int index = 0; !rest.empty(); ++index) {
        const std::string_view chunk = rest.substr(0, kBytesOfChunk);
        putChunk(dir, index, chunk);
        rest.remove_prefix(chunk.size());
    }
    return true;
}

bool kexBinFromDataItem(const CKexDataItem* item, CKexArrayTempl<std::uint8_t>& bytes)
{
    bytes.clear();
    if (item == nullptr) return false;
    const CKexDataDir* dir = item->getDir();
    if (dir == nullptr) return true; // no chunks
    int encoding = kHexadecimal;
    if (const CKexDataItem* child = dir->child(kEncoding)) child->get(encoding);
    std::string decoded;
    for (int index = 0;; ++index) {
        const CKexDataItem* chunk = dir->child(index);
        if (chunk == nullptr || chunk->kind() != CKexDataItem::Kind::text) return true;
        decoded.clear();
        if (!decodeChunk(encoding, chunk->text(), decoded)) return false;
        bytes.append(reinterpret_cast<const std::uint8_t*>(decoded.data()), decoded.size());
    }
}

// kept: unlike kexBinToDataItem it does not ask for a null item and clears nothing
bool kexFileToDataItem(CKexDataItem* item, const ACHAR* file)
{
    KEX::CBinFile source;
    if (!source.open(file, KT("r"))) return false;
    CKexDataDir& dir = item->mkDir();
    dir.makeChild(kEncoding) = CKexDataItem(static_cast<int>(kBase64));
    int index = 0;
    for (;;) {
        const std::string_view block = source.read(kBytesOfChunk);
        if (block.empty()) break;
        putChunk(dir, index++, block);
    }
    return source.close();
}

bool kexFileFromDataItem(const CKexDataItem* item, const ACHAR* file)
{
    CKexArrayTempl<std::uint8_t> bytes;
    if (!kexBinFromDataItem(item, bytes)) return false;
    KEX::CBinFile target;
    if (!target.open(file, KT("w"))) return false;
    target.write(
        {reinterpret_cast<const char*>(bytes.data()), static_cast<std::size_t>(bytes.length())});
    return target.close();
}
