// SPDX-License-Identifier: LicenseRef-ORVALD
#include "audit/index.h"

#include "drawing/text.h"
#include "number_in.h"
#include "tag_reader.h"

#include <algorithm>

namespace orvald::dxf {

using namespace drawing;

namespace {

// Types that others are asked for, in the order of their places in types_.
enum Type : std::uint16_t
{
    kTable,
    kBlockRecord,
    kPolyline,
    kInsert,
    kDictionary,
    kDictionaryDefault,
    kLayout
};
constexpr std::string_view kTypes[] = {"TABLE",      "BLOCK_RECORD",        "POLYLINE", "INSERT",
                                       "DICTIONARY", "ACDBDICTIONARYWDFLT", "LAYOUT"};

/// References that lead to records of one type. Proxies may stand for any.
struct Leading
{
    std::string_view type;
    int first, last; // groups
    std::string_view to;
};
constexpr Leading kLeading[] = {
    {"DIMSTYLE", 340, 340, "STYLE"},   {"DIMSTYLE", 341, 344, "BLOCK_RECORD"},
    {"DIMSTYLE", 345, 347, "LTYPE"},   {"LAYER", 390, 390, "ACDBPLACEHOLDER"},
    {"LAYER", 347, 347, "MATERIAL"},   {"BLOCK_RECORD", 340, 340, "LAYOUT"},
    {"MLINE", 340, 340, "MLINESTYLE"}, {"IMAGE", 340, 340, "IMAGEDEF"}};

/// The type that a group of a record leads to; "" when it may be any.
std::string_view leadsTo(std::string_view type, int group)
{
    for (const Leading& leading : kLeading)
        if (group >= leading.first && group <= leading.last && type == leading.type)
            return leading.to;
    return {};
}

/// Groups that hold what they name fast; a proxy's are not its own.
bool isHard(int code) { return code >= 340; }

} // namespace

AuditIndex::AuditIndex(Report& report) : report_(report)
{
    for (const std::string_view type : kTypes) typeOf(type);
}

std::uint16_t AuditIndex::typeOf(std::string_view name)
{
    const auto known = typePlaces_.find(std::string(name));
    if (known != typePlaces_.end()) return known->second;
    // A file of rubbish has as many types as records: the rest shares one name.
    if (types_.size() == 0xFFFF) return 0xFFFE;
    const auto place = static_cast<std::uint16_t>(types_.size());
    types_.emplace_back(name);
    return typePlaces_[types_.back()] = place;
}

std::string AuditIndex::nameOf(Index index) const
{
    const Known& known = known_[index];
    return types_[known.type] + (known.handle != 0 ? " " + handleText(known.handle) : "");
}

bool AuditIndex::isDictionary(Index index) const
{
    return isType(index, kDictionary) || isType(index, kDictionaryDefault);
}

void AuditIndex::problem(bool isError, std::string_view kind, Index index, std::string text)
{
    const Known& known = known_[index];
    report_.add({isError, kind, known.line, known.handle, nameOf(index) + ": " + std::move(text)});
}

Index AuditIndex::add(const AuditRecord& record, Place place, TableId table)
{
    const auto index = static_cast<Index>(known_.size());
    known_.push_back({record.handle, record.owner, record.line(), typeOf(record.type()), place,
                      table, record.hasOwner});
    if (place == Place::objects && firstObject_ == kNone) firstObject_ = index;
    if (!record.hasHandle) {
        if (marked_) problem(true, "no-handle", index, "no handle");
        return index;
    }
    largest_ = std::max(largest_, record.handle);
    if (!handles_.add(record.handle, index))
        problem(true, "handle-in-use", index,
                "the handle is that of the " + nameOf(find(record.handle)) + " of line " +
                    std::to_string(known_[find(record.handle)].line));
    if (record.extension != 0) extensions_.push_back({index, 360, record.extension});
    std::set<Handle> listed;
    for (const Handle reactor : record.reactors) {
        if (find(reactor) == kNone) references_.push_back({index, 102, reactor});
        if (record.reactors.size() > 1 && !listed.insert(reactor).second)
            problem(false, "reactor", index, "reactor " + handleText(reactor) + " is listed twice");
    }
    for (std::size_t i = record.bodyBegin(); i < record.bodyEnd(); ++i) {
        const AuditRecord::Group group = record[i];
        Handle to = 0;
        if (group.code < 330 || !isReference(group.code) ||
            readHandle(group.value, to) != Reading::good || to == 0)
            continue;
        if (find(to) == kNone || !leadsTo(record.type(), group.code).empty())
            references_.push_back({index, group.code, to});
    }
    for (std::size_t i = record.bodyEnd(); i < record.size(); ++i) {
        Handle to = 0;
        if (record[i].code == 1005 && readHandle(record[i].value, to) == Reading::good && to != 0 &&
            find(to) == kNone)
            references_.push_back({index, 1005, to});
    }
    return index;
}

void AuditIndex::addEntry(Index dictionary, std::string_view key, Handle object)
{
    entries_.push_back({dictionary, std::string(key), object});
}

void AuditIndex::addLayout(Index layout, bool marker, std::string_view name, Handle blockRecord)
{
    layouts_[layout] = {std::string(name), marker, blockRecord};
}

void AuditIndex::addBlockRecord(Handle handle, std::string_view name, Handle layout)
{
    blockRecords_.try_emplace(handle, BlockRecord{nameKey(name), layout});
}

bool AuditIndex::define(TableId table, std::string_view name)
{
    return names_[std::size_t(table)].insert(nameKey(name)).second;
}

bool AuditIndex::isDefined(TableId table, std::string_view name) const
{
    return names_[std::size_t(table)].contains(nameKey(name));
}

void AuditIndex::use(const AuditRecord& record, TableId table, std::string_view name, bool isError)
{
    if (!isDefined(table, name))
        uses_.push_back(
            {record.name(), record.line(), record.handle, table, std::string(name), isError});
}

// When all is known ----------------------------------------------------------------------------

void AuditIndex::finish()
{
    if (marked_)
        for (Index i = 0; i < known_.size(); ++i) checkOwner(i);
    for (const Reference& extension : extensions_) {
        const Index index = find(extension.to);
        const std::string text = "extension dictionary " + handleText(extension.to);
        if (index == kNone)
            problem(true, "extension-dictionary", extension.from, text + " is missing");
        else if (!isDictionary(index))
            problem(true, "extension-dictionary", extension.from, text + " is no dictionary");
        else if (known_[index].owner != known_[extension.from].handle)
            problem(true, "extension-dictionary", extension.from,
                    text + " is owned by " + handleText(known_[index].owner));
    }
    for (const Reference& reference : references_) checkReference(reference);
    for (const Entry& entry : entries_) checkEntry(entry);
    if (marked_) checkRoot();
    for (const NameUse& use : uses_)
        if (!isDefined(use.table, use.name)) tellUndefined(use);
}

void AuditIndex::tellUndefined(const NameUse& use)
{
    report_.add({use.isError, "undefined-name", use.line, use.handle,
                 use.from + ": " + std::string(tableName(use.table)) + " " + quoted(use.name) +
                     " is not defined"});
}

void AuditIndex::checkOwner(Index index)
{
    const Known& known = known_[index];
    if (known.handle == 0 || find(known.handle) != index) return;
    if (!known.hasOwner) return problem(true, "owner", index, "no owner");
    const bool mayBeFree = isType(index, kTable) || index == firstObject_;
    if (known.owner == 0) {
        if (!mayBeFree) problem(true, "owner", index, "its owner is 0");
        return;
    }
    const Index owner = find(known.owner);
    if (owner == kNone)
        return problem(true, "owner", index,
                       "owner " + handleText(known.owner) + " does not exist");
    const bool isTable = isType(owner, kTable) && known_[owner].table == known.table;
    if (known.place == Place::tables && !isType(index, kTable) && !isTable)
        problem(true, "owner", index, "its owner is not its table");
    if (known.place == Place::entities && !isType(owner, kBlockRecord) &&
        !isType(owner, kPolyline) && !isType(owner, kInsert))
        problem(true, "owner", index, "its owner is a " + nameOf(owner));
}

void AuditIndex::checkReference(const Reference& reference)
{
    const Index target = find(reference.to);
    const std::string_view type = types_[known_[reference.from].type];
    if (target != kNone) {
        const std::string_view wanted = leadsTo(type, reference.code);
        const std::string_view found = types_[known_[target].type];
        if (!wanted.empty() && found != wanted && !found.starts_with("ACAD_PROXY"))
            problem(true, "wrong-kind", reference.from,
                    "group " + std::to_string(reference.code) + " names the " + nameOf(target) +
                        ", which is no " + std::string(wanted));
        return;
    }
    const std::string to = handleText(reference.to) + ", which does not exist";
    if (reference.code == 102)
        return problem(false, "reactor", reference.from, "a reactor is " + to);
    const bool proxy = type.starts_with("ACAD_PROXY");
    const bool isError = isHard(reference.code) && reference.code != 1005 && !proxy;
    problem(isError, "dangling-reference", reference.from,
            "group " + std::to_string(reference.code) + " names " + to);
}

void AuditIndex::checkEntry(const Entry& entry)
{
    const Index object = find(entry.object);
    if (object == kNone) return; // a reference of the dictionary, and told as such
    const std::string key = "entry " + quoted(entry.key);
    if (known_[object].place != Place::objects)
        problem(true, "dictionary-entry", entry.dictionary, key + " is a " + nameOf(object));
    if (object == entry.dictionary)
        problem(true, "dictionary-entry", entry.dictionary, key + " is the dictionary itself");
    else if (known_[object].owner != known_[entry.dictionary].handle)
        problem(true, "dictionary-entry", entry.dictionary,
                key + " is owned by " + handleText(known_[object].owner));
}

void AuditIndex::checkRoot()
{
    if (firstObject_ == kNone) return;
    if (!isType(firstObject_, kDictionary) || known_[firstObject_].owner != 0)
        return problem(true, "root-dictionary", firstObject_,
                       "the first object must be the root dictionary, with owner 0");
    const auto entry = [&](std::string_view key) -> const Entry* {
        for (const Entry& e : entries_)
            if (e.dictionary == firstObject_ && sameName(e.key, key)) return &e;
        return nullptr;
    };
    for (const std::string_view key :
         {"ACAD_GROUP", "ACAD_LAYOUT", "ACAD_PLOTSTYLENAME", "ACAD_MLINESTYLE"}) {
        const bool isError = key == "ACAD_GROUP" || key == "ACAD_LAYOUT";
        if (entry(key) == nullptr)
            problem(isError, "root-dictionary", firstObject_, "no entry " + std::string(key));
    }
    if (const Entry* layouts = entry("ACAD_LAYOUT")) checkLayouts(layouts->object);
}

void AuditIndex::checkLayouts(Handle dictionary)
{
    const Index layouts = find(dictionary);
    if (layouts == kNone || !isType(layouts, kDictionary)) return;
    bool model = false, paper = false;
    for (const Entry& entry : entries_) {
        if (entry.dictionary != layouts) continue;
        const Index index = find(entry.object);
        const auto layout = layouts_.find(index);
        if (index == kNone || layout == layouts_.end()) {
            problem(true, "layout", layouts, "entry " + quoted(entry.key) + " is no layout");
            continue;
        }
        const Layout& given = layout->second;
        if (!given.marker) {
            problem(true, "no-marker", index, "no subclass marker AcDbLayout");
            continue;
        }
        if (given.name != entry.key)
            problem(false, "layout", index, "its name is not its key " + quoted(entry.key));
        const auto block = blockRecords_.find(given.blockRecord);
        if (block == blockRecords_.end())
            problem(true, "layout", index, "it names no BLOCK_RECORD");
        else if (block->second.layout != known_[index].handle)
            problem(true, "layout", index,
                    "BLOCK_RECORD " + handleText(given.blockRecord) + " does not name it back");
        else if (block->second.name == "*MODEL_SPACE") model = true;
        else if (block->second.name == "*PAPER_SPACE") paper = true;
    }
    if (!model) problem(true, "layout", layouts, "no layout for *Model_Space");
    if (!paper) problem(true, "layout", layouts, "no layout for *Paper_Space");
}

} // namespace orvald::dxf
