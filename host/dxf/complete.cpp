// SPDX-License-Identifier: LicenseRef-ORVALD
// Required pieces that a file lacks are taken over from a new drawing.
#include "mend.h"

#include "drawing/clone.h"
#include "drawing/text.h"

#include <algorithm>

namespace orvald::dxf {

using namespace drawing;

namespace {

struct RequiredRecord
{
    TableId table;
    std::string_view name;
};
constexpr RequiredRecord kRecords[] = {{TableId::ltype, "ByBlock"},
                                       {TableId::ltype, "ByLayer"},
                                       {TableId::ltype, "Continuous"},
                                       {TableId::style, "Standard"},
                                       {TableId::appid, "ACAD"},
                                       {TableId::dimstyle, "Standard"},
                                       {TableId::layer, "0"},
                                       {TableId::blockRecord, "*Model_Space"},
                                       {TableId::blockRecord, "*Paper_Space"}};

constexpr std::string_view kEntries[] = {
    "ACAD_COLOR",        "ACAD_GROUP",      "ACAD_LAYOUT",       "ACAD_MATERIAL",
    "ACAD_MLEADERSTYLE", "ACAD_MLINESTYLE", "ACAD_PLOTSETTINGS", "ACAD_PLOTSTYLENAME",
    "ACAD_SCALELIST",    "ACAD_TABLESTYLE", "ACAD_VISUALSTYLE"};

/// Names of header variables and the tables that must know their values.
struct NamingVariable
{
    std::string_view variable;
    TableId table;
    std::string_view fallback;
};
constexpr NamingVariable kNaming[] = {{"$CLAYER", TableId::layer, "0"},
                                      {"$CELTYPE", TableId::ltype, "ByLayer"},
                                      {"$TEXTSTYLE", TableId::style, "Standard"},
                                      {"$DIMSTYLE", TableId::dimstyle, "Standard"}};

class Completer
{
public:
    Completer(Drawing& drawing, Warnings& warnings) : drawing_(drawing), warnings_(warnings) {}

    void run()
    {
        completeTables();
        completeEntries();
        completeLayouts();
        completeLayers();
        completeHeader();
        completeClasses();
    }

private:
    /// The new drawing that pieces come from, with what both drawings have under one name mapped.
    Drawing& source()
    {
        if (source_ != nullptr) return *source_;
        source_ = Drawing::createNew();
        for (std::size_t i = 0; i < kTableCount; ++i) {
            const auto table = static_cast<TableId>(i);
            if (drawing_.tableHead(table) != kNone)
                map(source_->tableHead(table), drawing_.tableHead(table));
            for (const Index theirs : source_->tableRecords(table)) {
                const Index ours = drawing_.findRecord(table, source_->at(theirs).name());
                if (ours != kNone) map(theirs, ours);
            }
        }
        mapDictionary(source_->rootDictionary(), drawing_.rootDictionary());
        return *source_;
    }
    void map(Index theirs, Index ours) { map_[theirs] = ours; }
    void mapDictionary(Index theirs, Index ours)
    {
        map(theirs, ours);
        const Dictionary* entries = source_->dictionary(theirs);
        if (entries == nullptr || drawing_.dictionary(ours) == nullptr) return;
        for (const Dictionary::Entry& entry : entries->entries()) {
            const Index mine = drawing_.dictionaryEntry(ours, entry.key);
            if (mine != kNone) mapDictionary(source_->byHandle(entry.object), mine);
        }
    }
    Index copy(Index theirs) { return copyLoose(source(), theirs, drawing_, map_); }
    void warn(std::string text) { warnings_.add(0, std::move(text)); }

    void completeTables()
    {
        for (std::size_t i = 0; i < kTableCount; ++i) {
            const auto table = static_cast<TableId>(i);
            if (drawing_.tableHead(table) != kNone) continue;
            warn("table " + std::string(tableName(table)) + " is missing: it is made");
            drawing_.setTableHead(table, copy(source().tableHead(table)));
            for (const Index record : drawing_.tableRecords(table))
                drawing_.edit(record).owner = drawing_.at(drawing_.tableHead(table)).handle;
        }
        const Index styles = drawing_.tableHead(TableId::dimstyle);
        const TagList& head = drawing_.at(styles).tags;
        if (head.findMarker("AcDbDimStyleTable") == head.end()) { // R13 and R14 do without
            drawing_.edit(styles).tags.addText(100, "AcDbDimStyleTable");
            drawing_.edit(styles).tags.addInteger(71, 0);
        }
        for (const RequiredRecord& required : kRecords) {
            if (drawing_.findRecord(required.table, required.name) != kNone) continue;
            warn(std::string(tableName(required.table)) + " " + std::string(required.name) +
                 " is missing: it is made");
            const Index made = copy(source().findRecord(required.table, required.name));
            drawing_.appendRecord(required.table, made);
        }
    }

