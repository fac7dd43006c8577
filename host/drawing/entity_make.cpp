// SPDX-License-Identifier: LicenseRef-ORVALD
// Making records from lists: one by one, or complex ones part by part. Nothing is in the drawing
// before it is whole; what does not fit drops what has been gathered.
#include "build_tags.h"
#include "drawing/entity_functions.h"
#include "drawing/text.h"
#include "given.h"
#include "sections.h"

#include <algorithm>

namespace orvald::drawing {

namespace {

/// An entity with its parts, none of them in the drawing yet.
struct Assembly
{
    Record record;
    std::vector<Record> parts;
};

} // namespace

struct PendingEntity
{
    std::optional<Record> block;     // BLOCK, while a block is being defined
    std::vector<Assembly> contents;  // of that block
    std::optional<Assembly> complex; // POLYLINE or INSERT that waits for its SEQEND
    Index space = kNone;             // where it will stand
};

EntityFunctions::EntityFunctions(Drawing& drawing) : drawing_(drawing) {}
EntityFunctions::~EntityFunctions() = default;

namespace {

/// Kinds that programs cannot make: their contents are not groups alone.
bool isUnmakable(Kind kind)
{
    return kind == Kind::viewport || kind == Kind::proxyEntity || kind == Kind::proxyObject ||
           kind == Kind::body || kind == Kind::region || kind == Kind::solid3d ||
           kind == Kind::table || kind == Kind::blockRecord || kind == Kind::layout;
}

class Maker
{
public:
    Maker(Drawing& drawing, std::unique_ptr<PendingEntity>& pending, EntityFunctions::Made& made)
        : drawing_(drawing), pending_(pending), made_(made)
    {
    }

    ErrNo make(const resbuf* chain)
    {
        if (const ErrNo error = readGiven(drawing_, chain, given_); error != ErrNo::none)
            return error;
        Family family{};
        if (!given_.typeInFront || !familyOf(family)) return ErrNo::badType;
        record_ = Record(given_.type, family);
        if (given_.hasXdata) {
            if (const ErrNo error = checkXdata(drawing_, given_.xdata); error != ErrNo::none)
                return error;
            record_.needExtras().xdata = given_.xdata;
            record_.trimExtras();
        }
        switch (record_.kind()) {
        case Kind::block: return beginBlock();
        case Kind::endblk: return endBlock();
        case Kind::vertex:
        case Kind::attrib: return addPart();
        case Kind::seqend: return endComplex();
        default: break;
        }
        switch (family) {
        case Family::entity: return makeEntity();
        case Family::tableRecord: return makeTableRecord();
        default: return makeObject();
        }
    }

private:
    bool familyOf(Family& family) const
    {
        const Kind kind = kindOf(given_.type);
        if (isUnmakable(kind)) return false;
        if (kind >= Kind::arc && kind <= Kind::xline) {
            family = Family::entity;
        } else if (kind >= Kind::appid && kind <= Kind::vport) {
            family = Family::tableRecord;
        } else if (kind >= Kind::dictionary || given_.type == "GROUP") {
            family = Family::object;
        } else {
            for (const TagList& row : drawing_.classes) {
                if (row.text(1) != given_.type) continue;
                family = row.integer(281) != 0 ? Family::entity : Family::object;
                return true;
            }
            return false;
        }
        return true;
    }

    bool build()
    {
        TagList groups = given_.groups, tags;
        if (record_.isEntity()) addCurrent(groups);
        if (!buildTags(record_.kind(), record_.isEntity(), groups, tags)) return false;
        if (record_.kind() == Kind::hatch) {
            for (const int code : {2, 70, 71, 91})
                if (!tags.has(code)) return false;
        }
        record_.tags.append(tags);
        record_.tags.shrink();
        return checkRecord(drawing_, record_) == ErrNo::none;
    }

