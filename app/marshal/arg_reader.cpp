// SPDX-License-Identifier: LicenseRef-ORVALD
#include "marshal/arg_reader.h"

#include "kex/path_names.h"
#include "kex/resbuf_chain.h"
#include "marshal/from_rb.h"
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

namespace {

/// A vertex and the node of its data, null for none and for nil.
bool readSegment(const resbuf*& rb, CKexVertex& vertex, const resbuf*& data)
{
    if (rb == nullptr || rb->restype != RTLB) return false;
    const resbuf* node = rb->rbnext;
    CKexPoint3d start, end;
    double bulge = 0.0;
    data = nullptr;
    if (!readPoint(node, start) || !readPoint(node, end)) return false;
    if (node != nullptr && node->restype != RTLE && !readNumber(node, bulge)) return false;
    if (node != nullptr && node->restype != RTLE) {
        if (node->restype != RTNIL) data = node;
        node = rbSkip(node);
    }
    if (node == nullptr || node->restype != RTLE) return false;
    vertex = CKexVertex(start, end, bulge);
    rb = node->rbnext;
    return true;
}

} // namespace

bool readVertex(const resbuf*& rb, CKexVertex& vertex)
{
    const resbuf* data = nullptr;
    return readSegment(rb, vertex, data);
}

bool readVertexEx(const resbuf*& rb, VertexEx& vertex)
{
    const resbuf* data = nullptr;
    if (!readSegment(rb, vertex.vertex, data)) return false;
    vertex.data = data == nullptr ? CSmartResbuf() : RbBuilder().copyValue(data).take();
    return true;
}

bool readMatrix(const resbuf*& rb, CKexMatrix3d& matrix)
{
    if (rb == nullptr || rb->restype != RTLB) return false;
    const resbuf* node = rb->rbnext;
    const auto open = [&node](short type) {
        if (node == nullptr || node->restype != type) return false;
        node = node->rbnext;
        return true;
    };
    CKexMatrix3d read;
    for (int row = 0; row < 4; ++row) {
        if (!open(RTLB)) return false;
        for (int column = 0; column < 4; ++column) {
            if (!readNumber(node, read(row, column))) return false;
        }
        if (!open(RTLE)) return false;
    }
    // Exact: these are no measured values.
    const bool affine =
        read(3, 0) == 0.0 && read(3, 1) == 0.0 && read(3, 2) == 0.0 && read(3, 3) == 1.0;
    if (!affine || !open(RTLE)) return false;
    matrix = read;
    rb = node;
    return true;
}

bool readPlane(const resbuf*& rb, Plane& plane)
{
    CKexMatrix3d matrix;
    if (readMatrix(rb, matrix)) {
        const std::optional<Plane> own = g_mtx_plan(matrix);
        if (own) plane = *own;
        return own.has_value();
    }
    if (rb == nullptr || rb->restype != RTLB) return false;
    const resbuf* node = rb->rbnext;
    CKexPoint3d origin, tip;
    if (!readPoint(node, origin) || !readPoint(node, tip)) return false;
    const CKexVector3d normal = tip.asVector().normal();
    if (node == nullptr || node->restype != RTLE || normal == CKexVector3d()) return false;
    plane = {origin, normal};
    rb = node->rbnext;
    return true;
}

namespace {

/// A list of nothing but values that `read` takes, nil the empty one.
template <class Array>
bool readList(const resbuf*& rb, bool (*read)(const resbuf*&, typename Array::value_type&),
              Array& list)
{
    if (rb == nullptr || (rb->restype != RTLB && rb->restype != RTNIL)) return false;
    const resbuf* node = rb;
    if (rb->restype == RTLB) {
        node = rb->rbnext;
        typename Array::value_type item{};
        while (read(node, item)) list.append(item);
        if (node == nullptr || node->restype != RTLE) return false;
    }
    rb = node->rbnext;
    return true;
}

bool readText(const resbuf*& rb, CKexString& text)
{
    if (rb == nullptr || rb->restype != RTSTR) return false;
    text = rb->resval.rstring;
    rb = rb->rbnext;
    return true;
}

bool readKey(const resbuf*& rb, CKexDataKey& key) { return dataKeyFromRb(key, rb); }

} // namespace

