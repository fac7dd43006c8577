// SPDX-License-Identifier: LicenseRef-ORVALD
// Groups as they are read, typed by their codes and packed; the coordinates of a point become one
// group. Values that do not fit their code end the reading.
#pragma once

#include "drawing/tags.h"
#include "tag_reader.h"
#include "text/code_page.h"

namespace orvald::dxf {

/// What a whole file tells its values.
struct FileForm
{
    const text::CodePage* page = nullptr; // null: UTF-8
    // Mended in passing, counted for the warnings.
    std::uint64_t foreignBytes = 0;  // texts with bytes that the encoding does not have
    std::uint64_t strangeBinary = 0; // binary groups that were no hexadecimal, kept as text
    std::uint64_t unknownGroups = 0; // group codes that do not exist, kept as text
    std::uint64_t firstStrange = 0, firstUnknown = 0, firstForeign = 0; // their first lines
};

/// Value of the present group as a handle, 0 allowed.
drawing::Handle readHandle(const TagReader& in);

class TagBuilder
{
public:
    explicit TagBuilder(FileForm& form) : form_(form) {}

    /// Takes the present group.
    void take(const TagReader& in);
    /// Takes the present group as a text, whatever its code.
    void takeText(const TagReader& in);
    /// Takes all groups away from another list.
    void take(TagBuilder& other);
    /// To be called behind the last group; then the list is whole.
    void finish();
    drawing::TagList& list() { return list_; }
    void clear() { list_.clear(); }

private:
    void takeBinary(const TagReader& in);

    FileForm& form_;
    drawing::TagList list_;
    std::string scratch_;
    drawing::Point point_; // coordinates so far of a point
    int pointCode_ = 0;    // its group code while `coordinates_` is not 0
    int coordinates_ = 0;
};

} // namespace orvald::dxf