    /// Current properties where the list has none.
    void addCurrent(TagList& groups) const
    {
        const HeaderVariables& header = drawing_.header;
        const Kind kind = record_.kind();
        TagList current;
        if (!groups.has(8)) current.addText(8, header.text("$CLAYER", "0"));
        const bool part = kind == Kind::vertex; // has the properties of its polyline
        if (!groups.has(6) && !part) addUnless(current, 6, header.text("$CELTYPE"), "ByLayer");
        const std::int64_t colour = header.integer("$CECOLOR", 256);
        if (!groups.has(62) && !part && colour != 256) current.addInteger(62, colour);
        const std::int64_t weight = header.integer("$CELWEIGHT", -1);
        if (!groups.has(370) && !part && weight != -1) current.addInteger(370, weight);
        const double scale = header.real("$CELTSCALE", 1.0);
        if (!groups.has(48) && !part && scale != 1.0) current.addReal(48, scale);
        const bool isText = kind == Kind::text || kind == Kind::mtext || kind == Kind::attrib ||
                            kind == Kind::attdef;
        if (isText && !groups.has(7)) addUnless(current, 7, header.text("$TEXTSTYLE"), "Standard");
        if (kind == Kind::mtext && !groups.has(40))
            current.addReal(40, header.real("$TEXTSIZE", 2.5));
        // Behind the first marker: what vertices and patterns repeat follows in the order given.
        const auto marker = groups.find(100);
        groups.insert(marker == groups.end() ? groups.begin() : std::next(marker), current);
    }
    static void addUnless(TagList& tags, int code, std::string_view value, std::string_view none)
    {
        if (!value.empty() && !sameName(value, none)) tags.addText(code, value);
    }

    /// The block record that the list means; kNone when its layout does not exist.
    Index space() const
    {
        if (!given_.layout.empty()) {
            for (const Index block : drawing_.tableRecords(TableId::blockRecord))
                if (!drawing_.at(block).erased && drawing_.isLayoutBlock(block) &&
                    sameName(drawing_.layoutName(block), given_.layout))
                    return block;
            return kNone;
        }
        if (!given_.hasSpace) return drawing_.currentSpace();
        return given_.paper ? drawing_.paperSpace() : drawing_.modelSpace();
    }

    // Entities -------------------------------------------------------------------------------

    bool inBlock() const { return pending_ && pending_->block; }
    bool inComplex() const { return pending_ && pending_->complex; }

    ErrNo makeEntity()
    {
        if (inComplex() || !build()) return ErrNo::badType;
        if (record_.kind() == Kind::insert && inBlock() && leadsBack(record_.tags.text(2)))
            return ErrNo::badType;
        const Index where = inBlock() ? kNone : space();
        if (!inBlock() && where == kNone) return ErrNo::badType;
        const bool waits = record_.kind() == Kind::polyline ||
                           (record_.kind() == Kind::insert && record_.tags.integer(66) != 0);
        Assembly assembly{std::move(record_), {}};
        if (waits) {
            if (assembly.record.kind() == Kind::polyline) setPolylineMarker(assembly.record);
            if (!pending_) pending_ = std::make_unique<PendingEntity>();
            pending_->complex = std::move(assembly);
            pending_->space = where;
        } else if (inBlock()) {
            pending_->contents.push_back(std::move(assembly));
        } else {
            hang(std::move(assembly), where);
        }
        return ErrNo::none;
    }

    static void setMarker(TagList& tags, std::string_view from, std::string_view to)
    {
        const auto place = tags.findMarker(from);
        TagList marker;
        marker.addText(100, to);
        if (place != tags.end() && from != to) tags.replace(place, marker);
    }
    static void setPolylineMarker(Record& polyline)
    {
        setMarker(polyline.tags, "AcDb2dPolyline", polylineMarker(polyline.tags.integer(70)));
    }

