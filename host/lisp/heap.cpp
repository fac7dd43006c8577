// SPDX-License-Identifier: LicenseRef-ORVALD
// Cells, objects, marking and freeing. Nothing here recurses: the pending part of a list that is
// being marked stands on a stack of its own.
#include "heap.h"

#include "lambda.h"

#include <algorithm>
#include <bit>
#include <new>

namespace orvald::lisp {

namespace {

constexpr std::size_t kBlockBytes = std::size_t{1} << 18;
constexpr std::size_t kCells = kBlockBytes / sizeof(Cons);
constexpr std::size_t kWords = kCells / 64;

// A collection waits for this much new memory, or for as much as was alive after the last one.
constexpr std::size_t kLeastThreshold = std::size_t{8} << 20;

// Strings shorter than this are copied when they are extended; a buffer would cost more.
constexpr std::size_t kLeastBuffered = 32;

constexpr std::size_t kLongestString = std::size_t{1} << 30;

} // namespace

// The first cells of a block hold its marks, so a cell's mark is found from its address alone.
class CellBlock
{
public:
    static CellBlock* make()
    {
        void* memory = ::operator new (kBlockBytes, std::align_val_t{kBlockBytes});
        auto* block = new (memory) CellBlock();
        block->clear();
        return block;
    }
    static void destroy(CellBlock* block)
    {
        ::operator delete (block, std::align_val_t{kBlockBytes});
    }
    static CellBlock* of(const Cons* cell)
    {
        return reinterpret_cast<CellBlock*>(reinterpret_cast<std::uintptr_t>(cell) &
                                            ~std::uintptr_t{kBlockBytes - 1});
    }
    void clear()
    {
        std::fill(std::begin(marks_), std::end(marks_), std::uint64_t{0});
        for (std::size_t i = 0; i < kReserved; ++i) set(i);
    }
    void fill() { std::fill(std::begin(marks_), std::end(marks_), ~std::uint64_t{0}); }
    bool isEmpty() const
    {
        return std::all_of(marks_ + kReserved / 64, marks_ + kWords,
                           [](std::uint64_t word) { return word == 0; });
    }
    std::size_t indexOf(const Cons* cell) const
    {
        return static_cast<std::size_t>(cell - reinterpret_cast<const Cons*>(this));
    }
    Cons* cell(std::size_t index) { return reinterpret_cast<Cons*>(this) + index; }
    bool test(std::size_t index) const { return (marks_[index / 64] >> (index % 64) & 1) != 0; }
    void set(std::size_t index) { marks_[index / 64] |= std::uint64_t{1} << (index % 64); }
    /// First index from `from` on whose mark is `wanted`; kCells when there is none.
    std::size_t find(std::size_t from, bool wanted) const
    {
        std::size_t word = from / 64;
        if (word >= kWords) return kCells;
        const std::uint64_t flip = wanted ? 0 : ~std::uint64_t{0};
        std::uint64_t bits = (marks_[word] ^ flip) & (~std::uint64_t{0} << (from % 64));
        while (bits == 0) {
            if (++word == kWords) return kCells;
            bits = marks_[word] ^ flip;
        }
        return word * 64 + static_cast<std::size_t>(std::countr_zero(bits));
    }

private:
    static constexpr std::size_t kReserved = kWords * sizeof(std::uint64_t) / sizeof(Cons);
    static_assert(kReserved % 64 == 0, "isEmpty skips the words of the reserved cells");
    std::uint64_t marks_[kWords];
};

Heap::Heap(std::size_t limit) : limit_(limit), threshold_(std::min(kLeastThreshold, limit / 2)) {}

Heap::~Heap()
{
    for (Object* object : objects_) destroy(object);
    for (Object* object : permanent_) destroy(object);
    for (CellBlock* block : blocks_) CellBlock::destroy(block);
}

// -- allocation

void Heap::charge(std::size_t size)
{
    objectBytes_ += size;
    bytesSince_ += size;
    if (wantsCollection() && countdown_ != nullptr) *countdown_ = 0;
}

void Heap::requireRoom(std::size_t size) const
{
    if (bytes() + size > limit_ + limit_ / 4) throw HeapExhausted{};
}

void Heap::nextRun()
{
    for (; blockIndex_ < blocks_.size(); ++blockIndex_, cellIndex_ = 0) {
        CellBlock* block = blocks_[blockIndex_];
        const std::size_t begin = block->find(cellIndex_, false);
        if (begin == kCells) continue;
        cellIndex_ = block->find(begin, true);
        next_ = block->cell(begin);
        runEnd_ = block->cell(cellIndex_);
        break;
    }
    if (blockIndex_ == blocks_.size()) {
        requireRoom(kBlockBytes);
        blocks_.reserve(blocks_.size() + 1);
        CellBlock* block = CellBlock::make();
        blocks_.push_back(block);
        const std::size_t begin = block->find(0, false);
        next_ = block->cell(begin);
        runEnd_ = block->cell(kCells);
        cellIndex_ = kCells;
    }
    bytesSince_ += static_cast<std::size_t>(runEnd_ - next_) * sizeof(Cons);
    if (wantsCollection() && countdown_ != nullptr) *countdown_ = 0;
}

void Heap::adopt(Object* object, std::size_t size)
{
    try {
        objects_.push_back(object);
    } catch (...) {
        objectBytes_ += size; // destroy takes it off again
        destroy(object);
        throw;
    }
    charge(size);
}

void* Heap::takeString(std::size_t size)
{
    return size <= SmallPool::kLargest ? smallStrings_.take(size) : ::operator new(size);
}

void Heap::giveString(String* string, std::size_t size)
{
    string->~String();
    if (size <= SmallPool::kLargest) {
        smallStrings_.give(string, size);
    } else {
        ::operator delete(string);
    }
}

String* Heap::newString(std::size_t length, char16_t*& units)
{
    if (length > kLongestString) throw HeapExhausted{};
    const std::size_t size = sizeof(String) + length * sizeof(char16_t);
    if (size > kBlockBytes) requireRoom(size);
    auto* string = new (takeString(size)) String();
    units = reinterpret_cast<char16_t*>(string + 1);
    string->length = static_cast<std::uint32_t>(length);
    string->units = units;
    adopt(string, size);
    return string;
}

Value Heap::makeString(std::u16string_view text)
{
    char16_t* units = nullptr;
    String* string = newString(text.size(), units);
    std::copy(text.begin(), text.end(), units);
    return Value::object(string);
}

Value Heap::makeAscii(std::string_view text)
{
    char16_t* units = nullptr;
    String* string = newString(text.size(), units);
    std::copy(text.begin(), text.end(), units);
    return Value::object(string);
}

String* Heap::newSharedString(TextBuffer* buffer, std::size_t length)
{
    auto* string = new (takeString(sizeof(String))) String();
    string->length = static_cast<std::uint32_t>(length);
    string->units = buffer->units();
    string->buffer = buffer;
    ++buffer->users;
    adopt(string, sizeof(String));
    return string;
}

Value Heap::concatenate(const Value* strings, int count)
{
    const auto& first = *static_cast<const String*>(strings[0].asObject());
    std::size_t length = 0;
    for (int i = 0; i < count; ++i) length += stringOf(strings[i]).size();
    const auto appendRest = [&](char16_t* to) {
        for (int i = 1; i < count; ++i) {
            const std::u16string_view part = stringOf(strings[i]);
            to = std::copy(part.begin(), part.end(), to);
        }
    };
    TextBuffer* buffer = first.buffer;
    if (buffer != nullptr && buffer->used == first.length && length <= buffer->capacity) {
        String* string = newSharedString(buffer, length);
        appendRest(buffer->units() + first.length);
        buffer->used = static_cast<std::uint32_t>(length);
        return Value::object(string);
    }
    if (length < kLeastBuffered || first.length < length - first.length) {
        char16_t* units = nullptr;
        String* string = newString(length, units);
        appendRest(std::copy(first.units, first.units + first.length, units));
        return Value::object(string);
    }
    if (length > kLongestString) throw HeapExhausted{};
    const std::size_t capacity = length + length / 2 + kLeastBuffered;
    const std::size_t size = sizeof(TextBuffer) + capacity * sizeof(char16_t);
    requireRoom(size);
    buffer = new (::operator new(size)) TextBuffer();
    buffer->capacity = static_cast<std::uint32_t>(capacity);
    buffer->used = static_cast<std::uint32_t>(length);
    appendRest(std::copy(first.units, first.units + first.length, buffer->units()));
    charge(size);
    return Value::object(newSharedString(buffer, length));
}

// -- collection

void Heap::beginCollection()
{
    for (CellBlock* block : blocks_) block->clear();
}

bool Heap::isMarked(const Cons* cell)
{
    const CellBlock* block = CellBlock::of(cell);
    return block->test(block->indexOf(cell));
}

void Heap::markHeap(Value value)
{
    markStack_.push_back(value);
    drain();
}

void Heap::drain()
{
    while (!markStack_.empty()) {
        Value value = markStack_.back();
        markStack_.pop_back();
        while (value.isCons()) {
            Cons* cell = value.asCons();
            CellBlock* block = CellBlock::of(cell);
            const std::size_t index = block->indexOf(cell);
            if (block->test(index)) break;
            block->set(index);
            const Value rest = cell->cdr;
            if (cell->car.isCons() || cell->car.isObject()) {
                if (rest.isCons() || rest.isObject()) markStack_.push_back(rest);
                value = cell->car;
            } else {
                value = rest;
            }
        }
        if (value.isObject() && !value.asObject()->marked) {
            value.asObject()->marked = true;
            markChildren(value.asObject());
        }
    }
}

void Heap::markObject(Object* object)
{
    if (object == nullptr || object->marked) return;
    object->marked = true;
    markChildren(object);
    drain();
}

void Heap::markChildren(Object* object)
{
    if (object->kind != Kind::usubr) return;
    const auto* lambda = static_cast<const Lambda*>(object);
    markStack_.push_back(lambda->parameterList);
    markStack_.push_back(lambda->bodyForms);
    markStack_.insert(markStack_.end(), lambda->constants.begin(), lambda->constants.end());
}

void Heap::finishCollection()
{
    std::size_t kept = 0;
    for (Object* object : objects_) {
        if (object->marked) {
            object->marked = false;
            objects_[kept++] = object;
        } else {
            destroy(object);
        }
    }
    objects_.resize(kept);
    for (Object* object : permanent_) object->marked = false;

    // Half as many empty blocks as used ones stay for the next round; the others go back.
    const auto used = std::stable_partition(blocks_.begin(), blocks_.end(),
                                            [](CellBlock* block) { return !block->isEmpty(); });
    const auto usedCount = static_cast<std::size_t>(used - blocks_.begin());
    const std::size_t keep = std::min(blocks_.size(), usedCount + usedCount / 2 + 32);
    for (std::size_t i = keep; i < blocks_.size(); ++i) CellBlock::destroy(blocks_[i]);
    blocks_.resize(keep);

    startOver();
    blockIndex_ = cellIndex_ = 0;
    const std::size_t alive = objectBytes_ + usedCount * kBlockBytes;
    threshold_ = std::max(kLeastThreshold, alive);
    threshold_ = std::min(threshold_, std::max(limit_ / 8, (limit_ - std::min(limit_, alive)) / 2));
}

void Heap::abandonCollection()
{
    markStack_.clear();
    for (CellBlock* block : blocks_) block->fill();
    for (Object* object : objects_) object->marked = false;
    for (Object* object : permanent_) object->marked = false;
    startOver();
    blockIndex_ = blocks_.size();
    threshold_ = std::max(threshold_, std::min(kLeastThreshold, limit_ / 2));
}

void Heap::startOver()
{
    allocatedBefore_ = allocated();
    ++collections_;
    next_ = runEnd_ = nullptr;
    bytesSince_ = 0;
}

std::size_t Heap::bytes() const { return objectBytes_ + blocks_.size() * kBlockBytes; }

void Heap::destroy(Object* object)
{
    switch (object->kind) {
    case Kind::string: {
        auto* string = static_cast<String*>(object);
        std::size_t size = sizeof(String);
        if (TextBuffer* buffer = string->buffer; buffer == nullptr) {
            size += string->length * sizeof(char16_t);
        } else if (--buffer->users == 0) {
            objectBytes_ -= sizeof(TextBuffer) + buffer->capacity * sizeof(char16_t);
            ::operator delete(buffer);
        }
        objectBytes_ -= size;
        giveString(string, size);
        break;
    }
    case Kind::usubr: {
        auto* lambda = static_cast<Lambda*>(object);
        objectBytes_ -= sizeof(Lambda) + lambda->chargedBytes;
        delete lambda;
        break;
    }
    case Kind::pickset: {
        auto* pickset = static_cast<Pickset*>(object);
        objectBytes_ -= sizeof(Pickset);
        if (pickset->host != nullptr) pickset->host->releasePickset(pickset->set);
        delete pickset;
        break;
    }
    case Kind::file: {
        auto* file = static_cast<File*>(object);
        objectBytes_ -= sizeof(File);
        if (file->stream != nullptr) std::fclose(file->stream);
        delete file;
        break;
    }
    case Kind::vlaObject:
        objectBytes_ -= sizeof(VlaObject);
        delete static_cast<VlaObject*>(object);
        break;
    case Kind::caughtError:
        objectBytes_ -= sizeof(CaughtError);
        delete static_cast<CaughtError*>(object);
        break;
    case Kind::subr: delete static_cast<Subr*>(object); break;
    case Kind::exrxsubr: delete static_cast<External*>(object); break;
    default: break;
    }
}

} // namespace orvald::lisp
