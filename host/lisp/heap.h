// SPDX-License-Identifier: LicenseRef-ORVALD
// Memory of one world: list cells in aligned blocks with their marks aside, other objects one by
// one. Mark and sweep; nothing moves. Cells are never swept: the marks of the last collection tell
// the free runs, and allocation walks along them.
//
// Invariant: between collections a cell is free when its mark is clear and the allocation has not
// passed it yet.
#pragma once

#include "objects.h"
#include "small_pool.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <new>
#include <vector>

namespace orvald::lisp {

class CellBlock;
struct Lambda;

/// The ceiling of a world's memory; becomes a LISP error as any failed allocation does.
class HeapExhausted : public std::bad_alloc
{
};

class Heap
{
public:
    explicit Heap(std::size_t limit);
    ~Heap();
    Heap(const Heap&) = delete;
    Heap& operator=(const Heap&) = delete;

    Cons* makeCons(Value first, Value rest)
    {
        if (next_ == runEnd_) [[unlikely]]
            nextRun();
        Cons* cell = next_++;
        cell->car = first;
        cell->cdr = rest;
        return cell;
    }

    Value makeString(std::u16string_view text);
    /// Of characters that are ASCII, all of them.
    Value makeAscii(std::string_view text);
    /// At least one string, joined; in place where the first ends at the used end of its buffer.
    Value concatenate(const Value* strings, int count);

    template <class T>
    T* make()
    {
        T* object = new T();
        adopt(object, sizeof(T));
        return object;
    }
    /// An object that lives as long as the heap.
    template <class T, class... Arguments>
    T* makePermanent(Arguments&&... arguments)
    {
        T* object = new T(std::forward<Arguments>(arguments)...);
        permanent_.push_back(object);
        return object;
    }

    /// True when enough has been allocated since the last collection to be worth another.
    bool wantsCollection() const { return bytesSince_ >= threshold_; }
    void expediteCollection() { threshold_ = std::min(threshold_, bytesSince_); }
    /// `countdown` becomes 0 when wantsCollection does, so that the next safe point looks.
    void setCollectionRequest(int* countdown) { countdown_ = countdown; }

    // -- collection, driven by the owner of the roots: begin, mark every root, finish
    void beginCollection();
    void mark(Value value)
    {
        if (value.isHeap() && !value.isSymbol()) markHeap(value);
    }
    void markObject(Object* object);
    static bool isMarked(const Cons* cell);
    /// Frees what was not marked.
    void finishCollection();
    /// Ends a collection that could not be carried through: everything counts as alive.
    void abandonCollection();

    /// True when the ceiling is passed, counting what the world holds `elsewhere`.
    bool overLimit(std::size_t elsewhere) const { return bytes() + elsewhere > limit_; }
    /// Throws when `size` more would pass the ceiling by far: the last barrier between two safe
    /// points.
    void requireRoom(std::size_t size) const;
    std::size_t bytes() const;
    /// Bytes taken since the heap was made; the collections in that time.
    std::uint64_t allocated() const
    {
        return allocatedBefore_ + bytesSince_ -
               static_cast<std::size_t>(runEnd_ - next_) * sizeof(Cons);
    }
    std::uint64_t collections() const { return collections_; }
    /// Accounts for memory that an object took or gave back after it was made.
    void charge(std::size_t size);
    void release(std::size_t size) { objectBytes_ -= size; }

private:
    void nextRun();
    void startOver(); // counting and walking along the free runs, after a collection
    void adopt(Object* object, std::size_t size);
    void markHeap(Value value);
    void markChildren(Object* object);
    void drain();
    void destroy(Object* object);
    // A string of `length` units for the caller to fill.
    String* newString(std::size_t length, char16_t*& units);
    String* newSharedString(TextBuffer* buffer, std::size_t length);
    void* takeString(std::size_t size);
    void giveString(String* string, std::size_t size);

    Cons* next_ = nullptr;
    Cons* runEnd_ = nullptr;
    std::size_t blockIndex_ = 0; // where the search for free runs goes on
    std::size_t cellIndex_ = 0;
    std::vector<CellBlock*> blocks_; // in order of use
    std::vector<Object*> objects_;
    std::vector<Object*> permanent_;
    SmallPool smallStrings_;
    std::vector<Value> markStack_;
    std::size_t limit_;
    std::size_t objectBytes_ = 0;
    std::size_t bytesSince_ = 0;
    std::uint64_t allocatedBefore_ = 0; // up to the last collection
    std::uint64_t collections_ = 0;
    std::size_t threshold_;
    int* countdown_ = nullptr;
};

} // namespace orvald::lisp
