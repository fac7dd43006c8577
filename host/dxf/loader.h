// SPDX-License-Identifier: LicenseRef-ORVALD
// Building a drawing from the parts of a DXF text. Where a part hangs is decided while reading;
// what is missing or does not fit is mended at the end, when all handles are known.
#pragma once

#include "parser.h"

namespace orvald::dxf {

/// Warnings with a limit, so that a broken file does not bury its reader.
class Warnings
{
public:
    void add(std::uint64_t line, std::string text);
    /// The list, with a last line on what it does not hold.
    std::vector<Warning> take();

private:
    std::vector<Warning> list_;
    std::size_t more_ = 0;
};

class Loader : public Handler
{
public:
    Loader(drawing::Drawing& drawing, Warnings& warnings) : drawing_(drawing), warnings_(warnings)
    {
    }

    void variable(std::string_view name, const drawing::TagList& value) override;
    void classRow(drawing::TagList&& row) override { drawing_.classes.push_back(std::move(row)); }
    void record(Section section, drawing::Record&& record, std::uint64_t line) override;
    void rawSection(std::string_view name, std::string&& text) override;
    void warn(std::uint64_t line, std::string text) override
    {
        warnings_.add(line, std::move(text));
    }

    /// After the last part: closes what is open and gives the missing handles.
    void finish();
    /// The file is of a version in which handles, owners and markers may be missing.
    bool isOld() const { return old_; }

private:
    using Index = drawing::Index;

    /// Gives an entity without a layer one, and takes a normal of no length away, which means
    /// nothing and is refused by other programs.
    void mendEntity(drawing::Record& record);
    Index takeIn(drawing::Record&& record, std::uint64_t line);
    void tableHead(Index index, std::uint64_t line);
    void tableRecord(Index index, std::uint64_t line);
    void blockBegin(Index index, std::uint64_t line);
    void blockEnd(Index index, std::uint64_t line);
    void entity(Index block, Index index, std::uint64_t line);
    bool hangAsPart(Index index, std::uint64_t line);
    void closeParts(std::uint64_t line);
    void closeBlock(std::uint64_t line);
    Index spaceOf(Index entity, std::uint64_t line);
    Index needBlockRecord(std::string_view name, std::uint64_t line);
    void setOwner(Index index, Index owner, std::uint64_t line);

    /// Warns of what old versions do not have anyway.
    void warnUnlessOld(std::uint64_t line, std::string text);
    /// What R12 names otherwise: blocks of the spaces.
    void bringUpName(drawing::Record& record) const;

    drawing::Drawing& drawing_;
    Warnings& warnings_;
    bool old_ = false;
    std::size_t noNormals_ = 0, noLayers_ = 0; // entities that had none
    std::vector<Index> unnamed_;
    std::unordered_map<std::string, int> renamed_; // keys of table records, last number behind them
    Section section_ = Section::tables;
    Index openBlock_ = drawing::kNone;  // block record between BLOCK and ENDBLK
    Index openEntity_ = drawing::kNone; // complex entity that waits for parts
    Index lastEntity_ = drawing::kNone; // for attributes whose insert does not announce them
    // The last owner in section ENTITIES and the space that it is.
    drawing::Handle lastOwner_ = 0;
    Index lastSpace_ = drawing::kNone;
};

} // namespace orvald::dxf
