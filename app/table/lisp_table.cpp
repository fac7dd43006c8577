// SPDX-License-Identifier: LicenseRef-ORVALD
// Joins the families' rows in table order and holds them to their counts: a row too many, a name
// twice or a broken alias does not compile.
#include "table/lisp_table.h"

#include "dbbridge/dbbridge_rows.h"
#include "dialogs/dialogs_rows.h"
#include "domains/acad_rows.h"
#include "domains/ate_rows.h"
#include "domains/b_rows.h"
#include "domains/banister_rows.h"
#include "domains/bar_rows.h"
#include "domains/bgr_rows.h"
#include "domains/build_rows.h"
#include "domains/c3d_rows.h"
#include "domains/clb_rows.h"
#include "domains/dim_rows.h"
#include "domains/drill_rows.h"
#include "domains/dta_rows.h"
#include "domains/dwg_rows.h"
#include "domains/elem_rows.h"
#include "domains/front_rows.h"
#include "domains/gdx_rows.h"
#include "domains/glazing_rows.h"
#include "domains/grid_rows.h"
#include "domains/hz_rows.h"
#include "domains/ifc_rows.h"
#include "domains/ldr_rows.h"
#include "domains/lib_rows.h"
#include "domains/mat_rows.h"
#include "domains/misc_rows.h"
#include "domains/norm_rows.h"
#include "domains/panel_rows.h"
#include "domains/pipe_rows.h"
#include "domains/region_rows.h"
#include "domains/seal_rows.h"
#include "domains/sheet_rows.h"
#include "domains/shell_rows.h"
#include "domains/solid_rows.h"
#include "domains/text_rows.h"
#include "domains/wall_rows.h"
#include "domains/weld_rows.h"
#include "domains/xml3_rows.h"
#include "file/file_rows.h"
#include "functions/app_rows.h"
#include "geom/angle_rows.h"
#include "geom/construction_rows.h"
#include "geom/entity_rows.h"
#include "geom/graphics_rows.h"
#include "geom/line_rows.h"
#include "geom/matrix_rows.h"
#include "geom/plane_rows.h"
#include "geom/point_rows.h"
#include "geom/polygon_rows.h"
#include "geom/prism_rows.h"
#include "geom/region_list_rows.h"
#include "geom/rounding_rows.h"
#include "geom/shape_rows.h"
#include "geom/vertex_list_rows.h"
#include "geom/vertex_lists_rows.h"
#include "geom/vertex_rows.h"
#include "objects/objects_rows.h"
#include "prompt/prompt_rows.h"
#include "str/str_rows.h"

#include <algorithm>

