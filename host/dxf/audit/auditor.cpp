// SPDX-License-Identifier: LicenseRef-ORVALD
#include "audit/auditor.h"

#include "audit/values.h"
#include "drawing/text.h"
#include "number_in.h"
#include "parser.h"
#include "text_in.h"

#include <algorithm>

namespace orvald::dxf {

using namespace drawing;

namespace {

constexpr std::string_view kSections[] = {"HEADER", "CLASSES",  "TABLES",
                                          "BLOCKS", "ENTITIES", "OBJECTS"};
constexpr std::string_view kFurtherSections[] = {"THUMBNAILIMAGE", "ACDSDATA"};

struct Required
{
    TableId table;
    std::string_view name;
};
constexpr Required kRequired[] = {{TableId::ltype, "ByBlock"},
                                  {TableId::ltype, "ByLayer"},
                                  {TableId::ltype, "Continuous"},
                                  {TableId::layer, "0"},
                                  {TableId::style, "Standard"},
                                  {TableId::appid, "ACAD"},
                                  {TableId::blockRecord, "*Model_Space"},
                                  {TableId::blockRecord, "*Paper_Space"}};

/// Types that need no class.
constexpr std::string_view kPlainTypes[] = {"3DFACE",
                                            "3DSOLID",
                                            "ACAD_PROXY_ENTITY",
                                            "ACAD_PROXY_OBJECT",
                                            "ACDBPLACEHOLDER",
                                            "ARC",
                                            "ATTDEF",
                                            "ATTRIB",
                                            "BLOCK",
                                            "BODY",
                                            "CIRCLE",
                                            "DICTIONARY",
                                            "DIMENSION",
                                            "ELLIPSE",
                                            "ENDBLK",
                                            "GROUP",
                                            "HATCH",
                                            "INSERT",
                                            "LAYOUT",
                                            "LEADER",
                                            "LINE",
                                            "LWPOLYLINE",
                                            "MLINE",
                                            "MLINESTYLE",
                                            "MTEXT",
                                            "OLE2FRAME",
                                            "OLEFRAME",
                                            "PLOTSETTINGS",
                                            "POINT",
                                            "POLYLINE",
                                            "RAY",
                                            "REGION",
                                            "SEQEND",
                                            "SHAPE",
                                            "SOLID",
                                            "SPLINE",
                                            "TEXT",
                                            "TOLERANCE",
                                            "TRACE",
                                            "VBA_PROJECT",
                                            "VERTEX",
                                            "VIEWPORT",
                                            "XLINE",
                                            "XRECORD"};
static_assert(std::is_sorted(std::begin(kPlainTypes), std::end(kPlainTypes)));

template <class Range>
bool contains(const Range& range, std::string_view name)
{
    return std::find(std::begin(range), std::end(range), name) != std::end(range);
}

} // namespace

void Auditor::problem(bool isError, std::string_view kind, std::string text)
{
    report_.add(
        {isError, kind, record_.line(), record_.handle, record_.name() + ": " + std::move(text)});
}

void Auditor::misplaced(std::string_view text)
{
    report_.add({true, "structure", record_.line(), record_.handle,
                 std::string(record_.type()) + " " + std::string(text)});
}

void Auditor::run()
{
    bool ended = false;
    try {
        while (!ended && in_.next()) {
            if (in_.code() == 0) {
                endRecord();
                record_.clear();
            } else if (record_.empty()) {
                report_.add(
                    {true, "structure", in_.line(), 0, "data in front of the first section"});
                return;
            }
            watchVersion();
            // Before R13 that group of a dimension style is the name of a block.
            const bool isArrow =
                !marked_ && in_.code() == 5 && record_.size() != 0 && record_.is("DIMSTYLE");
            if (!isArrow) checkValue(in_, page_ == nullptr, report_);
            addGroup();
            ended = record_.size() == 1 && record_.is("EOF");
        }
    } catch (const Fail& fail) {
        // Behind such a place nothing is certain.
        endRecord();
        report_.add({true, "unreadable", fail.error.line, 0, fail.error.reason});
        return;
    }
    if (record_.empty()) return report_.error("structure", "the file is empty");
    if (in_.hasMark())
        report_.add(
            {true, "byte-order-mark", 1, 0, "a byte order mark in front of the first group"});
    if (!ended) {
        endRecord();
        report_.error("structure", "the file ends without EOF");
    } else if (!section_.empty()) {
        misplaced("inside section " + section_);
    }
    std::uint64_t first = 0;
    if (const std::uint64_t rest = in_.linesBehind(first); rest != 0)
        report_.add({false, "after-end", first, 0,
                     std::to_string(rest) + " lines after the end of the drawing"});
    finish();
}

void Auditor::watchVersion()
{
    if (in_.code() == 0) return variable_.clear();
    if (in_.code() == 9) {
        variable_ = trimmed(in_.value());
        return;
    }
    if (variable_ == "$ACADVER" && version_.empty()) {
        version_ = trimmed(in_.value());
        marked_ = version_ >= kFirstMarkedVersion;
        index_.setMarked(marked_);
        if (!isReadVersion(version_))
            report_.add({true, "header", in_.line() + 1, 0,
                         "version " + quoted(version_) + " is not known"});
    } else if (variable_ == "$DWGCODEPAGE") {
        codePage_ = trimmed(in_.value());
    } else {
        return;
    }
    bool known = false;
    page_ = pageOf(version_, codePage_, known);
    if (!known)
        report_.add({false, "code-page", in_.line() + 1, 0,
                     "code page " + quoted(codePage_) + " is not known"});
}

void Auditor::addGroup()
{
    bool foreign = false;
    TagKind kind = TagKind::text;
    const bool isText = fileKind(in_.code(), kind) && kind == TagKind::text;
    const std::string_view value =
        isText && page_ != nullptr ? readText(in_.value(), page_, scratch_, foreign) : in_.value();
    record_.add(in_.code(), value, in_.line());
    if (foreign)
        report_.add({false, "code-page", in_.line() + 1, 0,
                     quoted(value) + " has bytes that the file's code page does not have"});
}

void Auditor::endRecord()
{
    if (record_.empty()) return;
    record_.split(marked_);
    if (record_.is("SECTION")) return beginSection();
    if (record_.is("ENDSEC")) return endSection();
    if (section_.empty()) return misplaced("outside of a section");
    if (section_ == "HEADER") return misplaced("inside section HEADER");
    checkPoints();
    checkXdata();
    if (marked_) checkForm();
    if (section_ == "CLASSES") return takeClass();
    if (section_ == "TABLES") return takeTablePart();
    if (section_ == "BLOCKS") return takeBlockPart();
    if (section_ == "ENTITIES") return takeEntity();
    if (section_ == "OBJECTS") return takeObject();
}

void Auditor::beginSection()
{
    if (!section_.empty()) misplaced("though section " + section_ + " is not closed");
    const bool named = record_.size() > 1 && record_[1].code == 2;
    section_ = named ? std::string(record_[1].value) : "?";
    if (!sections_.insert(section_).second) misplaced(section_ + " comes a second time");
    else if (!contains(kSections, section_) && !contains(kFurtherSections, section_))
        report_.add({false, "structure", record_.line(), 0, "unknown section " + section_});
    const auto place = static_cast<std::size_t>(
        std::find(std::begin(kSections), std::end(kSections), section_) - std::begin(kSections));
    if (place < furthest_)
        misplaced(section_ + " stands behind section " + std::string(kSections[furthest_]));
    else if (place < std::size(kSections)) furthest_ = place;
    inTable_ = false;
    openBlock_ = nullptr;
    if (section_ == "HEADER") checkHeader();
    else if (version_.empty() && marked_) {
        misplaced(section_ + ", though no header tells the version: judged as R12");
        marked_ = false;
        index_.setMarked(false);
    }
}

void Auditor::endSection()
{
    if (section_.empty()) misplaced("without a section");
    if (inTable_) misplaced("though table " + table_ + " has no ENDTAB");
    if (openBlock_ != nullptr)
        misplaced("though block " + quoted(openBlock_->name) + " has no ENDBLK");
    inTable_ = false;
    openBlock_ = nullptr;
    section_.clear();
}

void Auditor::checkHeader()
{
    const auto fail = [&](std::uint64_t line, std::string text) {
        report_.add({true, "header", line, 0, std::move(text)});
    };
    for (std::size_t i = 2; i < record_.size();) {
        const AuditRecord::Group name = record_[i++];
        const bool custom = name.value.starts_with("CUSTOMPROPERTY");
        if (name.code != 9 || !(name.value.starts_with('$') || custom)) {
            fail(name.line, "group " + std::to_string(name.code) + " " + quoted(name.value) +
                                " where a variable must begin");
            continue;
        }
        if (i == record_.size() || record_[i].code == 9) {
            fail(name.line, std::string(name.value) + " has no value");
            continue;
        }
        const AuditRecord::Group value = record_[i++];
        if (beginsPoint(value.code)) {
            const std::size_t first = i;
            for (const int code : {value.code + 10, value.code + 20})
                if (i < record_.size() && record_[i].code == code) ++i;
            if (i == first) fail(value.line, std::string(name.value) + " has an x alone");
        }
        if (name.value == "$HANDSEED") readHandle(value.value, seed_);
        const int wanted = version_ >= "AC1032" ? 90 : 70;
        if (name.value == "$ACADMAINTVER" && value.code != wanted)
            fail(value.line, "$ACADMAINTVER must have group " + std::to_string(wanted));
    }
}

void Auditor::checkPoints()
{
    for (std::size_t i = 1; i < record_.size(); ++i) {
        const int code = record_[i].code;
        if (beginsPoint(code) && (i + 1 == record_.size() || record_[i + 1].code != code + 10))
            error("lone-coordinate", "group " + std::to_string(code) + " is not followed by " +
                                         std::to_string(code + 10));
        // A normal without its z means another plane.
        else if (code == 210 && (i + 2 >= record_.size() || record_[i + 2].code != 230))
            error("lone-coordinate", "group 220 is not followed by 230");
    }
}

void Auditor::checkForm()
{
    if (!record_.bracesHold)
        error("braces", "the braces (102) in front of its first subclass marker do not pair");
    for (std::size_t i = record_.bodyBegin() + 1; record_.isInBody(i); ++i)
        if (record_[i].code == 100 && record_[i - 1].code == 100 &&
            record_[i].value == record_[i - 1].value)
            error("second-marker", "subclass marker " + quoted(record_[i].value) + " twice");
}

void Auditor::takeClass()
{
    std::string groups;
    for (std::size_t i = 1; i < record_.size(); ++i)
        groups += std::to_string(record_[i].code) + " ";
    if (groups != "1 2 3 90 91 280 281 " && groups != "1 2 3 90 280 281 ")
        error("class", "groups " + groups + "stand there, not 1 2 3 90 91 280 281");
    classes_.insert(nameKey(record_.size() > 1 ? record_[1].value : ""));
}

void Auditor::takeTablePart()
{
    if (record_.is("TABLE")) return takeTableHead();
    if (!record_.is("ENDTAB")) return takeTableRecord();
    if (!inTable_) misplaced("without a table");
    inTable_ = false;
}

void Auditor::takeTableHead()
{
    if (inTable_) misplaced("though table " + table_ + " has no ENDTAB");
    table_ = record_.size() > 1 && record_[1].code == 2 ? record_[1].value : "?";
    inTable_ = true;
    TableId table{};
    if (!tableOf(table_, table)) return error("structure", quoted(table_) + " is no table");
    index_.add(record_, Place::tables, table);
    tables_[std::size_t(table)] = true;
    if (marked_ && table == TableId::dimstyle &&
        record_.marker("AcDbDimStyleTable") == record_.size())
        error("no-marker", "no subclass marker AcDbDimStyleTable");
}

void Auditor::takeTableRecord()
{
    TableId table{};
    const bool known = tableOf(record_.type(), table);
    if (!inTable_) misplaced("stands in no table");
    else if (!record_.is(table_)) misplaced("stands in table " + table_);
    if (!known) return;
    index_.add(record_, Place::tables, table);
    const std::string_view name = record_.text(2);
    const bool nameless = table == TableId::style && name.empty(); // shape files have no name
    if (!nameless && !index_.define(table, name) && table != TableId::vport)
        error("second-record", "another one has the name " + quoted(name));
    checkTableName();
    if (!marked_) return;
    if (record_.text(100) != "AcDbSymbolTableRecord")
        error("no-marker", "no subclass marker AcDbSymbolTableRecord");
    if (table == TableId::layer) checkLayer();
    if (table != TableId::blockRecord) return;
    Handle layout = 0;
    readHandle(record_.text(340), layout);
    index_.addBlockRecord(record_.handle, name, layout);
    blockRecords_.try_emplace(nameKey(name), record_.handle);
}

void Auditor::takeBlockPart()
{
    if (record_.is("BLOCK")) {
        const std::string_view name = record_.text(2);
        const std::string key = nameKey(name);
        if (openBlock_ != nullptr) error("block", "it stands inside another block");
        if (blocks_.contains(key)) error("block", "second definition of " + quoted(name));
        const auto owner = blockRecords_.find(key);
        if (!marked_) index_.define(TableId::blockRecord, name);
        else if (owner == blockRecords_.end())
            error("block", quoted(name) + " has no BLOCK_RECORD");
        else if (owner->second != record_.owner)
            error("block", "its owner is not its BLOCK_RECORD");
        openBlock_ = &blocks_[key];
        openBlock_->name = name;
    } else if (record_.is("ENDBLK")) {
        if (openBlock_ == nullptr) error("block", "no block is open");
        openBlock_ = nullptr;
    } else if (openBlock_ == nullptr) {
        error("block", "it stands between the blocks");
    } else {
        const std::string key = nameKey(openBlock_->name);
        if (marked_ && (key == "*MODEL_SPACE" || key == "*PAPER_SPACE"))
            error("misplaced-entity",
                  "it stands in block " + openBlock_->name + ", not in ENTITIES");
        if (record_.is("INSERT")) openBlock_->inserts.push_back(nameKey(record_.text(2)));
    }
    index_.add(record_, Place::blocks, TableId{});
    checkSequence();
    checkEntity();
}

void Auditor::takeEntity()
{
    index_.add(record_, Place::entities, TableId{});
    checkSequence();
    checkEntity();
}

void Auditor::takeObject()
{
    const Index index = index_.add(record_, Place::objects, TableId{});
    checkClass();
    if (record_.isDictionary()) checkDictionary(index);
    else if (record_.is("XRECORD")) checkXrecord();
    else if (record_.is("LAYOUT")) checkLayout(index);
}

void Auditor::checkClass()
{
    if (!marked_ ||
        std::binary_search(std::begin(kPlainTypes), std::end(kPlainTypes), record_.type()))
        return;
    const std::string key = nameKey(record_.type());
    if (!classes_.contains(key)) warn("no-class", "there is no class of that name");
}

// The whole file --------------------------------------------------------------------------------

void Auditor::finish()
{
    if (version_.empty()) report_.error("header", "no version ($ACADVER)");
    if (marked_) {
        for (const std::string_view name : kSections)
            if (!sections_.contains(name))
                report_.error("structure", "section " + std::string(name) + " is missing");
        for (std::size_t i = 0; i < kTableCount && sections_.contains("TABLES"); ++i)
            if (!tables_[i])
                report_.error("structure",
                              "table " + std::string(tableName(TableId(i))) + " is missing");
        for (const Required& required : kRequired)
            if (!index_.isDefined(required.table, required.name))
                report_.error("missing-record", std::string(tableName(required.table)) + " " +
                                                    std::string(required.name) + " is missing");
        if (seed_ == 0) report_.error("header", "no $HANDSEED");
        else if (seed_ <= index_.largest())
            report_.error("header", "$HANDSEED " + handleText(seed_) +
                                        " is not above the largest handle " +
                                        handleText(index_.largest()));
    }
    finishBlocks();
    index_.finish();
}

void Auditor::finishBlocks()
{
    for (const auto& [key, handle] : blockRecords_)
        if (!blocks_.contains(key) && sections_.contains("BLOCKS"))
            report_.add(
                {true, "block", 0, handle,
                 "BLOCK_RECORD " + handleText(handle) + ": " + quoted(key) + " has no BLOCK"});
    // A block may not contain itself: a walk that never goes where it has been.
    enum class State
    {
        fresh,
        open,
        done
    };
    std::map<const Block*, State> states;
    struct Step
    {
        const Block* block;
        std::size_t next = 0;
    };
    for (const auto& [key, start] : blocks_) {
        std::vector<Step> path;
        if (states[&start] == State::fresh) path.push_back({&start});
        while (!path.empty()) {
            Step& step = path.back();
            states[step.block] = State::open;
            if (step.next == step.block->inserts.size()) {
                states[step.block] = State::done;
                path.pop_back();
                continue;
            }
            const auto inner = blocks_.find(step.block->inserts[step.next++]);
            if (inner == blocks_.end()) continue;
            State& state = states[&inner->second];
            if (state == State::fresh) path.push_back({&inner->second});
            else if (state == State::open)
                report_.error("block-cycle", "block " + quoted(inner->second.name) +
                                                 " contains itself by way of " +
                                                 quoted(step.block->name));
        }
    }
}

} // namespace orvald::dxf