bool readVertexList(const resbuf*& rb, CKexVertexArray& list)
{
    return readList(rb, readVertex, list);
}

bool readVertexListEx(const resbuf*& rb, CKexVertexArrayEx& list)
{
    list.clear();
    return readList(rb, readVertexEx, list);
}

bool readPointList(const resbuf*& rb, CKexPoint3dArray& list)
{
    return readList(rb, readPoint, list);
}

bool readStringList(const resbuf*& rb, CKexArrayTempl<CKexString>& list)
{
    return readList(rb, readText, list);
}

bool readNumberList(const resbuf*& rb, CKexArrayTempl<double>& list)
{
    if (rb == nullptr || (rb->restype != RTPOINT && rb->restype != RT3DPOINT)) {
        return readList(rb, readNumber, list);
    }
    for (int i = 0; i < (rb->restype == RTPOINT ? 2 : 3); ++i) list.append(rb->resval.rpoint[i]);
    rb = rb->rbnext;
    return true;
}

bool readKeyList(const resbuf*& rb, CKexArrayTempl<CKexDataKey>& list)
{
    return readList(rb, readKey, list);
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

CKexVector3d ArgReader::vector(int position) { return point(position).asVector(); }

CKexMatrix3d ArgReader::matrix(int position)
{
    CKexMatrix3d value;
    if (!failed()) require(readMatrix(at_, value), position);
    return value;
}

Plane ArgReader::plane(int position)
{
    Plane value;
    if (!failed()) require(readPlane(at_, value), position);
    return value;
}

CKexPoint3dArray ArgReader::pointList(int position)
{
    CKexPoint3dArray value;
    if (!failed()) require(readPointList(at_, value), position);
    return value;
}

CKexVertex ArgReader::vertex(int position)
{
    CKexVertex value;
    if (!failed()) require(readVertex(at_, value), position);
    return value;
}

CKexVertexArrayEx ArgReader::vertexListEx(int position)
{
    CKexVertexArrayEx value;
    if (!failed()) require(readVertexListEx(at_, value), position);
    return value;
}

CKexArrayTempl<CKexVertexArrayEx> ArgReader::vertexListsEx(int position)
{
    CKexArrayTempl<CKexVertexArrayEx> value;
    if (!failed()) require(readList(at_, readVertexListEx, value), position);
    return value;
}

CKexArrayTempl<double> ArgReader::numberListIfAny(int position)
{
    CKexArrayTempl<double> value;
    if (!absent()) require(readNumberList(at_, value), position);
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

AcDbObjectId ArgReader::objectId(int position)
{
    AcDbObjectId id;
    const CAdsName name = ename(position);
    if (!name.isNull()) acdbGetObjectId(id, name.asName());
    return id;
}

CKexString ArgReader::path(int position)
{
    CKexString path = string(position);
    return dos_name(path);
}

CKexEnameArray ArgReader::enames(int position)
{
    CKexEnameArray names;
    const bool fits = at_ != nullptr &&
                      (at_->restype == RTLB || at_->restype == RTPICKS || at_->restype == RTNIL);
    require(fits, position);
    if (!failed()) fromRb(names, at_);
    return names;
}

bool ArgReader::absent()
{
    if (failed() || at_ == nullptr) return true;
    if (at_->restype != RTNIL) return false;
    at_ = at_->rbnext;
    return true;
}

AcDbObjectId ArgReader::objectIdIfAny(int position)
{
    return ifAny(&ArgReader::objectId, position).value_or(AcDbObjectId());
}

std::optional<AcArray<AcDbObjectId>> ArgReader::objectIdsIfAny(int position)
{
    if (absent()) return std::nullopt;
    AcArray<AcDbObjectId> ids;
    require(at_->restype == RTLB || at_->restype == RTPICKS, position);
    return fromRb(ids, at_);
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
