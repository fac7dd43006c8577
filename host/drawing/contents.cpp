// SPDX-License-Identifier: LicenseRef-ORVALD
#include "drawing/contents.h"

#include "drawing/text.h"
#include "drawing/views.h"

#include <algorithm>

namespace orvald::drawing {
namespace {

/// Units of $INSUNITS.
constexpr std::string_view kUnits[] = {
    "",    "in",         "ft",       "mi",    "mm",     "cm",    "m",    "km", "microinch",
    "mil", "yd",         "angstrom", "nm",    "micron", "dm",    "dam",  "hm", "Gm",
    "AU",  "light year", "parsec",   "US ft", "US in",  "US yd", "US mi"};

/// Types of the host platform that need a class, beside those whose names begin as below.
constexpr std::string_view kPlatformTypes[] = {"ARC_DIMENSION",
                                               "CAMERA",
                                               "CELLSTYLEMAP",
                                               "DATALINK",
                                               "DATATABLE",
                                               "DBCOLOR",
                                               "DGNDEFINITION",
                                               "DGNUNDERLAY",
                                               "DICTIONARYVAR",
                                               "DWFDEFINITION",
                                               "DWFUNDERLAY",
                                               "EXTRUDEDSURFACE",
                                               "FIELD",
                                               "FIELDLIST",
                                               "GEODATA",
                                               "GEOMAPIMAGE",
                                               "GEOPOSITIONMARKER",
                                               "GROUP",
                                               "HELIX",
                                               "IDBUFFER",
                                               "IMAGE",
                                               "IMAGEDEF",
                                               "IMAGEDEF_REACTOR",
                                               "LARGE_RADIAL_DIMENSION",
                                               "LAYER_FILTER",
                                               "LAYER_INDEX",
                                               "LIGHT",
                                               "LIGHTLIST",
                                               "LOFTEDSURFACE",
                                               "MENTALRAYRENDERSETTINGS",
                                               "MESH",
                                               "MULTILEADER",
                                               "NURBSURFACE",
                                               "OBJECT_PTR",
                                               "OLE2FRAME",
                                               "OLEFRAME",
                                               "PDFDEFINITION",
                                               "PDFUNDERLAY",
                                               "PLANESURFACE",
                                               "POINTCLOUD",
                                               "POINTCLOUDDEF",
                                               "POINTCLOUDEX",
                                               "RASTERVARIABLES",
                                               "RENDERENVIRONMENT",
                                               "RENDERGLOBAL",
                                               "RENDERSETTINGS",
                                               "REVOLVEDSURFACE",
                                               "RTEXT",
                                               "SCALE",
                                               "SECTION",
                                               "SECTIONMANAGER",
                                               "SECTIONOBJECT",
                                               "SECTIONSETTINGS",
                                               "SHAPE",
                                               "SORTENTSTABLE",
                                               "SPATIAL_FILTER",
                                               "SPATIAL_INDEX",
                                               "SUN",
                                               "SURFACE",
                                               "SWEPTSURFACE",
                                               "TABLEGEOMETRY",
                                               "TABLESTYLE",
                                               "VBA_PROJECT",
                                               "VISUALSTYLE",
                                               "WIPEOUT",
                                               "WIPEOUTVARIABLES"};
static_assert(std::is_sorted(std::begin(kPlatformTypes), std::end(kPlatformTypes)));
constexpr std::string_view kPlatformPrefixes[] = {"ACAD_", "ACDB", "ACSH_", "BLOCK"};

bool isForeign(const Record& record)
{
    if (record.kind() == Kind::proxyEntity || record.kind() == Kind::proxyObject) return true;
    if (record.kind() != Kind::other) return false;
    const std::string_view type = record.typeName();
    return !std::binary_search(std::begin(kPlatformTypes), std::end(kPlatformTypes), type) &&
           std::none_of(std::begin(kPlatformPrefixes), std::end(kPlatformPrefixes),
                        [&](std::string_view prefix) { return type.starts_with(prefix); });
}

/// The class of a record: a proxy tells its number, others their type.
const TagList* classOf(const Drawing& drawing, const Record& record)
{
    constexpr std::int64_t kFirstClass = 500;
    const auto& classes = drawing.classes;
    if (record.kind() != Kind::other) {
        const std::int64_t number = record.tags.integer(91) - kFirstClass;
        const bool known = number >= 0 && number < static_cast<std::int64_t>(classes.size());
        return known ? &classes[static_cast<std::size_t>(number)] : nullptr;
    }
    const auto found = std::find_if(classes.begin(), classes.end(), [&](const TagList& row) {
        return row.text(1) == record.typeName();
    });
    return found == classes.end() ? nullptr : &*found;
}

class Counter
{
public:
    Counter(const Drawing& drawing, Contents& contents) : drawing_(drawing), contents_(contents) {}

