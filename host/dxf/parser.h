// SPDX-License-Identifier: LicenseRef-ORVALD
// The structure of a DXF text: sections, tables, records. The parser hands each part to a handler
// in file order and ends with a Fail where the structure does not hold; what the parts mean to one
// another is the handler's business.
#pragma once

#include "drawing/record.h"
#include "tag_builder.h"

namespace orvald::dxf {

/// True for the versions that are read: "AC1009" to "AC1032".
bool isReadVersion(std::string_view version);
/// The version of files that tell none (R12).
inline constexpr std::string_view kOldVersion = "AC1009";
/// From this version on (R2000) records have handles, owners and subclass markers.
inline constexpr std::string_view kFirstMarkedVersion = "AC1015";

enum class Section
{
    tables,
    blocks,
    entities,
    objects
};

class Handler
{
public:
    virtual ~Handler() = default;
    /// A header variable, name with dollar.
    virtual void variable(std::string_view name, const drawing::TagList& value) = 0;
    virtual void classRow(drawing::TagList&& row) = 0;
    /// A record with its handle (0 when it has none), owner, groups and extras. Table heads have
    /// their name as group 2.
    virtual void record(Section section, drawing::Record&& record, std::uint64_t line) = 0;
    /// A section of another kind, whole.
    virtual void rawSection(std::string_view name, std::string&& text) = 0;
    /// Something was mended.
    virtual void warn(std::uint64_t line, std::string text) = 0;
};

class Parser
{
public:
    Parser(LineSource& lines, Handler& handler)
        : in_(lines), handler_(handler), tags_(form_), xdata_(form_)
    {
    }

    /// Reads all up to EOF. Throws Fail.
    void run();
    /// $ACADVER, known once the header has been read.
    const std::string& version() const { return version_; }

private:
    void readSection();
    void readHeader();
    /// Files of simple programs have entities and nothing else: that was allowed in R12.
    void assumeOldVersion();
    /// From the header variable that has just been read.
    void setEncoding();
    void readClasses();
    void readTables();
    void readRecords(Section section);
    void readRaw(std::string_view name);
    /// Reads the record that the present group 0 opens; stands on the next group 0 then.
    void readRecord(Section section, drawing::Family family);
    void readHeadGroup(drawing::Record& record);
    /// In a dimension style of old versions group 5 is the name of an arrow; some programs put
    /// names where handles of text style and arrows belong, too.
    bool namesRecord(const drawing::Record& record) const;
    void readBrace();
    void closeBraces();
    void needDictionaryMarker();
    bool readEntry(drawing::Record& record);
    void need();
    /// The present value in file form, valid until the next group.
    std::string_view plainText();
    void warnSums();

    TagReader in_;
    Handler& handler_;
    FileForm form_;
    TagBuilder tags_, xdata_;
    std::string version_, codePage_, key_, scratch_;
    std::uint64_t keyLine_ = 0;
    // Groups in front of the first subclass marker of the present record.
    enum class Braces
    {
        none,
        extension,
        reactors,
        other
    } braces_ = Braces::none;
    bool assumed_ = false; // the version is not told
    bool head_ = false, hasOwner_ = false, keyOpen_ = false;
};

} // namespace orvald::dxf
