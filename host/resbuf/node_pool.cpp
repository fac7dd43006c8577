// SPDX-License-Identifier: LicenseRef-ORVALD
// Free lists for nodes and short strings; under a sanitizer each piece is an allocation of its own,
// so that a use after the end shows.
#include "node_pool.h"

#include <cstdlib>
#include <cstring>

namespace orvald {
namespace {

#if defined(__SANITIZE_ADDRESS__)
constexpr bool kPooled = false;
#else
constexpr bool kPooled = true;
#endif

constexpr std::size_t kNodesPerBlock = 256;
constexpr std::size_t kShortUnits = 59; // with header and end mark 128 bytes
constexpr std::size_t kStringsPerBlock = 128;

resbuf* freeNodes = nullptr;

/// Stands before the units of every string.
struct StringHead
{
    std::uint64_t pooled;
};
struct ShortString
{
    StringHead head;
    union {
        ACHAR units[kShortUnits + 1];
        ShortString* next;
    };
};
ShortString* freeStrings = nullptr;

// Blocks are kept for the life of the process: the next call needs as much again.
bool refillNodes()
{
    auto* block = static_cast<resbuf*>(std::malloc(kNodesPerBlock * sizeof(resbuf)));
    if (block == nullptr) return false;
    for (std::size_t i = 0; i < kNodesPerBlock; ++i) {
        block[i].rbnext = freeNodes;
        freeNodes = &block[i];
    }
    return true;
}

bool refillStrings()
{
    auto* block = static_cast<ShortString*>(std::malloc(kStringsPerBlock * sizeof(ShortString)));
    if (block == nullptr) return false;
    for (std::size_t i = 0; i < kStringsPerBlock; ++i) {
        block[i].next = freeStrings;
        freeStrings = &block[i];
    }
    return true;
}

} // namespace

resbuf* takeNode()
{
    if constexpr (!kPooled) return static_cast<resbuf*>(std::calloc(1, sizeof(resbuf)));
    if (freeNodes == nullptr && !refillNodes()) return nullptr;
    resbuf* node = freeNodes;
    freeNodes = node->rbnext;
    *node = resbuf{};
    return node;
}

void giveNode(resbuf* node)
{
    if constexpr (!kPooled) {
        std::free(node);
        return;
    }
    node->rbnext = freeNodes;
    freeNodes = node;
}

ACHAR* takeString(std::size_t units)
{
    if (kPooled && units <= kShortUnits) {
        if (freeStrings == nullptr && !refillStrings()) return nullptr;
        ShortString* piece = freeStrings;
        freeStrings = piece->next;
        piece->head.pooled = 1;
        return piece->units;
    }
    auto* head =
        static_cast<StringHead*>(std::malloc(sizeof(StringHead) + (units + 1) * sizeof(ACHAR)));
    if (head == nullptr) return nullptr;
    head->pooled = 0;
    return reinterpret_cast<ACHAR*>(head + 1);
}

void giveString(ACHAR* text)
{
    auto* head = reinterpret_cast<StringHead*>(text) - 1;
    if (head->pooled == 0) {
        std::free(head);
        return;
    }
    auto* piece = reinterpret_cast<ShortString*>(head);
    piece->next = freeStrings;
    freeStrings = piece;
}

} // namespace orvald
