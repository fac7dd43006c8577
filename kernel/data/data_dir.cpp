// SPDX-License-Identifier: LicenseRef-ORVALD
// Directories. A child's place never changes but when gaps are closed; the index finds it by the
// hash of its key. Few children need no index, they are looked through.
#include "kexdata/data_dir.h"

#include "kexdata/bin_file.h"
#include "key_pool.h"

#include <algorithm>
#include <bit>

using KEX::DataKeyView;
using KEX::keyPool;
using KEX::KeyPool;

namespace {

/// Children that are looked through one by one.
constexpr std::uint32_t kNoIndex = 8;
/// Gaps that are not worth closing.
constexpr std::uint32_t kFewGaps = 16;
constexpr std::uint32_t kAbsent = 0xFFFFFFFF;

KEX::RbValidate theRbValidate = nullptr;

std::uint32_t hashKey(const DataKeyView& key)
{
    if (key.isText()) return KeyPool::hashText(key.text());
    auto hash = static_cast<std::uint32_t>(key.number()) * 0x9E3779B1u;
    return hash ^ (hash >> 16);
}

} // namespace

CKexDataDir::CKexDataDir() { keyPool(); }

CKexDataDir::~CKexDataDir() { clear(); }

std::uint32_t CKexDataDir::blockOf(std::uint32_t place)
{
    const auto bits = static_cast<std::uint32_t>(std::bit_width(place / kFirstBlock));
    return bits;
}

std::uint32_t CKexDataDir::blockStart(std::uint32_t block)
{
    return block == 0 ? 0 : kFirstBlock << (block - 1);
}

std::uint32_t CKexDataDir::blockSize(std::uint32_t block)
{
    return block == 0 ? kFirstBlock : kFirstBlock << (block - 1);
}

CKexDataDir::Entry& CKexDataDir::entry(std::uint32_t place) const
{
    const std::uint32_t block = blockOf(place);
    return blocks_[block][place - blockStart(block)];
}

DataKeyView CKexDataDir::keyOf(const Entry& entry)
{
    if (entry.name == kInteger) return DataKeyView(entry.number);
    return DataKeyView(keyPool().text(entry.name));
}

std::uint32_t CKexDataDir::hashOf(const Entry& entry)
{
    return entry.name == kInteger ? hashKey(DataKeyView(entry.number)) : keyPool().hash(entry.name);
}

void CKexDataDir::dropEntries(CKexDataDir*& doomed)
{
    for (std::uint32_t place = 0; place < used_; ++place) {
        Entry& dropped = entry(place);
        if (dropped.name == kRemoved) continue;
        if (dropped.name != kInteger) keyPool().release(dropped.name);
        if (!dropped.item.isDir()) continue;
        CKexDataDir* below = std::exchange(dropped.item.wide_.directory, nullptr);
        dropped.item.head_ = CKexDataItem::Head();
        below->nextDoomed_ = doomed;
        doomed = below;
    }
    blocks_.clear();
    index_.clear();
    used_ = removed_ = 0;
}

void CKexDataDir::clear()
{
    CKexDataDir* doomed = nullptr;
    dropEntries(doomed);
    while (doomed != nullptr) {
        CKexDataDir* const dir = doomed;
        doomed = dir->nextDoomed_;
        dir->dropEntries(doomed);
        delete dir;
    }
}

std::uint32_t CKexDataDir::findPlace(const DataKeyView& key, std::uint32_t hash) const
{
    const auto fits = [&](const Entry& candidate) {
        if (candidate.name == kRemoved) return false;
        if (!key.isText()) return candidate.name == kInteger && candidate.number == key.number();
        return candidate.name != kInteger && keyPool().hash(candidate.name) == hash &&
               KEX::equalNoCase(keyPool().text(candidate.name), key.text());
    };
    if (index_.empty()) {
        for (std::uint32_t place = 0; place < used_; ++place) {
            if (fits(entry(place))) return place;
        }
        return kAbsent;
    }
    const std::size_t mask = index_.size() - 1;
    for (std::size_t slot = hash & mask; index_[slot] != 0; slot = (slot + 1) & mask) {
        if (fits(entry(index_[slot] - 1))) return index_[slot] - 1;
    }
    return kAbsent;
}

void CKexDataDir::enterInIndex(std::uint32_t place)
{
    const std::size_t mask = index_.size() - 1;
    std::size_t slot = hashOf(entry(place)) & mask;
    while (index_[slot] != 0) slot = (slot + 1) & mask;
    index_[slot] = place + 1;
}

void CKexDataDir::rebuildIndex()
{
    index_.clear();
    if (used_ <= kNoIndex) return;
    // Between three eighths and three quarters of the slots are in use.
    index_.resize(std::bit_ceil(used_ + used_ / 3 + 1));
    for (std::uint32_t place = 0; place < used_; ++place) {
        if (!isRemoved(place)) enterInIndex(place);
    }
}

