// SPDX-License-Identifier: LicenseRef-ORVALD
// Vertices and vertex lists with data: each vertex may carry one LISP value.
#include "geom/vertex_lists_rows.h"
#include "kex/vertex_ex.h"
#include "marshal/arg_reader.h"
#include "marshal/ret_ads.h"

namespace KEX {
namespace {

/// Elements of a list value one after the other; nil has none.
class Elements
{
public:
    /// `value` is a list, a point or nil.
    explicit Elements(const resbuf* value)
    {
        if (value->restype == RTLB) next_ = value->rbnext;
        else if (value->restype != RTNIL) point_ = value;
    }
    static bool areIn(const resbuf* value)
    {
        return value != nullptr && (value->restype == RTNIL || isListNode(*value));
    }
    /// A copy of the next one; nothing for nil and behind the end.
    CSmartResbuf take()
    {
        if (point_ != nullptr) {
            const int count = point_->restype == RTPOINT ? 2 : 3;
            if (taken_ == count) return CSmartResbuf();
            return RbBuilder().real(point_->resval.rpoint[taken_++]).take();
        }
        const resbuf* element = step();
        if (element == nullptr || element->restype == RTNIL) return CSmartResbuf();
        return RbBuilder().copyValue(element).take();
    }
    /// The next one itself, null behind the end.
    const resbuf* step()
    {
        if (next_ == nullptr || next_->restype == RTLE || next_->restype == RTDOTE) return nullptr;
        const resbuf* element = next_;
        next_ = rbSkip(next_);
        return element;
    }

private:
    const resbuf* next_ = nullptr;
    const resbuf* point_ = nullptr; // a list of two or three reals, as the host delivers it
    int taken_ = 0;
};

/// Each vertex with its element; where that is nil the data stays that the vertex has.
void addData(CKexVertexArrayEx& list, const resbuf* data)
{
    Elements elements(data);
    for (VertexEx& vertex : list) {
        CSmartResbuf element = elements.take();
        if (element.get() != nullptr) vertex.data = std::move(element);
    }
}

} // namespace

int xvx(const resbuf* args)
{
    ArgReader in(args);
    const CKexVertex vertex = in.vertex(1);
    in.require(!in.isLast(), 2);
    if (in.failed()) return in.fail();
    const resbuf* data = in.any();
    RbBuilder list;
    list.point(vertex.startPoint()).point(vertex.endPoint()).real(vertex.bulge()).copyValue(data);
    return retList(list.take());
}

int xvl(const resbuf* args)
{
    ArgReader in(args);
    CKexVertexArrayEx list = in.vertexListEx(1);
    const resbuf* data = in.any();
    in.require(Elements::areIn(data), 2);
    if (in.failed()) return in.fail();
    addData(list, data);
    return retAds(list);
}

int xvll(const resbuf* args)
{
    ArgReader in(args);
    CKexArrayTempl<CKexVertexArrayEx> lists = in.vertexListsEx(1);
    const resbuf* data = in.any();
    in.require(data != nullptr && (data->restype == RTNIL || data->restype == RTLB), 2);
    if (in.failed()) return in.fail();
    Elements elements(data);
    for (CKexVertexArrayEx& list : lists) {
        const resbuf* own = elements.step();
        in.require(own == nullptr || Elements::areIn(own), 2);
        if (in.failed()) return in.fail();
        if (own != nullptr) addData(list, own);
    }
    return retAds(lists);
}

} // namespace KEX