namespace KEX {
namespace {

template <std::size_t... Sizes>
constexpr auto join(const LispRow (&... families)[Sizes])
{
    std::array<LispRow, (Sizes + ...)> all{};
    std::size_t next = 0;
    ((std::ranges::copy(families, all.begin() + next), next += Sizes), ...);
    return all;
}

constexpr auto kTable =
    join(kTextRows, kCommandRows, kStrRows, kFileRows, kDialogStackRows, kPromptRows, kDialogRows,
         kAngleRows, kPointRows, kConstructionRows, kGraphicsRows, kRoundedRows, kLineRows,
         kPlaneRows, kVectorRows, kElevationRows, kViewRows, kShapeRows, kMatrixRows, kPolygonRows,
         kEntityRows, kEntityListRows, kPrismRows, kRegionListRows, kVertexRows, kVertexListRows,
         kVertexListsRows, kXrecordRows, kStrCheckRows, kDataRows, kObjectTypeRows, kObjectDictRows,
         kObjectRows, kVersionRows, kTimeStampRows, kLabelEditRows, kRoundingRows,
         kPanelOutlineRows, kBarRows, kSolidRows, kBgrRows, kGdxRows, kNormRows, kPipeRows,
         kSheetRows, kMatRows, kDimRows, kElemRows, kBRows, kRegionRows, kWeldRows, kAcadRows,
         kAteRows, kLibRows, kPanelRows, kDtaRows, kConfigRows, kXml3Rows, kC3dRows, kBuildRows,
         kBanisterRows, kDrillRows, kLdrRows, kClbRows, kDrawingDictRows, kDwgRows, kWallRows,
         kShellRows, kFrontRows, kHzRows, kIfcRows, kGlazingRows, kGridRows, kSealRows);

static_assert(kTable.size() == kLispCount);
static_assert(TextView(kTable.front().name) == KT("c:convtext"));
static_assert(TextView(kTable.back().name) == KT("kex_seal_vl"));

constexpr bool noNameTwice()
{
    std::array<TextView, kLispCount> names;
    std::ranges::transform(kTable, names.begin(), [](const LispRow& row) { return row.name; });
    std::ranges::sort(names);
    return std::ranges::adjacent_find(names) == names.end();
}
static_assert(noNameTwice());

/// The handler stands before the texts, so it is there too. (The sanitizers take any function's
/// address for one that might be null, so it cannot be asked here.)
constexpr bool noRowEmpty()
{
    return std::ranges::all_of(kTable, [](const LispRow& row) {
        return row.name != nullptr && row.arguments != nullptr && row.result != nullptr;
    });
}
static_assert(noRowEmpty());

/// Rows whose names begin so.
constexpr auto countOf(std::initializer_list<TextView> prefixes)
{
    return std::ranges::count_if(kTable, [&](const LispRow& row) {
        return std::ranges::any_of(
            prefixes, [&](TextView prefix) { return TextView(row.name).starts_with(prefix); });
    });
}
static_assert(countOf({KT("kex_g_vl_")}) == 95);
static_assert(countOf({KT("kex_g_vx_")}) == 24);
static_assert(countOf({KT("kex_g_vll_"), KT("kex_g_xv"), KT("kex_g_gv")}) == 21);
static_assert(std::size(kAngleRows) == 31);
static_assert(countOf({KT("kex_g_")}) == 95 + 24 + 21 + 31 + 154);
static_assert(countOf({KT("kex_str_"), KT("kex_chr"), KT("kex_ascii")}) == 36);
static_assert(countOf({KT("kex_file_")}) == 22);
static_assert(countOf({KT("kex_dl_")}) == 47 && countOf({KT("kex_msg_")}) == 5);
static_assert(countOf({KT("kex_d_")}) == 31);
static_assert(countOf({KT("kex_xr_"), KT("kex_xd_"), KT("kex_dxr_"), KT("kex_dict_")}) == 13);
static_assert(countOf({KT("kex_obj_")}) == 47);
static_assert(countOf({KT("kex_lobj_"), KT("kex_logi_")}) == 16);
static_assert(countOf({KT("kex_net_")}) == 15);
static_assert(countOf({KT("kex_dlg_")}) == 3);
static_assert(countOf({KT("kex_cfg_")}) == 8);

/// Two names of one function.
struct Alias
{
    TextView name, same;
};
constexpr Alias kAliases[] = {
    {KT("kex_solid_create"), KT("kex_solid_open")},
    {KT("kex_solid_destroy"), KT("kex_solid_close")},
    {KT("c:kex_cfg_get"), KT("kex_cfg_get")},
    {KT("kex_g_e_annoscales"), KT("kex_dim_annoscales")},
    {KT("kex_g_e_annoscales_set"), KT("kex_dim_annoscales_set")},
    {KT("kex_g_vl_offset1"), KT("kex_g_vl_offset")},
    {KT("kex_d_bez_get"), KT("kex_d_label_get")},
    {KT("kex_d_bez_set"), KT("kex_d_label_set")},
    // A data check and a conversion of strings: one handler, wanted so.
    {KT("kex_d_chkarg"), KT("kex_str_atowin")},
    {KT("kex_d_xdflush"), KT("kex_xd_flush")},
    {KT("kex_dl_StatusBarRestore"), KT("kex_dl_StatusBarStop")},
    {KT("kex_dl_getmsg"), KT("kex_dl_msg_get")},
    {KT("kex_obj_inters"), KT("kex_g_e_inters")},
    {KT("kex_obj_type_bez"), KT("kex_obj_type_label")},
};

constexpr bool aliasesShare()
{
    const auto rowOf = [](TextView name) {
        return std::ranges::find(kTable, name, [](const LispRow& r) { return TextView(r.name); });
    };
    return std::ranges::all_of(kAliases, [&](const Alias& alias) {
        const auto row = rowOf(alias.name), same = rowOf(alias.same);
        return row != kTable.end() && same != kTable.end() && row->handler == same->handler;
    });
}
static_assert(std::size(kAliases) == 14 && aliasesShare());

} // namespace

constinit const std::array<LispRow, kLispCount> kexLispTable = kTable;

} // namespace KEX
