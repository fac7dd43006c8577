// SPDX-License-Identifier: LicenseRef-ORVALD
// CKexDataDir: the children of a directory item, in the order in which they were first set. A child
// is found in constant time however many there are; its spelling is that of the first setting.
//
// A child never moves while no other child of its directory is removed: a pointer to it stays good.
#pragma once

#include "kexdata/data_item.h"
#include "kexdata/entity_check.h"

#include <iterator>

class KEX_DATA_API CKexDataDir
{
    static constexpr std::uint32_t kInteger = 0;
    static constexpr std::uint32_t kRemoved = 0xFFFFFFFF;

    struct Entry
    {
        std::uint32_t name = kRemoved; // of the key pool, or one of the two above
        std::int32_t number = 0;
        CKexDataItem item;
    };

public:
    /// One child, while the directory is walked.
    template <class Item>
    struct ChildOf
    {
        KEX::DataKeyView key;
        Item& item;
    };
    template <class Dir, class Item>
    class IteratorOf
    {
    public:
        IteratorOf(Dir* dir, std::uint32_t place) : dir_(dir), place_(place) { skipRemoved(); }
        ChildOf<Item> operator*() const
        {
            auto& entry = dir_->entry(place_);
            return {dir_->keyOf(entry), entry.item};
        }
        IteratorOf& operator++()
        {
            ++place_;
            skipRemoved();
            return *this;
        }
        bool operator==(const IteratorOf& other) const { return place_ == other.place_; }

    private:
        void skipRemoved()
        {
            while (place_ < dir_->used_ && dir_->isRemoved(place_)) ++place_;
        }
        Dir* dir_;
        std::uint32_t place_;
    };
    using Iterator = IteratorOf<CKexDataDir, CKexDataItem>;
    using ConstIterator = IteratorOf<const CKexDataDir, const CKexDataItem>;

    CKexDataDir();
    CKexDataDir(const CKexDataDir&) = delete;
    CKexDataDir& operator=(const CKexDataDir&) = delete;
    ~CKexDataDir();

    bool isEmpty() const { return used_ == removed_; }
    int length() const { return static_cast<int>(used_ - removed_); }
    void clear();
    void swap(CKexDataDir& other) noexcept;

    // One level.
    CKexDataItem* child(const KEX::DataKeyView& key)
    {
        return const_cast<CKexDataItem*>(std::as_const(*this).child(key));
    }
    const CKexDataItem* child(const KEX::DataKeyView& key) const;
    /// The child with this key, a new nil at the end when it is absent.
    CKexDataItem& makeChild(const KEX::DataKeyView& key);
    bool removeChild(const KEX::DataKeyView& key);

    // By path; a path is never empty here. As the operations of CKexDataItem.
    const CKexDataItem* get(const CKexDataKey& key) const;
    CKexDataItem* get(const CKexDataKey& key)
    {
        return const_cast<CKexDataItem*>(std::as_const(*this).get(key));
    }
    /// Takes the item over; null removes. With `make` the directories on the way are made. False,
    /// and the item gone, when one is missing or a value stands on the way.
    bool set(const CKexDataKey& key, std::unique_ptr<CKexDataItem> item, bool make = true);
    bool set(const CKexDataKey& key, CKexDataItem item, bool make = true);
    bool remove(const CKexDataKey& key);

    /// Keys of the children, each of one component: in stored order, or integers ascending and then
    /// texts by capitals.
    CKexArrayTempl<CKexDataKey> keys(bool sorted = false) const;

    // No child may be added or removed during a walk.
    Iterator begin() { return Iterator(this, 0); }
    Iterator end() { return Iterator(this, used_); }
    ConstIterator begin() const { return ConstIterator(this, 0); }
    ConstIterator end() const { return ConstIterator(this, used_); }

    /// The children's LISP form without a list around them: (key . atom), (key value ...),
    /// (key (subkey . value) ...).
    KEX::CSmartResbuf mkLisp() const;

    /// Reads a data file in place of all children. False, and no change, when it cannot be read or
    /// is damaged.
    bool loadFromFile(KEX::TextView file);
    /// Saves a data file as a whole.
    bool saveToFile(KEX::TextView file) const;

    /// Sets what mkLisp passes entity names through; gives the former one. Null: names stay as
    /// stored.
    static KEX::RbValidate setRbValidate(KEX::RbValidate validate);
    static KEX::RbValidate rbValidate();

private:
    friend class CKexDataItem;
    template <class Dir, class Item>
    friend class IteratorOf;

    // Entries stand in blocks, each as large as all before it, so that none ever moves.
    static constexpr std::uint32_t kFirstBlock = 4;
    static std::uint32_t blockOf(std::uint32_t place);
    static std::uint32_t blockStart(std::uint32_t block);
    static std::uint32_t blockSize(std::uint32_t block);
    Entry& entry(std::uint32_t place) const;
    bool isRemoved(std::uint32_t place) const { return entry(place).name == kRemoved; }
    static KEX::DataKeyView keyOf(const Entry& entry);
    static std::uint32_t hashOf(const Entry& entry);

    std::uint32_t findPlace(const KEX::DataKeyView& key, std::uint32_t hash) const;
    void enterInIndex(std::uint32_t place);
    void rebuildIndex();
    void closeGaps();
    /// Takes all entries out; directories among them are hung before `doomed`.
    void dropEntries(CKexDataDir*& doomed);

    std::vector<std::unique_ptr<Entry[]>> blocks_;
    std::vector<std::uint32_t> index_; // open addressing: place + 1, 0 is free; empty while few
    std::uint32_t used_ = 0;           // entries in use, removed ones included
    std::uint32_t removed_ = 0;
    CKexDataDir* nextDoomed_ = nullptr; // links directories while a tree is taken down
};
