// SPDX-License-Identifier: LicenseRef-ORVALD
#include "audit/values.h"

#include "number_in.h"
#include "text/encoding.h"
#include "text/letters.h"

#include <algorithm>

namespace orvald::dxf {
namespace {

using drawing::TagKind;

constexpr std::size_t kLongestText = 2049;  // bytes of a text that every reader takes
constexpr std::size_t kLongestBinary = 254; // digits of a line of binary data

void checkText(const TagReader& in, bool utf8, const auto& tell)
{
    const std::string_view value = in.value();
    if (value.size() > kLongestText)
        tell(false, "long-text", "a text of " + std::to_string(value.size()) + " bytes");
    const auto isControl = [](char c) { return static_cast<unsigned char>(c) < 0x20 && c != '\t'; };
    if (std::any_of(value.begin(), value.end(), isControl))
        tell(true, "control-character", "a raw control character in " + quoted(value));
    if (utf8 && !text::isUtf8(value)) tell(true, "not-utf8", quoted(value) + " is not UTF-8");
}

void checkWhole(const TagReader& in, int bits, const auto& tell)
{
    std::int64_t number = 0;
    const Reading reading = readWhole(in.value(), number);
    const std::int64_t half = bits == 64 ? 0 : std::int64_t{1} << (bits - 1);
    if (reading == Reading::none)
        tell(true, "not-whole", quoted(in.value()) + " is no whole number");
    else if (reading == Reading::outside || (bits < 64 && (number < -half || number >= 2 * half)))
        tell(true, "out-of-range", quoted(in.value()) + " does not fit its group");
    else if (bits < 64 && number >= half)
        tell(false, "unsigned", quoted(in.value()) + " fits only without a sign");
    else if (in.code() >= 290 && in.code() <= 299 && number != 0 && number != 1)
        tell(false, "not-boolean", quoted(in.value()) + " is neither 0 nor 1");
}

void checkBinary(const TagReader& in, const auto& tell)
{
    const std::string_view digits = trimmed(in.value());
    const auto isDigit = [](char c) { return text::hexDigit(static_cast<unsigned char>(c)) >= 0; };
    if (!std::all_of(digits.begin(), digits.end(), isDigit))
        tell(true, "not-hexadecimal", quoted(in.value()) + " is not hexadecimal");
    else if (digits.size() % 2 != 0 || digits.size() > kLongestBinary)
        tell(true, "not-hexadecimal", std::to_string(digits.size()) + " hexadecimal digits");
}

} // namespace

void checkValue(const TagReader& in, bool utf8, Report& report)
{
    const auto tell = [&](bool isError, std::string_view kind, std::string text) {
        text += " (group " + std::to_string(in.code()) + ")";
        report.add({isError, kind, in.line() + 1, 0, std::move(text)});
    };
    TagKind kind = TagKind::text;
    if (!drawing::fileKind(in.code(), kind)) {
        report.add({true, "unknown-group", in.line(), 0,
                    "group code " + std::to_string(in.code()) + " does not exist"});
        return;
    }
    double real = 0.0;
    drawing::Handle handle = 0;
    switch (kind) {
    case TagKind::text: checkText(in, utf8, tell); break;
    case TagKind::int16: checkWhole(in, 16, tell); break;
    case TagKind::int32: checkWhole(in, 32, tell); break;
    case TagKind::int64: checkWhole(in, 64, tell); break;
    case TagKind::binary: checkBinary(in, tell); break;
    case TagKind::handle:
        if (readHandle(in.value(), handle) != Reading::good)
            tell(true, "not-a-handle", quoted(in.value()) + " is no handle");
        break;
    case TagKind::real:
    case TagKind::point2:
    case TagKind::point3:
        switch (readReal(in.value(), real)) {
        case Reading::good: break;
        case Reading::none: tell(true, "not-a-number", quoted(in.value()) + " is no number"); break;
        case Reading::outside:
            tell(true, "not-finite", quoted(in.value()) + " is not finite");
            break;
        }
        break;
    }
}

} // namespace orvald::dxf
