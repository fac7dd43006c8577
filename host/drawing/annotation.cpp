// SPDX-License-Identifier: LicenseRef-ORVALD
#include "drawing/annotation.h"

#include "drawing/text.h"

#include <algorithm>
#include <charconv>

namespace orvald::drawing {
namespace {

constexpr std::string_view kScaleList = "ACAD_SCALELIST";
constexpr std::string_view kManager = "AcDbContextDataManager";
constexpr std::string_view kScales = "ACDB_ANNOTATIONSCALES";
constexpr std::string_view kApplication = "AcadAnnotative";
constexpr int kDefault = 290; // of a representation: it is the one that others are derived from
constexpr int kScale = 340;   // of a representation: its scale

/// Name of a kind of representation in files and of its class, and the marker of its last part.
struct Representation
{
    std::string_view type, className;
};

/// Types 0 and 1 of a dimension: rotated and aligned.
bool isLinear(const Record& dimension)
{
    constexpr int kTypeBits = 7;
    return (dimension.tags.integer(70) & kTypeBits) <= 1;
}

std::optional<Representation> representationOf(const Record& entity)
{
    switch (entity.kind()) {
    case Kind::text:
    case Kind::attrib:
    case Kind::attdef:
        return Representation{"ACDB_TEXTOBJECTCONTEXTDATA_CLASS", "AcDbTextObjectContextData"};
    case Kind::mtext:
        return Representation{"ACDB_MTEXTOBJECTCONTEXTDATA_CLASS", "AcDbMTextObjectContextData"};
    case Kind::insert:
        return Representation{"ACDB_BLKREFOBJECTCONTEXTDATA_CLASS", "AcDbBlkrefObjectContextData"};
    case Kind::dimension:
        if (isLinear(entity))
            return Representation{"ACDB_ALDIMOBJECTCONTEXTDATA_CLASS",
                                  "AcDbAlignedDimensionObjectContextData"};
        return std::nullopt;
    default: return std::nullopt;
    }
}

void addText(const TagList& entity, TagList& out)
{
    out.addText(100, "AcDbTextObjectContextData");
    out.addInteger(70, entity.integer(72));
    out.addReal(50, entity.real(50));
    const Point insert = entity.point(10);
    out.addPoint(10, insert, true);
    out.addPoint(11, entity.point(11, insert), true);
}

void addParagraphs(const TagList& entity, TagList& out)
{
    out.addText(100, "AcDbMTextObjectContextData");
    out.addInteger(70, entity.integer(71, 1));
    out.addPoint(10, entity.point(11, {1.0, 0.0, 0.0}));
    out.addPoint(11, entity.point(10));
    out.addReal(40, entity.real(41));
    out.addReal(41, 0.0); // height of the frame: as the text needs
    out.addReal(42, entity.real(42));
    out.addReal(43, entity.real(43));
    out.addInteger(71, 0); // no columns
}

void addInsert(const TagList& entity, TagList& out)
{
    out.addText(100, "AcDbBlkrefObjectContextData");
    out.addReal(50, entity.real(50));
    out.addPoint(10, entity.point(10));
    for (const int axis : {41, 42, 43}) out.addReal(axis, entity.real(axis, 1.0));
}

void addDimension(const TagList& entity, TagList& out)
{
    out.addText(100, "AcDbDimensionObjectContextData");
    out.addText(2, entity.text(2));
    out.addInteger(293, 0);
    out.addPoint(10, entity.point(11), true);
    constexpr int kTextPlacedByUser = 128;
    out.addInteger(294, (entity.integer(70) & kTextPlacedByUser) == 0 ? 1 : 0);
    out.addReal(140, entity.real(53));
    // What the dimension style says of lines outside and the fitting of text is not overridden.
    out.addInteger(298, 0);
    out.addInteger(291, 0);
    out.addInteger(70, 3);
    out.addInteger(292, 0);
    out.addInteger(71, 0);
    out.addInteger(280, 0);
    for (const int arrow : {295, 296, 297}) out.addInteger(arrow, 0);
    out.addText(100, "AcDbAlignedDimensionObjectContextData");
    out.addPoint(11, entity.point(10));
}

void needClass(Drawing& drawing, const Representation& representation)
{
    const auto known = std::ranges::any_of(
        drawing.classes, [&](const TagList& row) { return row.text(1) == representation.type; });
    if (known) return;
    TagList row;
    row.addText(1, representation.type);
    row.addText(2, representation.className);
    row.addText(3, "ObjectDBX Classes");
    constexpr int kProxyFlags = 1153; // erase, clone, and the bit of drawings since R13
    row.addInteger(90, kProxyFlags);
    row.addInteger(91, 0);
    row.addInteger(280, 0);
    row.addInteger(281, 0);
    drawing.classes.push_back(std::move(row));
    drawing.noteChange();
}

/// The dictionary of an entity's representations; kNone when it has none.
Index representationsOf(const Drawing& drawing, Index entity)
{
    const Index extension = drawing.byHandle(drawing.at(entity).extensionDictionary());
    return drawing.dictionaryEntry(drawing.dictionaryEntry(extension, kManager), kScales);
}

Index needDictionary(Drawing& drawing, Index above, std::string_view key)
{
    const Index known = drawing.dictionaryEntry(above, key);
    if (drawing.dictionary(known) != nullptr) return known;
    drawing.removeFromDictionary(above, key);
    const Index made = drawing.addDictionary(true);
    drawing.addToDictionary(above, key, made);
    return made;
}

/// Living representations of an entity in the order of their keys.
std::vector<Index> representations(const Drawing& drawing, Index entity)
{
    std::vector<Index> all;
    const Dictionary* entries = drawing.dictionary(representationsOf(drawing, entity));
    if (entries == nullptr) return all;
    for (const Dictionary::Entry& entry : entries->entries()) {
        const Index at = drawing.byHandle(entry.object);
        if (at != kNone && !drawing.at(at).erased) all.push_back(at);
    }
    return all;
}

Index representationAt(const Drawing& drawing, Index entity, Index scale)
{
    for (const Index at : representations(drawing, entity)) {
        if (drawing.at(at).tags.handle(kScale) == drawing.at(scale).handle) return at;
    }
    return kNone;
}

bool isDefault(const Record& representation) { return representation.tags.integer(kDefault) == 1; }

/// The number behind the first letter of a key of the scale list; keys of other forms come last.
std::uint32_t keyNumber(std::string_view key)
{
    std::uint32_t number = 0;
    const char* const end = key.data() + key.size();
    const bool read = key.size() > 1 && std::from_chars(key.data() + 1, end, number).ptr == end;
    return read ? number : 0xFFFFFFFF;
}

/// Position of the application's data in extended data, and of what follows it.
std::pair<TagList::Iterator, TagList::Iterator> markIn(const TagList& xdata)
{
    auto first = xdata.find(1001);
    while (first != xdata.end() && !sameName((*first).text(), kApplication))
        first = xdata.find(1001, std::next(first));
    const auto last = first == xdata.end() ? first : xdata.find(1001, std::next(first));
    return {first, last};
}

void setMark(Record& entity, bool annotative)
{
    TagList& xdata = entity.needExtras().xdata;
    const auto [first, last] = markIn(xdata);
    xdata.erase(first, last);
    if (annotative) {
        xdata.addText(1001, kApplication);
        xdata.addText(1000, "AnnotativeData");
        xdata.addText(1002, "{");
        xdata.addInteger(1070, 1); // version
        xdata.addInteger(1070, 1); // annotative
        xdata.addText(1002, "}");
    }
    entity.trimExtras();
}

} // namespace

// -- the drawing's scale list

std::vector<Index> scaleList(const Drawing& drawing)
{
    std::vector<std::pair<std::uint32_t, Index>> numbered;
    const Index list = drawing.dictionaryEntry(drawing.rootDictionary(), kScaleList);
    if (const Dictionary* scales = drawing.dictionary(list)) {
        for (const Dictionary::Entry& entry : scales->entries()) {
            const Index at = drawing.byHandle(entry.object);
            if (at != kNone && !drawing.at(at).erased)
                numbered.emplace_back(keyNumber(entry.key), at);
        }
    }
    std::ranges::stable_sort(numbered, {}, [](const auto& pair) { return pair.first; });
    std::vector<Index> all;
    for (const auto& [number, at] : numbered) all.push_back(at);
    return all;
}

Index findScale(const Drawing& drawing, std::string_view name)
{
    const std::vector<Index> all = scaleList(drawing);
    const auto found = std::ranges::find_if(
        all, [&](Index at) { return sameName(drawing.at(at).tags.text(300), name); });
    return found == all.end() ? kNone : *found;
}

std::optional<double> scaleFactor(const Record& scale)
{
    const double units = scale.tags.real(141, 1.0);
    if (!(units > 0.0)) return std::nullopt;
    return scale.tags.real(140, 1.0) / units;
}

Index addScale(Drawing& drawing, std::string_view name, double paper, double units)
{
    if (name.empty() || !(paper > 0.0) || !(units > 0.0)) return kNone;
    if (findScale(drawing, name) != kNone) return kNone;
    const Index list = needDictionary(drawing, drawing.rootDictionary(), kScaleList);
    std::uint32_t free = 0;
    for (const Dictionary::Entry& entry : drawing.dictionary(list)->entries()) {
        const std::uint32_t number = keyNumber(entry.key);
        if (number != 0xFFFFFFFF) free = std::max(free, number + 1);
    }
    Record scale("SCALE", Family::object);
    scale.tags.addText(100, "AcDbScale");
    scale.tags.addInteger(70, 0);
    scale.tags.addText(300, name);
    scale.tags.addReal(140, paper);
    scale.tags.addReal(141, units);
    scale.tags.addInteger(290, paper == units ? 1 : 0);
    const Index made = drawing.add(std::move(scale));
    drawing.addToDictionary(list, "A" + std::to_string(free), made);
    return made;
}

// -- scales of an entity

bool canBeAnnotative(const Record& entity) { return representationOf(entity).has_value(); }

bool isAnnotative(const Record& entity)
{
    const Extras* extras = entity.extras();
    if (extras == nullptr) return false;
    auto [at, last] = markIn(extras->xdata);
    std::int64_t number = 0; // the last one counts: version, annotative
    for (; at != last; ++at) {
        if ((*at).code() == 1070) number = (*at).integer();
    }
    return number == 1;
}

void setAnnotative(Drawing& drawing, Index entity, bool annotative)
{
    if (annotative) {
        drawing.registerApp(kApplication);
        setMark(drawing.edit(entity), true);
        return;
    }
    const Index extension = drawing.byHandle(drawing.at(entity).extensionDictionary());
    const Index manager = drawing.dictionaryEntry(extension, kManager);
    const Index held = drawing.dictionaryEntry(manager, kScales);
    for (const Index at : representations(drawing, entity)) drawing.setErased(at, true);
    // The ways to them go too where nothing else stands on them.
    const auto release = [&](Index dictionary) {
        const Dictionary* entries = drawing.dictionary(dictionary);
        if (entries == nullptr) return;
        const bool used = std::ranges::any_of(entries->entries(), [&](const auto& entry) {
            const Index at = drawing.byHandle(entry.object);
            return at != kNone && !drawing.at(at).erased;
        });
        if (!used) drawing.setErased(dictionary, true);
    };
    release(held);
    release(manager);
    if (extension != kNone) drawing.releaseExtensionDictionary(entity);
    setMark(drawing.edit(entity), false);
}

bool hasScale(const Drawing& drawing, Index entity, Index scale)
{
    return representationAt(drawing, entity, scale) != kNone;
}

bool giveScale(Drawing& drawing, Index entity, Index scale)
{
    const std::optional<Representation> kind = representationOf(drawing.at(entity));
    if (!kind || hasScale(drawing, entity, scale)) return false;
    const bool first = representations(drawing, entity).empty();
    Record made(kind->type, Family::object);
    TagList& tags = made.tags;
    tags.addText(100, "AcDbObjectContextData");
    tags.addInteger(70, 4); // version
    tags.addInteger(kDefault, first ? 1 : 0);
    tags.addText(100, "AcDbAnnotScaleObjectContextData");
    tags.addHandle(kScale, drawing.at(scale).handle);
    const TagList& entityTags = drawing.at(entity).tags;
    switch (drawing.at(entity).kind()) {
    case Kind::mtext: addParagraphs(entityTags, tags); break;
    case Kind::insert: addInsert(entityTags, tags); break;
    case Kind::dimension: addDimension(entityTags, tags); break;
    default: addText(entityTags, tags); break;
    }
    needClass(drawing, *kind);
    const Index extension = drawing.needExtensionDictionary(entity);
    const Index held =
        needDictionary(drawing, needDictionary(drawing, extension, kManager), kScales);
    drawing.addToDictionary(held, "*", drawing.add(std::move(made)));
    return true;
}

bool takeScale(Drawing& drawing, Index entity, Index scale)
{
    const Index taken = representationAt(drawing, entity, scale);
    if (taken == kNone) return false;
    const bool wasDefault = isDefault(drawing.at(taken));
    drawing.setErased(taken, true);
    const std::vector<Index> left = representations(drawing, entity);
    if (!wasDefault || left.empty()) return true;
    TagList one;
    one.addInteger(kDefault, 1);
    TagList& tags = drawing.edit(left.front()).tags;
    if (const auto at = tags.find(kDefault); at != tags.end()) tags.replace(at, one);
    return true;
}

} // namespace orvald::drawing
