// SPDX-License-Identifier: LicenseRef-ORVALD
// Sections, tables and records of a DXF text.
#include "parser.h"

#include "number_in.h"
#include "text_in.h"

#include <algorithm>

namespace orvald::dxf {

using drawing::Family;
using drawing::Kind;
using drawing::Record;

namespace {

/// Versions that are read, in ascending order of their names.
constexpr std::string_view kVersions[] = {"AC1006", "AC1009", "AC1012", "AC1014", "AC1015",
                                          "AC1018", "AC1021", "AC1024", "AC1027", "AC1032"};

} // namespace

bool isReadVersion(std::string_view version)
{
    return std::find(std::begin(kVersions), std::end(kVersions), version) != std::end(kVersions);
}

void Parser::need()
{
    if (!in_.next()) in_.fail("the file ends too early");
}

std::string_view Parser::plainText()
{
    bool foreign = false; // told for the groups of records only
    return readText(in_.value(), form_.page, scratch_, foreign);
}

void Parser::run()
{
    if (!in_.next()) in_.fail("the file is empty");
    if (in_.hasMark()) handler_.warn(1, "a byte order mark is left out");
    while (!in_.is(0, "EOF")) {
        if (!in_.is(0, "SECTION")) in_.fail("a section must begin here");
        need();
        if (in_.code() != 2) in_.fail("the section has no name");
        readSection();
        need();
    }
    if (version_.empty()) assumeOldVersion();
    std::uint64_t line = 0;
    if (in_.linesBehind(line) != 0)
        handler_.warn(line, "text after the end of the drawing is left out");
    warnSums();
}

void Parser::warnSums()
{
    const auto tell = [this](std::uint64_t count, std::uint64_t first, std::string_view what) {
        if (count != 0)
            handler_.warn(first, std::to_string(count) + (count == 1 ? " value " : " values ") +
                                     std::string(what));
    };
    tell(form_.foreignBytes, form_.firstForeign,
         form_.page == nullptr ? "not in UTF-8, taken as ANSI 1252"
                               : "with bytes that the file's code page does not have");
    tell(form_.strangeBinary, form_.firstStrange, "of binary groups not hexadecimal, kept as text");
    tell(form_.unknownGroups, form_.firstUnknown, "of group codes that do not exist, kept as text");
}

void Parser::readSection()
{
    const std::string name(plainText());
    if (name == "HEADER") return readHeader();
    if (version_.empty()) assumeOldVersion();
    if (name == "CLASSES") return readClasses();
    if (name == "TABLES") return readTables();
    if (name == "BLOCKS") return readRecords(Section::blocks);
    if (name == "ENTITIES") return readRecords(Section::entities);
    if (name == "OBJECTS") return readRecords(Section::objects);
    readRaw(name);
}

void Parser::assumeOldVersion()
{
    version_ = kOldVersion;
    assumed_ = true;
    handler_.warn(in_.line(), "no header tells the version: read as R12");
    drawing::TagList value;
    value.addText(1, version_);
    handler_.variable("$ACADVER", value);
}

void Parser::readHeader()
{
    if (assumed_) in_.fail("section HEADER stands behind others");
    std::string name;
    const auto flush = [&] {
        tags_.finish();
        if (!name.empty()) handler_.variable(name, tags_.list());
        tags_.clear();
    };
    for (need(); in_.code() != 0; need()) {
        if (in_.code() == 9) {
            flush();
            name = plainText();
            continue;
        }
        if (name.empty()) in_.fail("a value without a header variable");
        tags_.take(in_);
        if (name == "$ACADVER") {
            version_ = in_.value();
            if (!isReadVersion(version_))
                in_.fail("version " + quoted(version_) + " is not read (AC1006 to AC1032 are)");
        }
        // The encoding holds from here on: the variables in front of it are plain ASCII.
        if (name == "$ACADVER" || name == "$DWGCODEPAGE") setEncoding();
    }
    flush();
    if (!in_.is(0, "ENDSEC")) in_.fail("section HEADER has no ENDSEC");
}

void Parser::setEncoding()
{
    if (in_.code() == 3) codePage_ = in_.value();
    bool known = false;
    form_.page = pageOf(version_, codePage_, known);
    if (!known)
        handler_.warn(in_.line() + 1,
                      "code page " + quoted(codePage_) + " is unknown: ANSI_1252 is taken");
}

void Parser::readClasses()
{
    need();
    while (in_.is(0, "CLASS")) {
        tags_.clear();
        for (need(); in_.code() != 0; need()) tags_.take(in_);
        tags_.finish();
        handler_.classRow(drawing::TagList(tags_.list()));
    }
    if (!in_.is(0, "ENDSEC")) in_.fail("section CLASSES has no ENDSEC");
}

void Parser::readTables()
{
    need();
    while (in_.is(0, "TABLE")) {
        readRecord(Section::tables, Family::tableHead);
        while (in_.code() == 0 && !in_.is(0, "ENDTAB")) {
            if (in_.is(0, "TABLE") || in_.is(0, "ENDSEC") || in_.is(0, "EOF"))
                in_.fail("the table has no ENDTAB");
            readRecord(Section::tables, Family::tableRecord);
        }
        for (need(); in_.code() != 0; need()) {
        } // what an ENDTAB may carry
    }
    if (!in_.is(0, "ENDSEC")) in_.fail("section TABLES has no ENDSEC");
}

void Parser::readRecords(Section section)
{
    need();
    while (!in_.is(0, "ENDSEC")) {
        if (in_.code() != 0) in_.fail("a record must begin here");
        if (in_.is(0, "SECTION") || in_.is(0, "EOF")) in_.fail("the section has no ENDSEC");
        readRecord(section, section == Section::objects ? Family::object : Family::entity);
    }
}

void Parser::readRaw(std::string_view name)
{
    const std::string kept(name);
    std::string text;
    for (need(); !in_.is(0, "ENDSEC"); need()) {
        if (in_.is(0, "SECTION") || in_.is(0, "EOF"))
            in_.fail("section " + kept + " has no ENDSEC");
        std::string code = std::to_string(in_.code());
        text.append(code.size() < 3 ? 3 - code.size() : 0, ' ').append(code).append("\n");
        text.append(plainText());
        text += '\n';
    }
    handler_.rawSection(kept, std::move(text));
}

void Parser::readRecord(Section section, Family family)
{
    const std::uint64_t line = in_.line();
    Record record(in_.value(), family);
    tags_.clear();
    xdata_.clear();
    if (record.kind() == Kind::other) tags_.take(in_); // the name of an unknown type
    if (isDictionary(record.kind())) record.needExtras().dictionary.emplace();
    braces_ = Braces::none;
    head_ = true;
    hasOwner_ = keyOpen_ = false;
    bool inXdata = false;
    try {
        for (need(); in_.code() != 0; need()) {
            if (in_.code() == 1001) inXdata = true;
            if (inXdata && in_.code() < 1000 && record.kind() == Kind::xrecord) {
                // Programs put any group into xrecords: extended data is what ends the record.
                tags_.take(xdata_);
                inXdata = false;
            }
            if (head_ && in_.code() == 3 && isDictionary(record.kind())) needDictionaryMarker();
            if (inXdata) xdata_.take(in_);
            else if (head_) readHeadGroup(record);
            else if (namesRecord(record)) tags_.takeText(in_);
            else if (!isDictionary(record.kind()) || !readEntry(record)) tags_.take(in_);
        }
        if (keyOpen_) in_.fail("key " + quoted(key_) + " of a dictionary names no object");
        if (head_ && isDictionary(record.kind())) needDictionaryMarker();
        if (head_) closeBraces();
    } catch (Fail& fail) {
        fail.error.handle = record.handle;
        fail.error.reason +=
            " (" + std::string(record.typeName().empty() ? "record" : record.typeName());
        fail.error.reason += " of line " + std::to_string(line) + ")";
        throw;
    }
    tags_.finish();
    xdata_.finish();
    record.tags = tags_.list();
    if (!xdata_.list().empty()) record.needExtras().xdata = xdata_.list();
    handler_.record(section, std::move(record), line);
}

void Parser::readHeadGroup(Record& record)
{
    const int code = in_.code();
    if (code == 102) return readBrace();
    if (code == 100) {
        closeBraces();
        head_ = false;
        tags_.take(in_);
        return;
    }
    if (namesRecord(record)) return tags_.takeText(in_);
    const bool isHandle = code == (record.kind() == Kind::dimstyle ? 105 : 5);
    if (braces_ == Braces::extension && code == 360) {
        record.needExtras().extensionDictionary = readHandle(in_);
    } else if (braces_ == Braces::reactors && code == 330) {
        record.needExtras().reactors.push_back(readHandle(in_));
    } else if (braces_ != Braces::other && isHandle && record.handle == 0) {
        record.handle = readHandle(in_);
    } else if (braces_ != Braces::other && code == 330 && !hasOwner_) {
        record.owner = readHandle(in_);
        hasOwner_ = true;
    } else {
        tags_.take(in_);
    }
}

bool Parser::namesRecord(const Record& record) const
{
    drawing::Handle handle = 0;
    const int code = in_.code();
    return record.kind() == Kind::dimstyle &&
           (code == 5 ||
            (code >= 340 && code <= 347 && readHandle(in_.value(), handle) != Reading::good));
}

void Parser::readBrace()
{
    const std::string_view value = in_.value();
    if (value == "}" && braces_ != Braces::none) {
        if (braces_ == Braces::other) tags_.take(in_);
        braces_ = Braces::none;
    } else if (value.starts_with('{')) {
        closeBraces();
        braces_ = value == "{ACAD_XDICTIONARY" ? Braces::extension
                  : value == "{ACAD_REACTORS"  ? Braces::reactors
                                               : Braces::other;
        if (braces_ == Braces::other) tags_.take(in_);
    } else {
        handler_.warn(in_.line(), quoted(value) + " opens and closes no braces: left out");
    }
}

void Parser::closeBraces()
{
    if (braces_ == Braces::none) return;
    handler_.warn(in_.line(), "braces (102) are not closed: they are now");
    tags_.finish();
    if (braces_ == Braces::other) tags_.list().addText(102, "}");
    braces_ = Braces::none;
}

void Parser::needDictionaryMarker()
{
    handler_.warn(in_.line(), "a dictionary has no subclass marker: it is added");
    closeBraces();
    tags_.finish();
    tags_.list().addText(100, "AcDbDictionary");
    head_ = false;
}

bool Parser::readEntry(Record& record)
{
    const int code = in_.code();
    if (code == 3) {
        if (keyOpen_) in_.fail("key " + quoted(key_) + " of a dictionary names no object");
        key_ = plainText();
        keyOpen_ = true;
        keyLine_ = in_.line();
        return true;
    }
    if ((code != 350 && code != 360) || !keyOpen_) return false;
    keyOpen_ = false;
    if (!record.needExtras().dictionary->load(key_, readHandle(in_), code == 360))
        handler_.warn(keyLine_, "second entry " + quoted(key_) + " of a dictionary is left out");
    return true;
}

} // namespace orvald::dxf