CKexDataItem& CKexDataDir::makeChild(const DataKeyView& key)
{
    const std::uint32_t hash = hashKey(key);
    const std::uint32_t found = findPlace(key, hash);
    if (found != kAbsent) return entry(found).item;

    const std::uint32_t place = used_;
    const std::uint32_t block = blockOf(place);
    if (block == blocks_.size()) blocks_.push_back(std::make_unique<Entry[]>(blockSize(block)));
    Entry& fresh = entry(place);
    fresh.name = key.isText() ? keyPool().take(key.text(), hash) : kInteger;
    fresh.number = key.number();
    ++used_;
    if (index_.empty() ? used_ > kNoIndex : std::size_t(used_) * 4 > index_.size() * 3) {
        rebuildIndex();
    } else if (!index_.empty()) {
        enterInIndex(place);
    }
    return fresh.item;
}

const CKexDataItem* CKexDataDir::child(const DataKeyView& key) const
{
    const std::uint32_t place = findPlace(key, hashKey(key));
    return place == kAbsent ? nullptr : &entry(place).item;
}

bool CKexDataDir::removeChild(const DataKeyView& key)
{
    const std::uint32_t place = findPlace(key, hashKey(key));
    if (place == kAbsent) return false;
    Entry& gone = entry(place);
    if (gone.name != kInteger) keyPool().release(gone.name);
    gone.name = kRemoved; // its slot in the index stays, and is passed over
    gone.item.clear();
    ++removed_;
    if (removed_ > kFewGaps && removed_ > used_ / 2) closeGaps();
    return true;
}

void CKexDataDir::closeGaps()
{
    std::uint32_t to = 0;
    for (std::uint32_t from = 0; from < used_; ++from) {
        if (isRemoved(from)) continue;
        if (to != from) {
            Entry& source = entry(from);
            Entry& target = entry(to);
            target.name = source.name;
            target.number = source.number;
            target.item = std::move(source.item);
        }
        ++to;
    }
    used_ = to;
    removed_ = 0;
    blocks_.resize(used_ == 0 ? 0 : blockOf(used_ - 1) + 1);
    rebuildIndex();
}

const CKexDataItem* CKexDataDir::get(const CKexDataKey& key) const
{
    const CKexDataDir* dir = this;
    const CKexDataItem* item = nullptr;
    for (const KEX::DataKeyPart& part : key) {
        if (dir == nullptr) return nullptr;
        item = dir->child(part);
        if (item == nullptr) return nullptr;
        dir = item->getDir();
    }
    return item;
}

bool CKexDataDir::set(const CKexDataKey& key, CKexDataItem item, bool make)
{
    if (key.isEmpty()) return false;
    // First down as far as there is something, so that a failure has made no directory.
    CKexDataDir* dir = this;
    int depth = 0;
    for (; depth + 1 < key.length(); ++depth) {
        CKexDataItem* next = dir->child(key[depth]);
        if (next == nullptr || next->isNil()) break;
        if (!next->isDir()) return false;
        dir = next->getDir();
    }
    if (depth + 1 < key.length() && !make) return false;
    for (; depth + 1 < key.length(); ++depth) dir = &dir->makeChild(key[depth]).mkDir();
    dir->makeChild(key.last()) = std::move(item);
    return true;
}

bool CKexDataDir::set(const CKexDataKey& key, std::unique_ptr<CKexDataItem> item, bool make)
{
    return item == nullptr ? remove(key) : set(key, std::move(*item), make);
}

bool CKexDataDir::remove(const CKexDataKey& key)
{
    if (key.isEmpty()) return false;
    CKexDataDir* dir = this;
    for (int depth = 0; depth + 1 < key.length(); ++depth) {
        CKexDataItem* next = dir->child(key[depth]);
        dir = next == nullptr ? nullptr : next->getDir();
        if (dir == nullptr) return false;
    }
    return dir->removeChild(key.last());
}

CKexArrayTempl<CKexDataKey> CKexDataDir::keys(bool sorted) const
{
    std::vector<DataKeyView> views;
    views.reserve(used_ - removed_);
    for (const auto child : *this) views.push_back(child.key);
    if (sorted) std::sort(views.begin(), views.end());
    CKexArrayTempl<CKexDataKey> result;
    result.reserve(length());
    for (const DataKeyView& view : views) {
        CKexDataKey key;
        key.append(view);
        result.append(std::move(key));
    }
    return result;
}

bool CKexDataDir::loadFromFile(KEX::TextView file)
{
    CKexDataItem item;
    if (!KEX::binLoad(file, item) || !item.isDir()) return false;
    swap(*item.getDir());
    return true;
}

bool CKexDataDir::saveToFile(KEX::TextView file) const
{
    KEX::CBinFile target;
    return target.open(file, KT("w")) && target.write(KEX::binEncode(*this)) && target.close();
}

void CKexDataDir::swap(CKexDataDir& other) noexcept
{
    blocks_.swap(other.blocks_);
    index_.swap(other.index_);
    std::swap(used_, other.used_);
    std::swap(removed_, other.removed_);
}

KEX::RbValidate CKexDataDir::setRbValidate(KEX::RbValidate validate)
{
    return std::exchange(theRbValidate, validate);
}

KEX::RbValidate CKexDataDir::rbValidate() { return theRbValidate; }
