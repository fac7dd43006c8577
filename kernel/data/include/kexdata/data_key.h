// SPDX-License-Identifier: LicenseRef-ORVALD
// CKexDataKey: a path into a data item. Its components are texts and integers, which never equal
// each other; texts are equal without regard to case. Order: integers ascending, then texts by
// capitals.
#pragma once

#include "hostapi/resbuf.h"
#include "kex/resbuf_chain.h"
#include "kexdata/export.h"

#include <initializer_list>

namespace KEX {

/// One component, whose text belongs to somebody else.
class DataKeyView
{
public:
    DataKeyView(int number) : number_(number) {}
    DataKeyView(TextView text) : text_(text), isText_(true) {}
    DataKeyView(const ACHAR* text) : DataKeyView(TextView(text)) {}
    DataKeyView(const CKexString& text) : DataKeyView(text.view()) {}

    bool isText() const { return isText_; }
    /// "" for an integer.
    TextView text() const { return text_; }
    /// 0 for a text.
    int number() const { return number_; }

    friend bool operator==(const DataKeyView& a, const DataKeyView& b)
    {
        return compare(a, b) == 0;
    }
    friend bool operator<(const DataKeyView& a, const DataKeyView& b) { return compare(a, b) < 0; }

private:
    KEX_DATA_API static int compare(const DataKeyView& a, const DataKeyView& b);

    TextView text_;
    int number_ = 0;
    bool isText_ = false;
};

/// One component with its text.
class DataKeyPart
{
public:
    DataKeyPart(const DataKeyView& view)
        : text_(view.text()), number_(view.number()), isText_(view.isText())
    {
    }
    operator DataKeyView() const { return isText_ ? DataKeyView(text_) : DataKeyView(number_); }
    bool isText() const { return isText_; }
    const CKexString& text() const { return text_; }
    int number() const { return number_; }
    /// The host's code of the component: RTSTR or RTLONG.
    short type() const { return isText_ ? RTSTR : RTLONG; }

    friend bool operator==(const DataKeyPart& a, const DataKeyPart& b)
    {
        return DataKeyView(a) == DataKeyView(b);
    }

private:
    CKexString text_;
    int number_;
    bool isText_;
};

} // namespace KEX

class CKexDataKey
{
public:
    /// The empty key: the item itself.
    CKexDataKey() = default;
    /// A path, cut at every "\"; empty pieces are dropped.
    CKexDataKey(const ACHAR* path) { appendPath(path); }
    CKexDataKey(const CKexString& path) { appendPath(path); }
    CKexDataKey(int number) { append(number); }

    /// Replaces the key by components, each its type (RTSTR, RTSHORT or RTLONG) and its value,
    /// ended by 0: key.set(RTSTR, KT("REF"), RTLONG, 3, 0). Texts are taken whole, without a look
    /// at "\".
    template <class Value, class... Rest>
    void set(int type, const Value& value, const Rest&... rest)
    {
        parts_.clear();
        setParts(type, value, rest...);
    }
    void clear() { parts_.clear(); }
    /// One component more.
    void append(const KEX::DataKeyView& part) { parts_.append(KEX::DataKeyPart(part)); }
    /// The components of a path, which is cut at every "\".
    KEX_DATA_API void appendPath(KEX::TextView path);

    bool isEmpty() const { return parts_.isEmpty(); }
    int length() const { return parts_.length(); }
    const KEX::DataKeyPart& operator[](int position) const { return parts_[position]; }
    const KEX::DataKeyPart& first() const { return parts_.first(); }
    const KEX::DataKeyPart& last() const { return parts_.last(); }
    auto begin() const { return parts_.begin(); }
    auto end() const { return parts_.end(); }
    friend bool operator==(const CKexDataKey&, const CKexDataKey&) = default;

private:
    void setParts(int) {}
    template <class Value, class... Rest>
    void setParts(int type, const Value& value, const Rest&... rest)
    {
        KEX_ASSERT(KEX::DataKeyView(value).isText() == (type == RTSTR), "type and value agree");
        append(KEX::DataKeyView(value));
        setParts(rest...);
    }

    CKexArrayTempl<KEX::DataKeyPart> parts_;
};

namespace KEX {

/// Reads a key from a LISP value: a text, which is cut at every "\", an integer, a list of both, or
/// nil, the empty key. Moves `rb` behind the value. False, with `rb` and `key` unchanged, when the
/// value is no key or the chain is over.
KEX_DATA_API bool dataKeyFromRb(CKexDataKey& key, const resbuf*& rb);
/// One component.
KEX_DATA_API void rbPut(RbBuilder& to, const DataKeyPart& part);
/// LISP form: one component alone, else the list of them; the empty key is nil.
KEX_DATA_API void rbPut(RbBuilder& to, const CKexDataKey& key);

} // namespace KEX
