// SPDX-License-Identifier: LicenseRef-ORVALD
#include "probe.h"

#include "dispatch/dispatch.h"
#include "hostapi/arxapp.h"
#include "kex/fault.h"

namespace probe {
namespace {

constexpr KEX::LispRow kRows[] = {
    {KT("probe_flag"), retFlag, KT(""), KT("")},
    {KT("probe_int"), retInt, KT(""), KT("")},
    {KT("probe_short_chain"), retShortChain, KT(""), KT("")},
    {KT("probe_real"), retReal, KT(""), KT("")},
    {KT("probe_text"), retText, KT(""), KT("")},
    {KT("probe_null_text"), retNullText, KT(""), KT("")},
    {KT("probe_point"), retPoint, KT(""), KT("")},
    {KT("probe_vector"), retVector, KT(""), KT("")},
    {KT("probe_four"), retFour, KT(""), KT("")},
    {KT("probe_name"), retName, KT(""), KT("")},
    {KT("probe_id"), retId, KT(""), KT("")},
    {KT("probe_null_name"), retNullName, KT(""), KT("")},
    {KT("probe_ids"), retIds, KT(""), KT("")},
    {KT("probe_enames"), retEnames, KT(""), KT("")},
    {KT("probe_points"), retPoints, KT(""), KT("")},
    {KT("probe_ints"), retInts, KT(""), KT("")},
    {KT("probe_shorts"), retShorts, KT(""), KT("")},
    {KT("probe_reals"), retReals, KT(""), KT("")},
    {KT("probe_texts"), retTexts, KT(""), KT("")},
    {KT("probe_vertex"), retVertex, KT(""), KT("")},
    {KT("probe_vertex_list"), retVertexList, KT(""), KT("")},
    {KT("probe_vertex_lists"), retVertexLists, KT(""), KT("")},
    {KT("probe_regions"), retRegions, KT(""), KT("")},
    {KT("probe_extended"), retExtended, KT(""), KT("")},
    {KT("probe_extended_lists"), retExtendedLists, KT(""), KT("")},
    {KT("probe_point_lists"), retPointLists, KT(""), KT("")},
    {KT("probe_text_lists"), retTextLists, KT(""), KT("")},
    {KT("probe_norm"), retNorm, KT(""), KT("")},
    {KT("probe_norm_none"), retNormNone, KT(""), KT("")},
    {KT("probe_matrix"), retMatrix, KT(""), KT("")},
    {KT("probe_item"), retItem, KT(""), KT("")},
    {KT("probe_no_item"), retNoItem, KT(""), KT("")},
    {KT("probe_text_map"), retTextMap, KT(""), KT("")},
    {KT("probe_texts_map"), retTextsMap, KT(""), KT("")},
    {KT("probe_keys"), retKeys, KT(""), KT("")},
    {KT("probe_dxf_node"), retDxfNode, KT(""), KT("")},
    {KT("probe_middle_dot"), retMiddleDot, KT(""), KT("")},
    {KT("probe_closing_dot"), retClosingDot, KT(""), KT("")},
    {KT("probe_nothing"), retNothing, KT(""), KT("")},
    {KT("probe_then_fail"), retThenFail, KT(""), KT("")},
    {KT("probe_unbalanced"), retUnbalanced, KT(""), KT("")},
    {KT("probe_print"), argPrint, KT(""), KT("")},
    {KT("probe_echo"), argEcho, KT(""), KT("")},
    {KT("probe_from_rb"), argEnames, KT(""), KT("")},
    {KT("probe_from_rb_ids"), argIds, KT(""), KT("")},
    {KT("probe_reader"), argReader, KT(""), KT("")},
    {KT("probe_data"), argItem, KT(""), KT("")},
    {KT("probe_in_place"), argChangeInPlace, KT(""), KT("")},
    {KT("probe_cfg_set"), argConfigure, KT(""), KT("")},
    {KT("probe_dialog"), argDialog, KT(""), KT("")},
    {KT("c:probe_read"), faultRead, KT(""), KT("")},
    {KT("probe_write"), faultWrite, KT(""), KT("")},
    {KT("probe_divide"), faultDivide, KT(""), KT("")},
    {KT("probe_illegal"), faultIllegal, KT(""), KT("")},
    {KT("probe_call"), faultCall, KT(""), KT("")},
    {KT("probe_stack"), faultStack, KT(""), KT("")},
    {KT("probe_promise"), faultPromise, KT(""), KT("")},
    {KT("probe_noexcept"), faultNoexcept, KT(""), KT("")},
    {KT("probe_destructor"), faultDestructor, KT(""), KT("")},
    {KT("probe_sort"), faultSort, KT(""), KT("")},
    {KT("probe_pending"), faultPending, KT(""), KT("")},
    {KT("probe_in_depth"), faultInDepth, KT(""), KT("")},
    {KT("probe_never"), faultNever, KT(""), KT("")},
    {KT("probe_throw_text"), throwText, KT(""), KT("")},
    {KT("probe_throw"), throwStandard, KT(""), KT("")},
    {KT("probe_not_built"), KEX::notBuilt, KT(""), KT("")},
};

class ProbeApp final : public AcRxArxApp
{
public:
    AcRx::AppRetCode On_kLoadDwgMsg(void*) override
    {
        KEX::setLispTable(kRows);
        KEX::kexLispDefineAll();
        return AcRx::kRetOK;
    }
    AcRx::AppRetCode On_kUnloadDwgMsg(void*) override
    {
        KEX::kexLispUndefineAll();
        return AcRx::kRetOK;
    }
};

} // namespace
} // namespace probe

extern "C" ACRX_EXPORT AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode message, void* packet)
{
    static probe::ProbeApp app;
    return app.acrxEntryPoint(message, packet);
}
