// SPDX-License-Identifier: LicenseRef-ORVALD
#include "geom/annotation_scales.h"

#include "hostapi/annotation.h"
#include "kex/unit_text.h"
#include "kexobj/open_object.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <vector>

namespace KEX {
namespace {

using Scale = std::unique_ptr<AcDbObjectContext>;

CKexString nameOf(const AcDbObjectContext& scale)
{
    AcString name;
    scale.getName(name);
    return name.kwszPtr();
}

AcDbObjectContextCollection* scalesOf(const AcDbDatabase& database)
{
    const AcDbObjectContextManager* manager = database.objectContextManager();
    return manager == nullptr ? nullptr
                              : manager->contextCollection(ACDB_ANNOTATIONSCALES_COLLECTION);
}

/// All scales of a drawing in their order.
std::vector<Scale> allScales(const AcDbObjectContextCollection& collection)
{
    std::vector<Scale> all;
    const std::unique_ptr<AcDbObjectContextCollectionIterator> at(collection.newIterator());
    for (; at != nullptr && !at->done(); at->next()) {
        AcDbObjectContext* scale = nullptr;
        if (at->getContext(scale) == Acad::eOk) all.emplace_back(scale);
    }
    return all;
}

/// The scale that "a:b" means.
std::optional<AcDbAnnotationScale> scaleFrom(const CKexString& name)
{
    const TextView text = name;
    const std::size_t colon = text.find(KT(':'));
    if (colon == TextView::npos) return std::nullopt;
    double paper = 0.0, units = 0.0;
    if (!str_to_number(text.substr(0, colon), paper) ||
        !str_to_number(text.substr(colon + 1), units))
        return std::nullopt;
    std::optional<AcDbAnnotationScale> scale(std::in_place);
    scale->setName(name.c_str());
    const bool fits =
        scale->setPaperUnits(paper) == Acad::eOk && scale->setDrawingUnits(units) == Acad::eOk;
    if (!fits) scale.reset();
    return scale;
}

/// Adds the scales that are missing; gives the names that are scales afterwards.
CKexArrayTempl<CKexString> needScales(AcDbObjectContextCollection& collection,
                                      const CKexArrayTempl<CKexString>& names)
{
    CKexArrayTempl<CKexString> known;
    for (const CKexString& name : names) {
        bool has = collection.hasContext(name.c_str());
        if (!has) {
            const std::optional<AcDbAnnotationScale> scale = scaleFrom(name);
            has = scale && collection.addContext(&*scale) == Acad::eOk;
        }
        if (has) known.append(name);
    }
    return known;
}

bool contains(const CKexArrayTempl<CKexString>& names, const CKexString& name)
{
    return std::any_of(names.begin(), names.end(),
                       [&](const CKexString& other) { return equalNoCase(other, name); });
}

} // namespace

CKexArrayTempl<CKexString> annotationScales(const CAdsName& name)
{
    CKexArrayTempl<CKexString> names;
    const OpenObject<AcDbEntity> entity(objectIdOf(name));
    if (!entity) return names;
    const AcDbAnnotativeObjectPE* annotative = ACRX_PE_PTR(entity.get(), AcDbAnnotativeObjectPE);
    const auto* contexts = ACRX_PE_PTR(entity.get(), AcDbObjectContextInterface);
    const AcDbObjectContextCollection* collection = scalesOf(*entity->database());
    const bool asks = annotative != nullptr && contexts != nullptr && collection != nullptr;
    if (!asks || !annotative->annotative(entity.get())) return names;
    for (const Scale& scale : allScales(*collection)) {
        if (contexts->hasContext(entity.get(), *scale)) names.append(nameOf(*scale));
    }
    return names;
}

bool setAnnotationScales(const CAdsName& name, const CKexArrayTempl<CKexString>& names)
{
    const OpenObject<AcDbEntity> entity(objectIdOf(name), AcDb::kForWrite);
    if (!entity) return false;
    const AcDbAnnotativeObjectPE* annotative = ACRX_PE_PTR(entity.get(), AcDbAnnotativeObjectPE);
    const auto* contexts = ACRX_PE_PTR(entity.get(), AcDbObjectContextInterface);
    AcDbObjectContextCollection* collection = scalesOf(*entity->database());
    if (annotative == nullptr || contexts == nullptr || collection == nullptr) return false;
    const bool suitable =
        contexts->supportsCollection(entity.get(), ACDB_ANNOTATIONSCALES_COLLECTION);
    if (names.isEmpty()) {
        if (!suitable && !annotative->annotative(entity.get())) return false;
        return annotative->setAnnotative(entity.get(), false) == Acad::eOk;
    }
    if (!suitable) return false;
    const CKexArrayTempl<CKexString> wanted = needScales(*collection, names);
    if (wanted.isEmpty() || annotative->setAnnotative(entity.get(), true) != Acad::eOk)
        return false;
    // First those that come, as an annotative entity keeps one at every moment.
    const std::vector<Scale> scales = allScales(*collection);
    for (const bool coming : {true, false}) {
        for (const Scale& scale : scales) {
            if (contains(wanted, nameOf(*scale)) != coming) continue;
            if (contexts->hasContext(entity.get(), *scale) == coming) continue;
            if (coming) contexts->addContext(entity.get(), *scale);
            else contexts->removeContext(entity.get(), *scale);
        }
    }
    return true;
}

} // namespace KEX