    void run()
    {
        const auto unit = static_cast<std::size_t>(drawing_.header.integer("$INSUNITS"));
        if (unit < std::size(kUnits)) contents_.units = kUnits[unit];
        if (drawing_.modelSpace() != kNone)
            contents_.model = blockExtents(drawing_, drawing_.modelSpace());
        addLayers();
        addBlocks();
        for (Index i = 0; i < drawing_.recordCount(); ++i) {
            const Record& record = drawing_.at(i);
            if (record.undone || drawing_.isGone(i)) continue;
            if (record.isMainEntity()) countEntity(i);
            else if (record.family() == Family::object) ++objects_[record.typeName()];
            if (isForeign(record)) countForeign(record);
        }
        contents_.entities.insert(entities_.begin(), entities_.end());
        contents_.objects.insert(objects_.begin(), objects_.end());
        addLayouts();
    }

private:
    void addLayers()
    {
        for (const Index index : drawing_.tableRecords(TableId::layer)) {
            const Record& layer = drawing_.at(index);
            if (layer.erased) continue;
            const std::int64_t colour = layer.tags.integer(62, 7), flags = layer.tags.integer(70);
            layers_[index] = contents_.layers.size();
            contents_.layers.push_back({text8(layer.name()), text8(layer.tags.text(6)),
                                        static_cast<int>(colour < 0 ? -colour : colour), colour < 0,
                                        (flags & 1) != 0, (flags & 4) != 0, 0});
        }
    }

    void addBlocks()
    {
        for (const Index index : drawing_.tableRecords(TableId::blockRecord)) {
            const Record& block = drawing_.at(index);
            if (block.erased || drawing_.isLayoutBlock(index)) continue;
            BlockContents row;
            row.name = text8(block.name());
            const Extras* extras = block.extras();
            if (extras != nullptr && extras->blockBegin != kNone) {
                const TagList& begin = drawing_.at(extras->blockBegin).tags;
                row.isReference = (begin.integer(70) & 4) != 0;
                if (row.isReference) row.path = text8(begin.text(1));
            }
            blocks_[index] = contents_.blocks.size();
            contents_.blocks.push_back(std::move(row));
        }
    }

    void countEntity(Index index)
    {
        const Record& record = drawing_.at(index);
        ++entities_[record.typeName()];
        const Index block = drawing_.blockOf(index);
        if (block == kNone) return;
        if (const auto row = blocks_.find(block); row != blocks_.end()) {
            ++contents_.inBlocks;
            ++contents_.blocks[row->second].entities;
        } else {
            ++(block == drawing_.modelSpace() ? contents_.inModel : contents_.inSheets);
        }
        const auto layer = layers_.find(drawing_.findRecord(TableId::layer, record.layer()));
        if (layer != layers_.end()) ++contents_.layers[layer->second].entities;
        if (record.kind() != Kind::insert) return;
        const auto shown = blocks_.find(drawing_.findRecord(TableId::blockRecord, record.name()));
        if (shown != blocks_.end()) ++contents_.blocks[shown->second].inserts;
    }

    void countForeign(const Record& record)
    {
        const TagList* row = classOf(drawing_, record);
        const bool proxy = record.kind() != Kind::other;
        ForeignType& type =
            contents_.foreign[text8(proxy && row != nullptr ? row->text(1) : record.typeName())];
        if (++type.count != 1 || row == nullptr) return;
        type.className = text8(row->text(2));
        type.application = text8(row->text(3));
    }

    void addLayouts()
    {
        const Index layouts = drawing_.dictionaryEntry(drawing_.rootDictionary(), "ACAD_LAYOUT");
        const Dictionary* entries = drawing_.dictionary(layouts);
        if (entries == nullptr) return;
        std::vector<std::pair<std::int64_t, std::string>> tabs;
        for (const Dictionary::Entry& entry : entries->entries()) {
            const TagList& tags = drawing_.at(drawing_.byHandle(entry.object)).tags;
            const auto order = tags.find(71, tags.findMarker("AcDbLayout"));
            tabs.emplace_back(order == tags.end() ? 0 : (*order).integer(), text8(entry.key));
        }
        std::sort(tabs.begin(), tabs.end());
        for (auto& [order, name] : tabs) contents_.layouts.push_back(std::move(name));
    }

    const Drawing& drawing_;
    Contents& contents_;
    std::unordered_map<Index, std::size_t> layers_, blocks_; // to their rows
    std::map<std::string_view, std::size_t> entities_, objects_;
};

} // namespace

Contents contentsOf(const Drawing& drawing)
{
    Contents contents;
    Counter(drawing, contents).run();
    return contents;
}

} // namespace orvald::drawing