    ErrNo addPart()
    {
        if (!inComplex() || !build()) return ErrNo::badType;
        Assembly& owner = *pending_->complex;
        const bool isVertex = record_.kind() == Kind::vertex;
        if (isVertex != (owner.record.kind() == Kind::polyline)) return ErrNo::badType;
        if (isVertex) {
            const std::string_view marker =
                vertexMarker(owner.record.tags.integer(70), record_.tags.integer(70));
            setMarker(record_.tags, "AcDb2dVertex", marker);
            if (marker == "AcDbFaceRecord") { // has no marker of a vertex
                record_.tags.erase(record_.tags.findMarker("AcDbVertex"));
            }
        }
        owner.parts.push_back(std::move(record_));
        return ErrNo::none;
    }

    ErrNo endComplex()
    {
        if (!inComplex()) return ErrNo::badType;
        Assembly assembly = std::move(*pending_->complex);
        pending_->complex.reset();
        Record end(Kind::seqend, Family::entity);
        end.tags.addText(100, "AcDbEntity");
        end.tags.addText(8, assembly.record.layer());
        assembly.parts.push_back(std::move(end));
        if (inBlock()) {
            pending_->contents.push_back(std::move(assembly));
        } else {
            const Index where = pending_->space;
            pending_.reset();
            hang(std::move(assembly), where);
        }
        return ErrNo::none;
    }

    /// Takes an entity with its parts into the drawing.
    void hang(Assembly&& assembly, Index block)
    {
        const bool paper = drawing_.isPaperSpace(block);
        const auto takeIn = [&](Record&& record, Index owner) {
            drawing_.needLayer(record.layer());
            markSpace(record, paper);
            const Index index = drawing_.add(std::move(record));
            drawing_.appendChild(owner, index);
            return index;
        };
        const Index main = takeIn(std::move(assembly.record), block);
        for (Record& part : assembly.parts) takeIn(std::move(part), main);
        made_.id = drawing_.idOf(main);
    }

    // Blocks ---------------------------------------------------------------------------------

    ErrNo beginBlock()
    {
        const std::string_view name = given_.groups.text(2);
        const bool anonymous = name.starts_with("*") && name.size() >= 2;
        if (pending_ || !isSymbolName(name, anonymous)) return ErrNo::badType;
        if (anonymous &&
            (nameKey(name).starts_with("*MODEL") || nameKey(name).starts_with("*PAPER")))
            return ErrNo::badType;
        TagList& tags = record_.tags;
        tags.addText(100, "AcDbEntity");
        tags.addText(8, given_.groups.text(8, drawing_.header.text("$CLAYER", "0")));
        tags.addText(100, "AcDbBlockBegin");
        tags.addText(2, name);
        tags.addInteger(70, given_.groups.integer(70));
        tags.addPoint(10, given_.groups.point(10));
        tags.addText(3, name);
        tags.addText(1, given_.groups.text(1));
        if (checkRecord(drawing_, record_) != ErrNo::none) return ErrNo::badType;
        pending_ = std::make_unique<PendingEntity>();
        pending_->block = std::move(record_);
        return ErrNo::none;
    }

    ErrNo endBlock()
    {
        if (!inBlock() || inComplex()) return ErrNo::badType;
        const std::unique_ptr<PendingEntity> whole = std::move(pending_);
        std::string name(whole->block->name());
        if (name.starts_with("*")) name = drawing_.anonymousBlockName(name.substr(0, 2));
        Index block = drawing_.findRecord(TableId::blockRecord, name);
        if (block == kNone) {
            block = drawing_.addBlock(name);
        } else { // a new definition of the same block
            for (Index old = drawing_.firstChild(block); old != kNone; old = drawing_.next(old))
                drawing_.setErased(old, true);
            drawing_.dropChildren(block);
        }
        const Index begin = drawing_.at(block).extras()->blockBegin;
        TagList tags = whole->block->tags;
        const bool hasAttributes =
            std::any_of(whole->contents.begin(), whole->contents.end(),
                        [](const Assembly& a) { return a.record.kind() == Kind::attdef; });
        const std::int64_t anonymous = name.starts_with("*") ? 1 : 0;
        TagList names, otherName, flags;
        names.addText(2, name);
        otherName.addText(3, name);
        flags.addInteger(70, (tags.integer(70) & ~std::int64_t{3}) | anonymous |
                                 (hasAttributes ? 2 : 0));
        tags.replace(tags.find(2), names);
        tags.replace(tags.find(3), otherName);
        tags.replace(tags.find(70), flags);
        drawing_.needLayer(tags.text(8));
        drawing_.edit(begin).tags = std::move(tags);
        for (Assembly& assembly : whole->contents) hang(std::move(assembly), block);
        made_.id = drawing_.idOf(block);
        made_.blockName = name;
        return ErrNo::none;
    }

