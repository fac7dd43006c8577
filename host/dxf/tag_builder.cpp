// SPDX-License-Identifier: LicenseRef-ORVALD
// Reading values by the kind of their group code.
#include "tag_builder.h"

#include "text/letters.h"
#include "text_in.h"

#include <charconv>
#include <cmath>

namespace orvald::dxf {
namespace {

using drawing::TagKind;

std::string_view trimmed(std::string_view s)
{
    while (!s.empty() && (s.front() == ' ' || s.front() == '\t')) s.remove_prefix(1);
    while (!s.empty() && (s.back() == ' ' || s.back() == '\t')) s.remove_suffix(1);
    return s;
}

/// True when the text is a number too small for a double, which counts as 0.
bool isTiny(std::string_view s)
{
    const std::size_t exponent = s.find_first_of("eE");
    return exponent != std::string_view::npos && exponent + 1 < s.size() && s[exponent + 1] == '-';
}

std::int64_t readInteger(const TagReader& in, TagKind kind)
{
    std::string_view s = trimmed(in.value());
    if (s.starts_with('+')) s.remove_prefix(1);
    std::int64_t value = 0;
    const auto [end, error] = std::from_chars(s.data(), s.data() + s.size(), value);
    if (s.empty() || error == std::errc::invalid_argument || end != s.data() + s.size())
        in.fail(quoted(in.value()) + " is no whole number");
    // Unsigned values are met in the wild; they are kept as they stand.
    const std::int64_t top = kind == TagKind::int16 ? 0xFFFF : 0xFFFFFFFF;
    const bool fits =
        error == std::errc() && (kind == TagKind::int64 || (value <= top && value >= -top / 2 - 1));
    if (!fits) in.fail(quoted(in.value()) + " is out of range");
    return value;
}

} // namespace

drawing::Handle readHandle(const TagReader& in)
{
    const std::string_view s = trimmed(in.value());
    drawing::Handle handle = 0;
    const auto [end, error] = std::from_chars(s.data(), s.data() + s.size(), handle, 16);
    // The top bit stays free: the next handle must always be one that exists.
    if (s.empty() || error != std::errc() || end != s.data() + s.size() || handle >> 63 != 0)
        in.fail(quoted(in.value()) + " is no handle");
    return handle;
}

double TagBuilder::readReal(const TagReader& in) const
{
    std::string_view s = trimmed(in.value());
    if (s.starts_with('+')) s.remove_prefix(1);
    double value = 0.0;
    const auto [end, error] = std::from_chars(s.data(), s.data() + s.size(), value);
    if (end == s.data() + s.size() && !s.empty()) {
        if (error == std::errc() && std::isfinite(value)) return value;
        if (error == std::errc::result_out_of_range && isTiny(s)) return 0.0;
        in.fail(quoted(in.value()) + " is not finite");
    }
    in.fail(quoted(in.value()) + " is no number");
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
    list_.addText(in.code(), readText(in.value(), form_.utf8, scratch_, foreign));
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
            (coordinates_ == 1 ? point_.y : point_.z) = readReal(in);
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
            point_ = {readReal(in), 0.0, 0.0};
            pointCode_ = code;
            coordinates_ = 1;
        } else {
            list_.addReal(code, readReal(in));
        }
        break;
    case TagKind::int16:
    case TagKind::int32:
    case TagKind::int64: list_.addInteger(code, readInteger(in, kind)); break;
    case TagKind::handle: list_.addHandle(code, readHandle(in)); break;
    case TagKind::binary: takeBinary(in); break;
    case TagKind::point2:
    case TagKind::point3: break; // no group code says so
    }
}

} // namespace orvald::dxf
