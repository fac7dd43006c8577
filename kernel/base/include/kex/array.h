// SPDX-License-Identifier: LicenseRef-ORVALD
// CKexArrayTempl: a growing array. Positions count from 0; a position outside is a broken promise.
#pragma once

#include "kex/promise.h"

#include <cstddef>
#include <initializer_list>
#include <utility>
#include <vector>

template <class T>
class CKexArrayTempl
{
public:
    using value_type = T;

    CKexArrayTempl() = default;
    CKexArrayTempl(std::initializer_list<T> items) : items_(items) {}

    int length() const { return static_cast<int>(items_.size()); }
    bool isEmpty() const { return items_.empty(); }
    void clear() { items_.clear(); }
    void reserve(int count)
    {
        if (count > 0) items_.reserve(static_cast<std::size_t>(count));
    }

    /// The items in a row.
    const T* data() const { return items_.data(); }
    T& operator[](int position) { return items_[checked(position)]; }
    const T& operator[](int position) const { return items_[checked(position)]; }
    T& first() { return (*this)[0]; }
    const T& first() const { return (*this)[0]; }
    T& last() { return (*this)[length() - 1]; }
    const T& last() const { return (*this)[length() - 1]; }

    void append(const T& item) { items_.push_back(item); }
    void append(T&& item) { items_.push_back(std::move(item)); }
    /// Copies of `count` items of somebody else.
    void append(const T* items, std::size_t count)
    {
        items_.insert(items_.end(), items, items + count);
    }
    /// `other` may be this array.
    void append(const CKexArrayTempl& other)
    {
        const std::size_t count = other.items_.size();
        items_.reserve(items_.size() + count);
        for (std::size_t i = 0; i < count; ++i) items_.push_back(other.items_[i]);
    }
    /// `position` from 0 to length().
    void insertAt(int position, T item)
    {
        KEX_ASSERT(position >= 0 && position <= length(), "position in the array or at its end");
        items_.insert(items_.begin() + position, std::move(item));
    }
    void removeAt(int position)
    {
        items_.erase(items_.begin() + static_cast<int>(checked(position)));
    }
    void removeLast() { removeAt(length() - 1); }
    /// Position of the first equal item, -1 when there is none.
    int find(const T& item) const
    {
        for (std::size_t i = 0; i < items_.size(); ++i) {
            if (items_[i] == item) return static_cast<int>(i);
        }
        return -1;
    }

    auto begin() { return items_.begin(); }
    auto end() { return items_.end(); }
    auto begin() const { return items_.begin(); }
    auto end() const { return items_.end(); }

    friend bool operator==(const CKexArrayTempl&, const CKexArrayTempl&) = default;

private:
    std::size_t checked(int position) const
    {
        const auto index = static_cast<std::size_t>(position);
        KEX_ASSERT(index < items_.size(), "position inside the array");
        return index;
    }

    std::vector<T> items_;
};
