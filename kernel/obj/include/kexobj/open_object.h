// SPDX-License-Identifier: LicenseRef-ORVALD
// OpenObject: an object of a drawing, open for as long as the scope lasts.
#pragma once

#include "hostapi/objects.h"
#include "kex/ename.h"

#include <utility>

namespace KEX {

/// The id of a named object; null when no open drawing has it.
inline AcDbObjectId objectIdOf(const CAdsName& name)
{
    AcDbObjectId id;
    if (!name.isNull()) acdbGetObjectId(id, name.asName());
    return id;
}

template <class T>
class OpenObject
{
public:
    OpenObject() = default;
    explicit OpenObject(AcDbObjectId id, AcDb::OpenMode mode = AcDb::kForRead,
                        bool openErased = false)
        : status_(acdbOpenObject(object_, id, mode, openErased))
    {
    }
    /// Takes an object over that is open already, or null.
    explicit OpenObject(T* opened)
        : object_(opened), status_(opened == nullptr ? Acad::eNullObjectPointer : Acad::eOk)
    {
    }
    OpenObject(OpenObject&& other) noexcept
        : object_(std::exchange(other.object_, nullptr)), status_(other.status_)
    {
    }
    OpenObject& operator=(OpenObject&& other) noexcept
    {
        close();
        object_ = std::exchange(other.object_, nullptr);
        status_ = other.status_;
        return *this;
    }
    ~OpenObject() { close(); }

    explicit operator bool() const { return object_ != nullptr; }
    T* operator->() const { return object_; }
    T& operator*() const { return *object_; }
    T* get() const { return object_; }
    /// Of the opening.
    Acad::ErrorStatus status() const { return status_; }
    void close()
    {
        if (object_ != nullptr) std::exchange(object_, nullptr)->close();
    }

private:
    T* object_ = nullptr;
    Acad::ErrorStatus status_ = Acad::eNullObjectId;
};

} // namespace KEX
