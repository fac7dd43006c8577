// SPDX-License-Identifier: LicenseRef-ORVALD
// Memory for short-lived small objects: fixed places of a few sizes, cut from larger pieces and
// handed out again in the order they came back. Pieces stay until the pool goes.
#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <vector>

namespace orvald::lisp {

class SmallPool
{
public:
    static constexpr std::size_t kLargest = 128;

    /// `size` at most kLargest.
    void* take(std::size_t size)
    {
        Place*& free = free_[classOf(size)];
        if (free == nullptr) refill(classOf(size));
        Place* place = free;
        free = place->next;
        return place;
    }
    /// With the size it was taken with.
    void give(void* memory, std::size_t size)
    {
        auto* place = static_cast<Place*>(memory);
        place->next = free_[classOf(size)];
        free_[classOf(size)] = place;
    }

private:
    struct Place
    {
        Place* next;
    };
    static constexpr std::size_t kStep = 16;
    static constexpr std::size_t kPieceBytes = std::size_t{16} << 10;

    static std::size_t classOf(std::size_t size) { return (size - 1) / kStep; }

    void refill(std::size_t index)
    {
        const std::size_t size = (index + 1) * kStep;
        pieces_.push_back(std::make_unique<std::byte[]>(kPieceBytes));
        std::byte* piece = pieces_.back().get();
        for (std::size_t at = kPieceBytes / size * size; at > 0; at -= size) {
            give(piece + at - size, size);
        }
    }

    std::array<Place*, kLargest / kStep> free_{};
    std::vector<std::unique_ptr<std::byte[]>> pieces_;
};

} // namespace orvald::lisp