    void completeEntries()
    {
        const Index root = drawing_.rootDictionary();
        for (const std::string_view key : kEntries) {
            if (drawing_.dictionaryEntry(root, key) != kNone) continue;
            if (key == "ACAD_LAYOUT") { // its layouts follow one by one
                drawing_.addToDictionary(root, key, drawing_.addDictionary(false));
                continue;
            }
            const Index theirs = source().dictionaryEntry(source().rootDictionary(), key);
            drawing_.addToDictionary(root, key, copy(theirs));
        }
    }

    /// A layout for the model and for the active sheet, and each block record naming its layout.
    void completeLayouts()
    {
        const Index layouts = drawing_.dictionaryEntry(drawing_.rootDictionary(), "ACAD_LAYOUT");
        if (drawing_.dictionary(layouts) == nullptr) return;
        for (const bool model : {true, false}) {
            const Index block = model ? drawing_.modelSpace() : drawing_.paperSpace();
            if (!drawing_.layoutName(block).empty()) continue;
            Index layout = layoutOf(layouts, block);
            if (layout == kNone) {
                warn(std::string(model ? "the model" : "the sheet") + " has no layout: it is made");
                const Index theirLayouts =
                    source().dictionaryEntry(source().rootDictionary(), "ACAD_LAYOUT");
                map(model ? source().modelSpace() : source().paperSpace(), block);
                layout = copy(source().dictionaryEntry(theirLayouts, model ? "Model" : "Layout1"));
                std::string name = model ? "Model" : "Layout1";
                for (int i = 2; !drawing_.addToDictionary(layouts, name, layout); ++i)
                    name = "Layout" + std::to_string(i);
                rename(layout, name);
            }
            setReference(block, 340, drawing_.at(layout).handle);
        }
    }
    Index layoutOf(Index layouts, Index block) const
    {
        for (const Dictionary::Entry& entry : drawing_.dictionary(layouts)->entries()) {
            const Index layout = drawing_.byHandle(entry.object);
            const TagList& tags = drawing_.at(layout).tags;
            const auto owner = tags.find(330, tags.findMarker("AcDbLayout"));
            if (owner != tags.end() && (*owner).handle() == drawing_.at(block).handle)
                return layout;
        }
        return kNone;
    }
    void rename(Index layout, std::string_view name)
    {
        TagList fresh;
        fresh.addText(1, name);
        TagList& tags = drawing_.edit(layout).tags;
        const auto place = tags.find(1, tags.findMarker("AcDbLayout"));
        if (place != tags.end()) tags.replace(place, fresh);
    }
    void setReference(Index index, int code, Handle handle)
    {
        TagList& tags = drawing_.edit(index).tags;
        const auto place = tags.find(code);
        if (place != tags.end() && (*place).kind() == TagKind::handle) {
            tags.setHandle(place, handle);
        } else {
            tags.addHandle(code, handle);
        }
    }

    /// AutoCAD refuses layers without plot style and material.
    void completeLayers()
    {
        const Index root = drawing_.rootDictionary();
        const Index style = drawing_.dictionaryEntry(
            drawing_.dictionaryEntry(root, "ACAD_PLOTSTYLENAME"), "Normal");
        const Index material =
            drawing_.dictionaryEntry(drawing_.dictionaryEntry(root, "ACAD_MATERIAL"), "Global");
        std::size_t dangling = 0;
        const auto point = [&](Index layer, int code, Index to) {
            const Handle told = drawing_.at(layer).tags.handle(code);
            if (to == kNone || drawing_.byHandle(told) != kNone) return;
            dangling += told != 0 ? 1 : 0;
            setReference(layer, code, drawing_.at(to).handle);
        };
        for (const Index layer : drawing_.tableRecords(TableId::layer)) {
            TagList missing;
            const TagList& tags = drawing_.at(layer).tags;
            if (!tags.has(70)) missing.addInteger(70, 0);
            if (!tags.has(62)) missing.addInteger(62, 7);
            if (!tags.has(6)) missing.addText(6, "Continuous");
            if (!tags.has(370)) missing.addInteger(370, -3);
            if (!missing.empty()) drawing_.edit(layer).tags.append(missing);
            point(layer, 390, style);
            point(layer, 347, material);
        }
        if (dangling != 0)
            warn(std::to_string(dangling) + " plot styles and materials of layers do not exist: "
                                            "layers have the usual ones now");
    }

    void completeHeader()
    {
        for (const NamingVariable& naming : kNaming) {
            const std::string name(drawing_.header.text(naming.variable));
            if (name.empty() || drawing_.findRecord(naming.table, name) != kNone) continue;
            drawing_.header.setText(naming.variable, 2, naming.fallback);
        }
    }

    void completeClasses()
    {
        for (TagList& row : standardClasses()) {
            const bool known =
                std::any_of(drawing_.classes.begin(), drawing_.classes.end(),
                            [&row](const TagList& other) { return other.text(1) == row.text(1); });
            if (!known) drawing_.classes.push_back(std::move(row));
        }
    }

    Drawing& drawing_;
    Warnings& warnings_;
    std::unique_ptr<Drawing> source_;
    std::unordered_map<Index, Index> map_; // places of the source to ours
};

} // namespace

void completeDrawing(Drawing& drawing, Warnings& warnings) { Completer(drawing, warnings).run(); }

} // namespace orvald::dxf
