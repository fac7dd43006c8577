// SPDX-License-Identifier: LicenseRef-ORVALD
// Handlers of the probe module, which runs them through the dispatcher of the product.
#pragma once

#include "marshal/lisp_row.h"

namespace probe {

// probe_results.cpp: each returns one kernel type.
KEX::LispFn retFlag, retInt, retShortChain, retReal, retText, retNullText, retPoint, retVector,
    retFour, retName, retId, retNullName, retIds, retEnames, retPoints, retInts, retShorts,
    retReals, retTexts, retVertex, retVertexList, retVertexLists, retRegions, retExtended,
    retExtendedLists, retPointLists, retTextLists, retNorm, retNormNone, retMatrix, retItem,
    retNoItem, retTextMap, retTextsMap, retKeys, retDxfNode, retMiddleDot, retClosingDot,
    retNothing, retThenFail, retUnbalanced;
// probe_arguments.cpp
KEX::LispFn argPrint, argEcho, argEnames, argIds, argReader, argItem, argChangeInPlace,
    argConfigure, argDialog;
// probe_faults.cpp
KEX::LispFn faultRead, faultWrite, faultDivide, faultIllegal, faultCall, faultStack, faultPromise,
    faultNoexcept, faultDestructor, faultSort, faultPending, throwText, throwStandard, faultInDepth,
    faultNever;

} // namespace probe
