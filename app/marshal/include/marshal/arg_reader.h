// SPDX-License-Identifier: LicenseRef-ORVALD
// Reads the arguments of a LISP function in order and remembers the first wrong one.
//
// The number given to each reading is the one that the error report names: the 1-based position,
// or 0 where a function names none. A reader that has failed reads on as empty values, so that a
// handler has one exit for all errors:
//
//     ArgReader in(args);
//     const CKexString text = in.string(1);
//     const int start = in.integer(2);
//     in.require(start >= 1, 2);
//     if (in.failed()) return in.fail();
#pragma once

#include "hostapi/array.h"
#include "hostapi/database.h"
#include "hostapi/resbuf.h"
#include "kex/matrix.h"
#include "kex/plane.h"
#include "kex/string.h"
#include "kex/vertex_ex.h"
#include "kexdata/data_item.h"

#include <optional>

namespace KEX {

class ArgReader
{
public:
    /// Dotted pairs in the chain must have the closing form, as the dispatcher makes them.
    explicit ArgReader(const resbuf* args) : at_(args) {}

    // -- required arguments: missing or of another type is an error
    CKexString string(int position);
    /// The same without a copy: the argument's own text.
    TextView text(int position);
    int integer(int position);
    /// A real or an integer.
    double number(int position);
    /// A point node, or a list of two or three numbers; a missing Z is 0.0.
    CKexPoint3d point(int position);
    /// A plain or extended vertex; its data is passed over.
    CKexVertex vertex(int position);
    /// A plain or extended vertex list; the data of extended vertices is passed over. nil is the
    /// empty list.
    CKexVertexArray vertexList(int position);
    /// The same with the data; and a list of such lists, nil again the empty one.
    CKexVertexArrayEx vertexListEx(int position);
    CKexArrayTempl<CKexVertexArrayEx> vertexListsEx(int position);
    /// The same form as a point.
    CKexVector3d vector(int position);
    /// Four rows of four numbers, the last 0 0 0 1.
    CKexMatrix3d matrix(int position);
    /// (origin normal), the normal of any length but 0; or a matrix, which stands for its XY plane.
    Plane plane(int position);
    /// A list of nothing but points; nil is the empty list.
    CKexPoint3dArray pointList(int position);
    /// A list of nothing but numbers; none when it is missing or nil.
    CKexArrayTempl<double> numberListIfAny(int position);
    /// A list of nothing but strings; nil is the empty list.
    CKexArrayTempl<CKexString> stringList(int position);

    /// A key; nil and "" are the empty one.
    CKexDataKey key(int position);
    /// Any value that data can hold.
    CKexDataItem data(int position);
    /// A list of any kind, a directory or not, or nil.
    CKexDataItem dataList(int position);
    /// A value for a key; for the empty one, which means all of the data, a list or nil.
    CKexDataItem dataAt(const CKexDataKey& key, int position)
    {
        return key.isEmpty() ? dataList(position) : data(position);
    }
    /// A drawing object by its name; it may be erased. Null when no open drawing has it.
    AcDbObjectId objectId(int position);
    /// The path of a file or folder in the form of dos_name.
    CKexString path(int position);
    /// The name of a drawing object, which may be erased.
    CAdsName ename(int position);
    /// A list of such names or a selection set; nil is the empty list.
    CKexEnameArray enames(int position);

    // -- optional arguments: missing or nil is nothing, another type is an error
    std::optional<CKexString> stringIfAny(int position)
    {
        return ifAny(&ArgReader::string, position);
    }
    std::optional<int> integerIfAny(int position) { return ifAny(&ArgReader::integer, position); }
    std::optional<double> numberIfAny(int position) { return ifAny(&ArgReader::number, position); }
    std::optional<CKexPoint3d> pointIfAny(int position)
    {
        return ifAny(&ArgReader::point, position);
    }
    std::optional<CKexVector3d> vectorIfAny(int position)
    {
        return ifAny(&ArgReader::vector, position);
    }
    /// Null when it is missing or nil.
    AcDbObjectId objectIdIfAny(int position);
    /// A list of names of objects, or a selection set, as fromRb reads them.
    std::optional<AcArray<AcDbObjectId>> objectIdsIfAny(int position);
    /// A list of keys; none when it is missing or nil.
    CKexArrayTempl<CKexDataKey> keyListIfAny(int position);

    /// There is no such argument: moves past a nil, or stands at the end, or has failed.
    bool absent();
    /// True for T; nil, a missing argument and anything else are false, never an error.
    bool flag();
    /// The next argument as it stands, null when there is none; the reader moves past it.
    const resbuf* any();
    const resbuf* peek() const { return at_; }
    bool isLast() const { return at_ == nullptr; }

    /// Marks the argument as wrong unless the condition holds.
    void require(bool holds, int position)
    {
        if (!holds && !failed()) wrong_ = position;
    }
    bool failed() const { return wrong_ != kNone; }
    /// Reports the first wrong argument; gives RTERROR.
    int fail() const;

private:
    template <class T>
    std::optional<T> ifAny(T (ArgReader::*read)(int), int position)
    {
        if (absent()) return std::nullopt;
        return (this->*read)(position);
    }

    static constexpr int kNone = -1;
    const resbuf* at_;
    int wrong_ = kNone;
};

/// Readers of one value inside a chain. Each moves `rb` past the value and gives true, or leaves
/// `rb` alone and gives false.
bool readInteger(const resbuf*& rb, int& value);
bool readNumber(const resbuf*& rb, double& value);
bool readPoint(const resbuf*& rb, CKexPoint3d& point);
/// (p1 p2), (p1 p2 bulge) or (p1 p2 bulge data); a missing bulge is 0.0, the data is passed over.
bool readVertex(const resbuf*& rb, CKexVertex& vertex);
bool readMatrix(const resbuf*& rb, CKexMatrix3d& matrix);
bool readPlane(const resbuf*& rb, Plane& plane);
bool readPointList(const resbuf*& rb, CKexPoint3dArray& list);
/// Numbers, also two or three reals that the host delivers as a point.
bool readNumberList(const resbuf*& rb, CKexArrayTempl<double>& list);
/// The same with the data, which it does without when it is nil.
bool readVertexEx(const resbuf*& rb, VertexEx& vertex);
bool readVertexListEx(const resbuf*& rb, CKexVertexArrayEx& list);
bool readVertexList(const resbuf*& rb, CKexVertexArray& list);
bool readStringList(const resbuf*& rb, CKexArrayTempl<CKexString>& list);
bool readKeyList(const resbuf*& rb, CKexArrayTempl<CKexDataKey>& list);
/// True for a node at which a list begins, and for one that is a list to LISP: a point.
bool isListNode(const resbuf& node);

} // namespace KEX
