// SPDX-License-Identifier: LicenseRef-ORVALD
// Sections and records of a DXF text. Group codes are padded to 3 places, 16-bit numbers to 6 and
// wider ones to 9, as AutoCAD does; lines end with LF.
#include "writer.h"

#include "number_out.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>

namespace orvald::dxf {

using namespace drawing;

namespace {

constexpr std::size_t kPiece = std::size_t{1} << 18; // bytes handed to the sink at a time

/// The line of a group code, made once for all codes.
struct CodeLine
{
    char text[5];
    std::uint8_t size;
};
const std::array<CodeLine, 1072>& codeLines()
{
    static const auto lines = [] {
        std::array<CodeLine, 1072> made{};
        for (int code = 0; code < 1072; ++code) {
            CodeLine& line = made[static_cast<std::size_t>(code)];
            char digits[4];
            const auto size =
                static_cast<std::size_t>(std::to_chars(digits, digits + 4, code).ptr - digits);
            const std::size_t pad = size < 3 ? 3 - size : 0;
            std::memset(line.text, ' ', pad);
            std::memcpy(line.text + pad, digits, size);
            line.text[pad + size] = '\n';
            line.size = static_cast<std::uint8_t>(pad + size + 1);
        }
        return made;
    }();
    return lines;
}

/// True for a record that hangs nowhere, by itself.
bool isLoose(const Drawing& drawing, Index index)
{
    const Record& record = drawing.at(index);
    const bool mayHang = record.family() == Family::object || record.isEntity();
    return mayHang && record.owner == 0 && index != drawing.rootDictionary();
}

/// True when the record or an owner above it is erased or hangs nowhere.
bool staysBehind(const Drawing& drawing, Index index)
{
    for (int step = 0; index != kNone && step < kMostOwners; ++step) {
        if (drawing.at(index).erased || isLoose(drawing, index)) return true;
        index = drawing.byHandle(drawing.at(index).owner);
    }
    return false; // owners in a circle, as some file had them
}

} // namespace

const Record& asWritten(const Drawing& drawing, Index index, bool anyLeft, Record& scratch)
{
    const Record& record = drawing.at(index);
    if (!anyLeft) return record;
    const auto gone = [&](Handle handle) {
        const Index target = drawing.byHandle(handle);
        return target != kNone && !drawing.at(target).undone && staysBehind(drawing, target);
    };
    scratch = record;
    const auto clean = [&](TagList& tags) {
        for (auto it = tags.begin(); it != tags.end(); ++it)
            if (isReference((*it).code()) && gone((*it).handle())) tags.setHandle(it, 0);
    };
    clean(scratch.tags);
    if (scratch.extras() == nullptr) return scratch;
    Extras& extras = scratch.needExtras();
    clean(extras.xdata);
    std::erase_if(extras.reactors, gone);
    if (gone(extras.extensionDictionary)) extras.extensionDictionary = 0;
    if (extras.dictionary) {
        std::vector<std::string> lost;
        for (const Dictionary::Entry& entry : extras.dictionary->entries())
            if (gone(entry.object)) lost.push_back(entry.key);
        for (const std::string& key : lost) extras.dictionary->remove(key);
    }
    return scratch;
}

bool Writer::run()
{
    for (Index i = 0; i < drawing_.recordCount(); ++i) {
        const Record& record = drawing_.at(i);
        if (record.undone) continue;
        anyLeft_ = anyLeft_ || record.erased || isLoose(drawing_, i);
    }
    buffer_.resize(kPiece);
    header();
    classes();
    tables();
    blocks();
    entities();
    objects();
    rawSections();
    text(0, "EOF");
    flush();
    return good_ && unwritable_ == 0;
}

// Groups ---------------------------------------------------------------------------------------

char* Writer::room(std::size_t bytes)
{
    if (buffer_.size() - used_ < bytes) {
        flush();
        if (buffer_.size() < bytes) buffer_.resize(bytes);
    }
    return buffer_.data() + used_;
}

void Writer::flush()
{
    if (used_ != 0 && good_) good_ = sink_(std::string_view(buffer_).substr(0, used_));
    used_ = 0;
}

void Writer::group(int code)
{
    const CodeLine& line = codeLines()[static_cast<std::size_t>(code)];
    std::memcpy(room(sizeof line.text), line.text, sizeof line.text);
    used_ += line.size;
}

void Writer::text(int code, std::string_view value)
{
    group(code);
    char* out = room(value.size() + 1);
    if (!value.empty()) std::memcpy(out, value.data(), value.size());
    out[value.size()] = '\n';
    used_ += value.size() + 1;
}

void Writer::integer(int code, std::int64_t value)
{
    group(code);
    char digits[24];
    const auto size =
        static_cast<std::size_t>(std::to_chars(digits, digits + sizeof digits, value).ptr - digits);
    TagKind kind = TagKind::int16;
    fileKind(code, kind);
    const std::size_t width = kind == TagKind::int16 ? 6 : 9;
    const std::size_t pad = size < width ? width - size : 0;
    char* out = room(sizeof digits + width);
    std::memset(out, ' ', pad);
    std::memcpy(out + pad, digits, size);
    out[pad + size] = '\n';
    used_ += pad + size + 1;
}

void Writer::handle(int code, Handle value)
{
    group(code);
    char* out = room(20);
    char* end = std::to_chars(out, out + 17, value, 16).ptr;
    for (char* at = out; at != end; ++at)
        if (*at >= 'a') *at = static_cast<char>(*at - 32);
    *end++ = '\n';
    used_ += static_cast<std::size_t>(end - out);
}

void Writer::real(int code, double value)
{
    if (!std::isfinite(value)) {
        if (unwritable_ == 0) unwritable_ = present_ == 0 ? 1 : present_;
        value = 0.0;
    }
    group(code);
    char* out = room(kRealRoom + 1);
    char* end = writeReal(out, value);
    *end++ = '\n';
    used_ += static_cast<std::size_t>(end - out);
}

void Writer::binary(int code, std::string_view bytes)
{
    group(code);
    char* out = room(2 * bytes.size() + 1);
    for (const char c : bytes) {
        const auto byte = static_cast<std::uint8_t>(c);
        *out++ = "0123456789ABCDEF"[byte >> 4];
        *out++ = "0123456789ABCDEF"[byte & 15];
    }
    *out = '\n';
    used_ += 2 * bytes.size() + 1;
}

void Writer::tag(Tag t)
{
    const int code = t.code();
    switch (t.kind()) {
    case TagKind::text: text(code, t.text()); break;
    case TagKind::real: real(code, t.real()); break;
    case TagKind::int16:
    case TagKind::int32:
    case TagKind::int64: integer(code, t.integer()); break;
    case TagKind::point2:
    case TagKind::point3: {
        const Point p = t.point();
        real(code, p.x);
        real(code + 10, p.y);
        if (t.kind() == TagKind::point3) real(code + 20, p.z);
        break;
    }
    case TagKind::handle: handle(code, t.handle()); break;
    case TagKind::binary: binary(code, t.bytes()); break;
    }
}

void Writer::list(const TagList& tags)
{
    for (const Tag t : tags) tag(t);
}

// Records --------------------------------------------------------------------------------------

void Writer::reference(const Record& record)
{
    handle(record.kind() == Kind::dimstyle ? 105 : 5, record.handle);
    const Extras* extras = record.extras();
    if (extras != nullptr && extras->extensionDictionary != 0) {
        text(102, "{ACAD_XDICTIONARY");
        handle(360, extras->extensionDictionary);
        text(102, "}");
    }
    if (extras != nullptr && !extras->reactors.empty()) {
        text(102, "{ACAD_REACTORS");
        for (const Handle reactor : extras->reactors) handle(330, reactor);
        text(102, "}");
    }
}

void Writer::entries(const Dictionary& dictionary)
{
    for (const Dictionary::Entry* entry : dictionary.fileOrder()) {
        text(3, entry->key);
        handle(entry->hard ? 360 : 350, entry->object);
    }
}

void Writer::record(Index index)
{
    Record scratch;
    const Record& record = asWritten(drawing_, index, anyLeft_, scratch);
    present_ = record.handle;
    ++count_;
    text(0, record.typeName());
    reference(record);
    TagList::Iterator it = record.body();
    const TagList::Iterator end = record.tags.end();
    // Braces of other applications stand in front of the owner.
    for (bool open = false; it != end; ++it) {
        const bool brace = (*it).code() == 102;
        if ((*it).code() == 100 || (!open && (!brace || (*it).text() == "}"))) break;
        if (brace) open = (*it).text() != "}";
        tag(*it);
    }
    handle(330, record.owner);
    const Dictionary* dictionary = record.dictionary();
    for (int markers = 0; it != end; ++it) {
        // The entries belong to the first subclass, a default to the second.
        if ((*it).code() == 100 && ++markers == 2 && dictionary != nullptr) {
            entries(*dictionary);
            dictionary = nullptr;
        }
        tag(*it);
    }
    if (dictionary != nullptr) entries(*dictionary);
    if (record.extras() != nullptr) list(record.extras()->xdata);
}

void Writer::children(Index owner)
{
    for (Index child = drawing_.firstChild(owner); child != kNone; child = drawing_.next(child)) {
        if (drawing_.at(child).erased) continue;
        record(child);
        if (hasParts(drawing_.at(child).kind())) children(child);
    }
}

// Sections -------------------------------------------------------------------------------------

void Writer::section(std::string_view name)
{
    text(0, "SECTION");
    text(2, name);
}

void Writer::header()
{
    section("HEADER");
    bool seed = false;
    for (const HeaderVariables::Variable& variable : drawing_.header.all()) {
        text(9, variable.name);
        if (variable.name == "$HANDSEED") {
            handle(5, drawing_.nextHandle());
            seed = true;
        } else {
            list(variable.value);
        }
    }
    if (!seed) {
        text(9, "$HANDSEED");
        handle(5, drawing_.nextHandle());
    }
    text(0, "ENDSEC");
}

void Writer::classes()
{
    section("CLASSES");
    for (const TagList& row : drawing_.classes) {
        text(0, "CLASS");
        list(row);
    }
    text(0, "ENDSEC");
}

void Writer::tableHead(TableId table)
{
    Record scratch;
    const Record& head = asWritten(drawing_, drawing_.tableHead(table), anyLeft_, scratch);
    std::int64_t size = 0;
    for (const Index index : drawing_.tableRecords(table))
        size += drawing_.at(index).erased ? 0 : 1;
    // The groups have 16 bits; readers take the number for a hint.
    size = std::min<std::int64_t>(size, std::numeric_limits<std::int16_t>::max());
    present_ = head.handle;
    ++count_;
    text(0, "TABLE");
    text(2, tableName(table));
    reference(head);
    handle(330, 0);
    const bool lists = head.tags.findMarker("AcDbDimStyleTable") != head.tags.end();
    for (const Tag t : head.tags) {
        const int code = t.code();
        if (code == 2 || (lists && (code == 71 || code == 340))) continue;
        if (code == 70) integer(70, size);
        else tag(t);
    }
    if (lists) {
        integer(71, size);
        for (const Index index : drawing_.tableRecords(table))
            if (!drawing_.at(index).erased) handle(340, drawing_.at(index).handle);
    }
    if (head.extras() != nullptr) list(head.extras()->xdata);
}

void Writer::tables()
{
    section("TABLES");
    for (std::size_t i = 0; i < kTableCount; ++i) {
        const auto table = static_cast<TableId>(i);
        if (drawing_.tableHead(table) == kNone) continue;
        tableHead(table);
        for (const Index index : drawing_.tableRecords(table))
            if (!drawing_.at(index).erased) record(index);
        text(0, "ENDTAB");
    }
    text(0, "ENDSEC");
}

void Writer::blocks()
{
    section("BLOCKS");
    const Index model = drawing_.modelSpace(), paper = drawing_.paperSpace();
    for (const Index block : drawing_.tableRecords(TableId::blockRecord)) {
        const Extras* extras = drawing_.at(block).extras();
        if (drawing_.at(block).erased || extras == nullptr || extras->blockBegin == kNone) continue;
        record(extras->blockBegin);
        if (block != model && block != paper) children(block);
        record(extras->blockEnd);
    }
    text(0, "ENDSEC");
}

void Writer::entities()
{
    section("ENTITIES");
    for (const Index space : {drawing_.modelSpace(), drawing_.paperSpace()})
        if (space != kNone) children(space);
    text(0, "ENDSEC");
}

void Writer::objects()
{
    section("OBJECTS");
    const Index root = drawing_.rootDictionary();
    if (root != kNone) record(root);
    for (Index i = 0; i < drawing_.recordCount(); ++i) {
        const Record& object = drawing_.at(i);
        if (i == root || object.family() != Family::object || object.undone) continue;
        if (!anyLeft_ || !staysBehind(drawing_, i)) record(i);
    }
    text(0, "ENDSEC");
}

void Writer::rawSections()
{
    for (const RawSection& raw : drawing_.rawSections) {
        section(raw.name);
        std::string_view rest = raw.text;
        while (!rest.empty()) {
            const std::string_view piece = rest.substr(0, kPiece);
            std::memcpy(room(piece.size()), piece.data(), piece.size());
            used_ += piece.size();
            rest.remove_prefix(piece.size());
        }
        text(0, "ENDSEC");
    }
}

} // namespace orvald::dxf
