// SPDX-License-Identifier: LicenseRef-ORVALD
#include "lifecycle/drawing_start.h"

#include "hostapi/database.h"
#include "hostapi/lisp.h"
#include "kex/files.h"
#include "kex/system.h"
#include "kex/units.h"
#include "kexdata/configuration.h"

namespace KEX {
namespace {

/// A configuration directory that is read from a data file once, when the host's search path has
/// it.
struct DataFile
{
    const ACHAR* key;
    const ACHAR* file;
};
constexpr DataFile kDataFiles[] = {{KT("*KEX_MAT*"), KT("kex_mat.dex")},
                                   {KT("*KEX_LAYER*"), KT("kex_layer.dex")}};
constexpr const ACHAR* kApplications[] = {KT("ORV_SEAL"), KT("ORV_PANEL"), KT("ORV_BAR")};

void readDataFiles()
{
    for (const DataFile& data : kDataFiles) {
        if (cfg_get(data.key) != nullptr) continue;
        const CKexString file = dataFileName(data.file, false);
        if (fileExists(file)) cfg_bread(data.key, file);
    }
}

void setUnits(AcDbDatabase& database)
{
    const int unit = database.insunits();
    acad_unit_set(unit);
    database.setMeasurement(acad_unit_imperial(unit) ? AcDb::kEnglish : AcDb::kMetric);
}

} // namespace

void startDrawing()
{
    cfg_set(KT("*CVPORT*"), CKexDataItem(sysVarInt(KT("CVPORT"), 0)));
    AcDbDatabase* const database = acdbHostApplicationServices()->workingDatabase();
    if (database != nullptr) setUnits(*database);
    readDataFiles();
    cfg_rem(KT("*MAT"));
    cfg_mkdir(KT("*KEX_OUTLINE*"));
    if (database == nullptr || database->isPartiallyOpened()) return;
    for (const ACHAR* application : kApplications) acdbRegApp(application);
}

} // namespace KEX