    /// True when an insert of that block inside the block being defined would contain itself.
    bool leadsBack(std::string_view name) const
    {
        const Index wanted = drawing_.findRecord(TableId::blockRecord, pending_->block->name());
        const std::vector<Index> blocks = drawing_.blocksInside(name);
        return std::find(blocks.begin(), blocks.end(), wanted) != blocks.end();
    }

    // Table records and objects ----------------------------------------------------------------

    ErrNo makeTableRecord()
    {
        TableId table{};
        if (pending_ || !tableOf(given_.type, table) || !build()) return ErrNo::badType;
        if (record_.tags.findMarker(recordMarker(table)) == record_.tags.end())
            return ErrNo::badType;
        const std::string name(record_.name());
        const bool shapeFile = table == TableId::style && name.empty();
        if ((!shapeFile && !isSymbolName(name)) || drawing_.findRecord(table, name) != kNone)
            return ErrNo::badType;
        if (table == TableId::layer) drawing_.completeLayer(record_.tags);
        const Index index = drawing_.add(std::move(record_));
        drawing_.appendRecord(table, index);
        made_.id = drawing_.idOf(index);
        return ErrNo::none;
    }

    ErrNo makeObject()
    {
        if (pending_) return ErrNo::badType;
        if (isDictionary(record_.kind())) {
            if (given_.groups.findMarker("AcDbDictionary") == given_.groups.end())
                return ErrNo::badType;
            const Index index = drawing_.addDictionary(given_.groups.integer(280) == 1);
            made_.id = drawing_.idOf(index);
            return ErrNo::none;
        }
        if (record_.kind() == Kind::xrecord && !cleanXrecord()) return ErrNo::badType;
        if (!build()) return ErrNo::badType;
        made_.id = drawing_.idOf(drawing_.add(std::move(record_)));
        return ErrNo::none;
    }

    /// An xrecord has its marker in front and the cloning flag behind it.
    bool cleanXrecord()
    {
        TagList& groups = given_.groups;
        if (groups.empty() || !((*groups.begin()).code() == 100) ||
            (*groups.begin()).text() != "AcDbXrecord")
            return false;
        for (const Tag tag : groups)
            if ((tag.code() > 369 && tag.code() < 1000) || tag.code() == 1001) return false;
        const auto second = std::next(groups.begin());
        if (second == groups.end() || (*second).code() != 280) {
            TagList flag;
            flag.addInteger(280, 1);
            groups.insert(second, flag);
        }
        return true;
    }

    Drawing& drawing_;
    std::unique_ptr<PendingEntity>& pending_;
    EntityFunctions::Made& made_;
    Given given_;
    Record record_;
};

} // namespace

ErrNo EntityFunctions::entMake(const resbuf* chain, Made& made)
{
    made = {};
    if (chain == nullptr) {
        pending_.reset();
        return ErrNo::none;
    }
    const ErrNo error = Maker(drawing_, pending_, made).make(chain);
    if (error != ErrNo::none) pending_.reset();
    return error;
}

} // namespace orvald::drawing
