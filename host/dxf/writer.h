// SPDX-License-Identifier: LicenseRef-ORVALD
// A drawing as DXF text, handed on in pieces. What is written is exactly what the drawing holds:
// nothing is mended here. Erased objects and those that hang nowhere are left out.
#pragma once

#include "drawing/drawing.h"

#include <functional>
#include <string>

namespace orvald::dxf {

/// The record as a file shows it: references to what stays behind are null or left out. `scratch`
/// may hold it. `anyLeft`: something stays behind at all.
const drawing::Record& asWritten(const drawing::Drawing& drawing, drawing::Index index,
                                 bool anyLeft, drawing::Record& scratch);

class Writer
{
public:
    /// `sink` takes the text piece by piece and says whether it could.
    using Sink = std::function<bool(std::string_view)>;

    Writer(const drawing::Drawing& drawing, Sink sink) : drawing_(drawing), sink_(std::move(sink))
    {
    }

    /// Writes all. False when the sink refused or a number is not finite.
    bool run();
    /// Handle of a record with a number that is not finite; 0 when all are.
    drawing::Handle unwritable() const { return unwritable_; }
    /// How many records were written, table heads included.
    std::size_t count() const { return count_; }
    /// True when something stays behind: erased, or hanging nowhere.
    bool anyLeft() const { return anyLeft_; }

private:
    void header();
    void classes();
    void tables();
    void tableHead(drawing::TableId table);
    void blocks();
    void entities();
    void objects();
    void rawSections();
    void children(drawing::Index owner);
    void record(drawing::Index index);
    void reference(const drawing::Record& record);
    void entries(const drawing::Dictionary& dictionary);

    void group(int code);
    void text(int code, std::string_view value);
    void integer(int code, std::int64_t value);
    void handle(int code, drawing::Handle value);
    void real(int code, double value);
    void binary(int code, std::string_view bytes);
    void tag(drawing::Tag tag);
    void list(const drawing::TagList& tags);
    void section(std::string_view name);
    char* room(std::size_t bytes);
    void flush();

    const drawing::Drawing& drawing_;
    Sink sink_;
    std::string buffer_;
    std::size_t used_ = 0;
    std::size_t count_ = 0;
    drawing::Handle unwritable_ = 0, present_ = 0;
    bool anyLeft_ = false, good_ = true;
};

} // namespace orvald::dxf
