// SPDX-License-Identifier: LicenseRef-ORVALD
// Reading values by the kind of their group code.
#include "tag_builder.h"

#include "number_in.h"
#include "text/letters.h"
#include "text_in.h"

namespace orvald::dxf {
namespace {

using drawing::TagKind;

std::int64_t wholeOf(const TagReader& in, TagKind kind)
{
    std::int64_t value = 0;
    const Reading reading = readWhole(in.value(), value);
    if (reading == Reading::none) in.fail(quoted(in.value()) + " is no whole number");
    // Unsigned values are met in the wild; they are kept as they stand.
    const std::int64_t top = kind == TagKind::int16 ? 0xFFFF : 0xFFFFFFFF;
    const bool fits = reading == Reading::good &&
                      (kind == TagKind::int64 || (value <= top && value >= -top / 2 - 1));
    if (!fits) in.fail(quoted(in.value()) + " is out of range");
    return value;
}

double realOf(const TagReader& in)
{
    double value = 0.0;
    switch (readReal(in.value(), value)) {
    case Reading::good: return value;
    case Reading::none: in.fail(quoted(in.value()) + " is no number");
    case Reading::outside: break;
    }
    in.fail(quoted(in.value()) + " is not finite");
}

} // namespace

drawing::Handle readHandle(const TagReader& in)
{
    drawing::Handle handle = 0;
    if (readHandle(in.value(), handle) != Reading::good)
        in.fail(quoted(in.value()) + " is no handle");
    return handle;
}

void TagBuilder::finish()
{
    if (coordinates_ == 0) return;
    if (coordinates_ == 1) list_.addReal(pointCode_, point_.x);
    else list_.addPoint(pointCode_, point_, coordinates_ == 2);
    coordinates_ = 0;
}

void TagBuilder::take(TagBuilder& other)
{
    finish();
    other.finish();
    list_.append(other.list_);
    other.clear();
}

void TagBuilder::takeText(const TagReader& in)
{
    bool foreign = false;
    list_.addText(in.code(), readText(in.value(), form_.page, scratch_, foreign));
    if (foreign && form_.foreignBytes++ == 0) form_.firstForeign = in.line() + 1;
}

void TagBuilder::takeBinary(const TagReader& in)
{
    const std::string_view digits = trimmed(in.value());
    scratch_.clear();
    bool good = digits.size() % 2 == 0;
    for (std::size_t i = 0; good && i < digits.size(); i += 2) {
        const int high = text::hexDigit(static_cast<unsigned char>(digits[i]));
        const int low = text::hexDigit(static_cast<unsigned char>(digits[i + 1]));
        good = high >= 0 && low >= 0;
        scratch_ += static_cast<char>(16 * high + low);
    }
    if (good) {
        list_.addBinary(in.code(), scratch_);
    } else {
        takeText(in);
        if (form_.strangeBinary++ == 0) form_.firstStrange = in.line() + 1;
    }
}

void TagBuilder::take(const TagReader& in)
{
    const int code = in.code();
    if (coordinates_ != 0) {
        if (code == pointCode_ + 10 * coordinates_ && coordinates_ < 3) {
            (coordinates_ == 1 ? point_.y : point_.z) = realOf(in);
            if (++coordinates_ == 3) finish();
            return;
        }
        finish();
    }
    TagKind kind = TagKind::text;
    if (!drawing::fileKind(code, kind)) {
        if (code < 0) in.fail("group codes below 0 do not stand in files");
        if (form_.unknownGroups++ == 0) form_.firstUnknown = in.line();
        takeText(in);
        return;
    }
    switch (kind) {
    case TagKind::text: takeText(in); break;
    case TagKind::real:
        if (drawing::beginsPoint(code)) {
            point_ = {realOf(in), 0.0, 0.0};
            pointCode_ = code;
            coordinates_ = 1;
        } else {
            list_.addReal(code, realOf(in));
        }
        break;
    case TagKind::int16:
    case TagKind::int32:
    case TagKind::int64: list_.addInteger(code, wholeOf(in, kind)); break;
    case TagKind::handle: list_.addHandle(code, readHandle(in)); break;
    case TagKind::binary: takeBinary(in); break;
    case TagKind::point2:
    case TagKind::point3: break; // no group code says so
    }
}

} // namespace orvald::dxf
