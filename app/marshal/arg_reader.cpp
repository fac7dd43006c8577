// SPDX-License-Identifier: LicenseRef-ORVALD
#include "marshal/arg_reader.h"

#include "kex/resbuf_chain.h"
#include "marshal/lisp_row.h"

namespace KEX {
bool readInteger(const resbuf*& rb, int& value)
{
    if (rb == nullptr) return false;
    if (rb->restype == RTSHORT) value = rb->resval.rint;
    else if (rb->restype == RTLONG) value = rb->resval.rlong;
    else return false;
    rb = rb->rbnext;
    return true;
}

bool readNumber(const resbuf*& rb, double& value)
{
    int whole = 0;
    if (readInteger(rb, whole)) {
        value = whole;
        return true;
    }
    if (rb == nullptr || rb->restype != RTREAL) return false;
    value = rb->resval.rreal;
    rb = rb->rbnext;
    return true;
}

bool readPoint(const resbuf*& rb, CKexPoint3d& point)
{
    if (rb == nullptr) return false;
    if (rb->restype == RT3DPOINT || rb->restype == RTPOINT) {
        const double* xyz = rb->resval.rpoint;
        point = CKexPoint3d(xyz[0], xyz[1], rb->restype == RTPOINT ? 0.0 : xyz[2]);
        rb = rb->rbnext;
        return true;
    }
    // A list with an integer among its numbers comes as a list, not as a point.
    if (rb->restype != RTLB) return false;
    const resbuf* node = rb->rbnext;
    double xyz[3] = {0.0, 0.0, 0.0};
    int count = 0;
    while (count < 3 && readNumber(node, xyz[count])) ++count;
    if (count < 2 || node == nullptr || node->restype != RTLE) return false;
    point = CKexPoint3d(xyz);
    rb = node->rbnext;
    return true;
}

bool readVertex(const resbuf*& rb, CKexVertex& vertex)
{
    if (rb == nullptr || rb->restype != RTLB) return false;
    const resbuf* node = rb->rbnext;
    CKexPoint3d start, end;
    double bulge = 0.0;
    if (!readPoint(node, start) || !readPoint(node, end)) return false;
    if (node != nullptr && node->restype != RTLE && !readNumber(node, bulge)) return false;
    if (node != nullptr && node->restype != RTLE) node = rbSkip(node);
    if (node == nullptr || node->restype != RTLE) return false;
    vertex = CKexVertex(start, end, bulge);
    rb = node->rbnext;
    return true;
}

bool readVertexList(const resbuf*& rb, CKexVertexArray& list)
{
    if (rb == nullptr) return false;
    if (rb->restype == RTNIL) {
        rb = rb->rbnext;
        return true;
    }
    if (rb->restype != RTLB) return false;
    const resbuf* node = rb->rbnext;
    CKexVertex vertex;
    while (readVertex(node, vertex)) list.append(vertex);
    if (node == nullptr || node->restype != RTLE) return false;
    rb = node->rbnext;
    return true;
}

bool readStringList(const resbuf*& rb, CKexArrayTempl<CKexString>& list)
{
    if (rb == nullptr || (rb->restype != RTLB && rb->restype != RTNIL)) return false;
    const resbuf* node = rb;
    if (rb->restype == RTLB) {
        for (node = rb->rbnext; node != nullptr && node->restype == RTSTR; node = node->rbnext) {
            list.append(CKexString(node->resval.rstring));
        }
        if (node == nullptr || node->restype != RTLE) return false;
    }
    rb = node->rbnext;
    return true;
}

bool readKeyList(const resbuf*& rb, CKexArrayTempl<CKexDataKey>& list)
{
    if (rb == nullptr || (rb->restype != RTLB && rb->restype != RTNIL)) return false;
    const resbuf* node = rb;
    if (rb->restype == RTLB) {
        CKexDataKey key;
        for (node = rb->rbnext; dataKeyFromRb(key, node);) list.append(key);
        if (node == nullptr || node->restype != RTLE) return false;
    }
    rb = node->rbnext;
    return true;
}

bool isListNode(const resbuf& node)
{
    return node.restype == RTLB || node.restype == RT3DPOINT || node.restype == RTPOINT;
}

CKexString ArgReader::string(int position) { return text(position); }

TextView ArgReader::text(int position)
{
    const bool good = at_ != nullptr && at_->restype == RTSTR;
    require(good, position);
    if (failed()) return {};
    const TextView text(at_->resval.rstring);
    at_ = at_->rbnext;
    return text;
}

int ArgReader::integer(int position)
{
    int value = 0;
    if (!failed()) require(readInteger(at_, value), position);
    return value;
}

double ArgReader::number(int position)
{
    double value = 0.0;
    if (!failed()) require(readNumber(at_, value), position);
    return value;
}

CKexPoint3d ArgReader::point(int position)
{
    CKexPoint3d value;
    if (!failed()) require(readPoint(at_, value), position);
    return value;
}

CKexVertexArray ArgReader::vertexList(int position)
{
    CKexVertexArray value;
    if (!failed()) require(readVertexList(at_, value), position);
    return value;
}

CKexArrayTempl<CKexString> ArgReader::stringList(int position)
{
    CKexArrayTempl<CKexString> value;
    if (!failed()) require(readStringList(at_, value), position);
    return value;
}

CKexDataKey ArgReader::key(int position)
{
    CKexDataKey value;
    if (!failed()) require(dataKeyFromRb(value, at_), position);
    return value;
}

CKexDataItem ArgReader::data(int position)
{
    if (failed()) return CKexDataItem();
    const std::unique_ptr<CKexDataItem> item = CKexDataItem::fromRb(at_);
    require(item != nullptr, position);
    return item == nullptr ? CKexDataItem() : std::move(*item);
}

CKexDataItem ArgReader::dataList(int position)
{
    require(at_ != nullptr && (at_->restype == RTNIL || isListNode(*at_)), position);
    return data(position);
}

CAdsName ArgReader::ename(int position)
{
    require(at_ != nullptr && at_->restype == RTENAME, position);
    if (failed()) return CAdsName();
    const CAdsName name(at_->resval.rlname);
    at_ = at_->rbnext;
    return name;
}

template <class T>
std::optional<T> ArgReader::ifAny(T (ArgReader::*read)(int), int position)
{
    if (failed()) return std::nullopt;
    if (at_ != nullptr && at_->restype != RTNIL) return (this->*read)(position);
    any();
    return std::nullopt;
}

std::optional<CKexString> ArgReader::stringIfAny(int position)
{
    return ifAny(&ArgReader::string, position);
}

std::optional<int> ArgReader::integerIfAny(int position)
{
    return ifAny(&ArgReader::integer, position);
}

std::optional<double> ArgReader::numberIfAny(int position)
{
    return ifAny(&ArgReader::number, position);
}

CKexArrayTempl<CKexDataKey> ArgReader::keyListIfAny(int position)
{
    CKexArrayTempl<CKexDataKey> value;
    if (!failed() && at_ != nullptr) require(readKeyList(at_, value), position);
    return value;
}

bool ArgReader::flag()
{
    const resbuf* node = any();
    return node != nullptr && node->restype == RTT;
}

const resbuf* ArgReader::any()
{
    if (failed() || at_ == nullptr) return nullptr;
    const resbuf* node = at_;
    at_ = rbSkip(at_);
    return node;
}

int ArgReader::fail() const
{
    argError(wrong_);
    return RTERROR;
}

} // namespace KEX
