// SPDX-License-Identifier: LicenseRef-ORVALD
#include "kexdata/bin_file.h"

#include "kex/files.h"

#include <algorithm>

namespace KEX {

bool CBinFile::open(TextView file, const ACHAR* mode)
{
    mode_ = Mode::closed;
    bytes_.clear();
    at_ = 0;
    if (TextView(mode) == TextView(KT("r"))) {
        std::optional<std::string> content = fileRead(file);
        if (!content.has_value()) return false;
        bytes_ = std::move(*content);
        mode_ = Mode::reading;
    } else if (TextView(mode) == TextView(KT("w"))) {
        file_ = file;
        mode_ = Mode::writing;
    }
    return isOpen();
}

std::string_view CBinFile::read(std::size_t most)
{
    if (mode_ != Mode::reading) return {};
    const std::size_t count = std::min(most, bytes_.size() - at_);
    at_ += count;
    return std::string_view(bytes_).substr(at_ - count, count);
}

bool CBinFile::write(std::string_view bytes)
{
    if (mode_ != Mode::writing) return false;
    bytes_ += bytes;
    return true;
}

bool CBinFile::close()
{
    const Mode was = std::exchange(mode_, Mode::closed);
    const std::string bytes = std::exchange(bytes_, std::string());
    return was == Mode::reading || (was == Mode::writing && fileSave(file_, bytes));
}

bool binLoad(TextView file, CKexDataItem& item)
{
    CBinFile source;
    return source.open(file, KT("r")) && item.read(source);
}

bool binSave(TextView file, const CKexDataItem& item)
{
    CBinFile target;
    return target.open(file, KT("w")) && item.write(target, BinOptions()) && target.close();
}

} // namespace KEX

bool CKexDataItem::write(KEX::CBinFile& file, const KEX::BinOptions& options) const
{
    return file.write(KEX::binEncode(*this, options));
}

bool CKexDataItem::read(KEX::CBinFile& file)
{
    std::optional<CKexDataItem> item = KEX::binDecode(file.read(std::string::npos));
    if (!item.has_value()) return false;
    *this = std::move(*item);
    return true;
}
