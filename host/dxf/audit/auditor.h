// SPDX-License-Identifier: LicenseRef-ORVALD
// The rules of an audit. The auditor cuts a file into records and leads each to the rules of its
// place; rules that need one record alone stand in entity_rules.cpp and object_rules.cpp, those
// that need the whole file in index.h.
#pragma once

#include "audit/index.h"
#include "tag_reader.h"
#include "text/code_page.h"

#include <map>

namespace orvald::dxf {

class Auditor
{
public:
    Auditor(LineSource& lines, Audit& audit, const TellProblem& tell)
        : in_(lines), report_(audit, tell), index_(report_), version_(audit.version)
    {
    }

    void run();

private:
    using Handle = drawing::Handle;
    using TableId = drawing::TableId;

    // What is wrong with the present record.
    void problem(bool isError, std::string_view kind, std::string text);
    void error(std::string_view kind, std::string text) { problem(true, kind, std::move(text)); }
    void warn(std::string_view kind, std::string text) { problem(false, kind, std::move(text)); }
    /// An error of the structure, with the type of the present record.
    void misplaced(std::string_view text);

    // auditor.cpp: sections, tables, blocks.
    /// Notes version and code page when the present group tells them.
    void watchVersion();
    /// Takes the present group into the record, its text in UTF-8.
    void addGroup();
    void endRecord();
    void beginSection();
    void endSection();
    void checkHeader();
    void checkPoints();
    /// Braces and subclass markers.
    void checkForm();
    void takeClass();
    void takeTablePart();
    void takeTableHead();
    void takeTableRecord();
    void takeBlockPart();
    void takeEntity();
    void takeObject();
    void checkClass();
    void finish();
    void finishBlocks();

    // entity_rules.cpp
    void checkSequence();
    void checkEntity();
    void checkLooks();
    void checkNames();
    void checkXdata();
    // count_rules.cpp
    void checkCounts();
    void checkVertexCount();
    void checkHatch();
    // object_rules.cpp
    void checkTableName();
    void checkLayer();
    void checkDictionary(drawing::Index index);
    void checkXrecord();
    void checkLayout(drawing::Index index);

    struct Block
    {
        std::string name;                 // as the file spells it
        std::vector<std::string> inserts; // keys of the blocks that it shows
    };

    TagReader in_;
    Report report_;
    AuditIndex index_;
    std::string& version_;
    std::string codePage_;
    const text::CodePage* page_ = nullptr; // null: UTF-8
    std::string scratch_;
    bool marked_ = true; // of a version with subclass markers, owners and handles everywhere
    AuditRecord record_;

    std::set<std::string, std::less<>> sections_; // so far
    std::size_t furthest_ = 0;                    // place in the wanted order
    std::string section_;                         // "" between sections
    bool inTable_ = false;
    std::string table_; // name of the present table
    Handle seed_ = 0;
    std::set<std::string, std::less<>> classes_;      // record names in capitals
    std::array<bool, drawing::kTableCount> tables_{}; // those that are there
    std::string variable_;                            // header variable of the present group

    std::map<std::string, Block> blocks_;               // by their keys
    std::map<std::string, std::uint64_t> blockRecords_; // keys, and the handles of the records
    Block* openBlock_ = nullptr;
    std::string sequence_;   // complex entity that waits for parts: "POLYLINE 2F"
    std::string_view parts_; // type of the parts
};

} // namespace orvald::dxf
