// SPDX-License-Identifier: LicenseRef-ORVALD
// The chain printer. It walks the nodes once and keeps only the depth, so that a chain of any shape
// and length prints.
#include "kex/rb_print.h"

#include "kex/entity.h"
#include "kex/format.h"

#include <cmath>

namespace KEX {
namespace {

CKexString realText(double value)
{
    if (!std::isfinite(value)) return format(KT("nil ;|{}|;"), value);
    CKexString text = format(KT("{}"), value);
    if (text.findOneOf(KT(".e")) < 0) text += KT(".0");
    return text;
}

CKexString quoted(const ACHAR* text)
{
    CKexString result = KT("\"");
    for (const ACHAR unit : TextView(text)) {
        switch (unit) {
        case KT('\n'): result += KT("\\n"); break;
        case KT('\t'): result += KT("\\t"); break;
        case KT('\r'): result += KT("\\r"); break;
        case 27: result += KT("\\e"); break;
        case KT('"'):
        case KT('\\'):
            result += KT('\\');
            result += unit;
            break;
        default:
            if (unit < 32) {
                result += format(KT("\\0{}{}"), unit / 8, unit % 8);
            } else {
                result += unit;
            }
        }
    }
    return result + KT('"');
}

CKexString entityText(const std::int32_t* name)
{
    const CKexString handle = entityHandle(CAdsName(name));
    if (handle.isNull()) return format(KT("nil ;|entity {},{}|;"), name[0], name[1]);
    return format(KT("(handent {})"), quoted(handle.c_str()));
}

/// The coordinates, with blanks between them.
CKexString pointText(const double* point, int coordinates)
{
    CKexString text = realText(point[0]);
    for (int i = 1; i < coordinates; ++i) text += KT(" ") + realText(point[i]);
    return text;
}

/// What stands behind a group code, with the dot where there is one.
CKexString groupText(const resbuf& node)
{
    const ads_u_val& value = node.resval;
    switch (rbKind(node.restype)) {
    case RbKind::text: return KT(". ") + quoted(value.rstring);
    case RbKind::real: return KT(". ") + realText(value.rreal);
    case RbKind::point: return pointText(value.rpoint, 3);
    case RbKind::int16: return format(KT(". {}"), value.rint);
    case RbKind::int32: return format(KT(". {}"), value.rlong);
    case RbKind::int64: return format(KT(". {}"), value.mnInt64);
    case RbKind::name: return KT(". ") + entityText(value.rlname);
    case RbKind::binary: return format(KT("nil ;|{} bytes|;"), value.rbinary.clen);
    case RbKind::none: break;
    }
    return KT("nil");
}

CKexString valueText(const resbuf& node)
{
    const ads_u_val& value = node.resval;
    switch (node.restype) {
    case RTNIL: return KT("nil");
    case RTT: return KT("T");
    case RTREAL:
    case RTANG:
    case RTORINT: return realText(value.rreal);
    case RTSHORT: return format(KT("{}"), value.rint);
    case RTLONG: return format(KT("{}"), value.rlong);
    case RTSTR: return quoted(value.rstring);
    case RTPOINT: return KT("(") + pointText(value.rpoint, 2) + KT(")");
    case RT3DPOINT: return KT("(") + pointText(value.rpoint, 3) + KT(")");
    case RTENAME: return entityText(value.rlname);
    case RTPICKS: return KT("nil ;|selection set|;");
    default: break;
    }
    if (node.restype >= RTNONE) return format(KT("nil ;|type {}|;"), node.restype);
    return format(KT("({} {})"), node.restype, groupText(node));
}

} // namespace

CKexString rbPrint(const resbuf* chain)
{
    CSmartResbuf even = rbCopyAll(chain);
    rbDotConvert(even, true); // where the brackets do not come out even, it prints as it came
    CKexString text;
    int depth = 0;
    bool first = true; // nothing stands on the line, or in the list, yet
    const auto separate = [&] {
        if (!first) text += KT(' ');
        first = false;
    };
    for (const resbuf* node = even; node != nullptr; node = node->rbnext) {
        switch (node->restype) {
        case RTLB:
            separate();
            text += KT('(');
            first = true;
            ++depth;
            break;
        case RTLE:
            text += depth > 0 ? KT(")") : KT(";|list end without a beginning|;");
            if (depth > 0) --depth;
            first = false;
            break;
        case RTDOTE:
            separate();
            text += KT('.');
            break;
        default:
            separate();
            text += valueText(*node);
            break;
        }
        if (depth == 0) {
            text += KT('\n');
            first = true;
        }
    }
    if (depth > 0) text += format(KT(" ;|lists without an end: {}|;\n"), depth);
    return text;
}

} // namespace KEX
