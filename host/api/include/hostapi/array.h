// SPDX-License-Identifier: LicenseRef-ORVALD
// The host's growing array, as far as applications meet it in the database classes.
#pragma once

#include <vector>

template <class T>
class AcArray
{
public:
    int length() const { return static_cast<int>(items_.size()); }
    bool isEmpty() const { return items_.empty(); }
    const T& at(int index) const { return items_.at(static_cast<std::size_t>(index)); }
    const T& operator[](int index) const { return items_[static_cast<std::size_t>(index)]; }
    int append(const T& item)
    {
        items_.push_back(item);
        return length() - 1;
    }
    AcArray& setLogicalLength(int length)
    {
        items_.resize(static_cast<std::size_t>(length));
        return *this;
    }
    auto begin() const { return items_.begin(); }
    auto end() const { return items_.end(); }

private:
    std::vector<T> items_;
};
