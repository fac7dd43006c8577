// SPDX-License-Identifier: LicenseRef-ORVALD
#include "kex/unit_text.h"

#include "kex/format.h"
#include "kex/units.h"

#include <charconv>
#include <cmath>
#include <string>

namespace KEX {
namespace {

struct UnitName
{
    TextView name;
    Kex::lUnit unit;
};

constexpr UnitName kUnitNames[] = {
    {KT("mm"), Kex::kUnitMillimetre},
    {KT("cm"), Kex::kUnitCentimetre},
    {KT("dm"), Kex::kUnitDecimetre},
    {KT("km"), Kex::kUnitKilometre},
    {KT("\u00B5m"), Kex::kUnitMicrometre}, // the sign
    {KT("\u03BCm"), Kex::kUnitMicrometre}, // the Greek letter
    {KT("um"), Kex::kUnitMicrometre},
    {KT("in"), Kex::kUnitInch},
    {KT("\""), Kex::kUnitInch},
    {KT("ft"), Kex::kUnitFoot},
    {KT("'"), Kex::kUnitFoot},
    {KT("yd"), Kex::kUnitYard},
    {KT("mi"), Kex::kUnitMile},
};

/// kUnitNone for what is no unit.
Kex::lUnit unitOf(TextView name)
{
    if (name == TextView(KT("m"))) return Kex::kUnitMetre;
    for (const UnitName& known : kUnitNames) {
        if (equalNoCase(name, known.name)) return known.unit;
    }
    return Kex::kUnitNone;
}

bool isDigit(ACHAR unit) { return unit >= KT('0') && unit <= KT('9'); }

/// Reads elements from the front of a text. A reading that fails leaves the text alone.
class Reader
{
public:
    explicit Reader(TextView text) : rest_(text) {}

    void skipBlanks()
    {
        while (next() == KT(' ') || next() == KT('\t')) rest_.remove_prefix(1);
    }
    bool skip(ACHAR unit)
    {
        if (next() != unit) return false;
        rest_.remove_prefix(1);
        return true;
    }
    bool isOver() const { return rest_.empty(); }
    TextView rest() const { return rest_; }

    /// Digits with at most one "." or "," among them; `whole` tells that there was none.
    bool decimal(double& number, bool& whole)
    {
        std::string digits;
        bool point = false, any = false;
        for (const ACHAR unit : rest_) {
            const bool isPoint = unit == KT('.') || unit == KT(',');
            if (isPoint ? point : !isDigit(unit)) break;
            (isPoint ? point : any) = true;
            digits += isPoint ? '.' : static_cast<char>(unit);
        }
        double value = 0.0;
        const char* const last = digits.data() + digits.size();
        if (!any || std::from_chars(digits.data(), last, value).ec != std::errc()) return false;
        number = value;
        whole = !point;
        rest_.remove_prefix(digits.size());
        return true;
    }

    /// A decimal number, n/d, or i n/d.
    bool number(double& result)
    {
        Reader ahead = *this;
        double value = 0.0, part = 0.0;
        bool whole = false;
        if (!ahead.decimal(value, whole)) return false;
        Reader behind = ahead;
        behind.skipBlanks();
        if (whole && ahead.denominator(value)) {
            // all of it is the fraction
        } else if (whole && behind.decimal(part, whole) && whole && behind.denominator(part)) {
            value += part;
            ahead = behind;
        }
        result = value;
        *this = ahead;
        return true;
    }

private:
    ACHAR next() const { return rest_.empty() ? ACHAR(0) : rest_[0]; }

    /// "/d": divides by it.
    bool denominator(double& number)
    {
        Reader ahead = *this;
        double divisor = 0.0;
        bool whole = false;
        if (!ahead.skip(KT('/')) || !ahead.decimal(divisor, whole)) return false;
        if (!whole || divisor == 0.0) return false;
        number /= divisor;
        *this = ahead;
        return true;
    }

    TextView rest_;
};

/// Feet behind their mark: [-] inches ". Gives the whole length in inches.
bool readInches(Reader reader, double& length)
{
    double inches = 0.0;
    reader.skipBlanks();
    if (reader.skip(KT('-'))) reader.skipBlanks();
    if (!reader.number(inches)) return false;
    reader.skipBlanks();
    if (!reader.skip(KT('"')) || !reader.isOver()) return false;
    constexpr double kInchesPerFoot = 12.0;
    length = length * kInchesPerFoot + inches;
    return true;
}

} // namespace

bool str_to_unit(TextView text, int unit, double& length)
{
    const CKexString trimmed = CKexString(text).trim();
    Reader reader(trimmed);
    const bool negative = reader.skip(KT('-'));
    if (!negative) reader.skip(KT('+'));
    reader.skipBlanks();
    double value = 0.0;
    if (!reader.number(value)) return false;
    reader.skipBlanks();
    if (!reader.isOver()) {
        Kex::lUnit from = unitOf(reader.rest());
        if (from == Kex::kUnitNone) {
            if (!reader.skip(KT('\'')) || !readInches(reader, value)) return false;
            from = Kex::kUnitInch;
        }
        value = acadUnitCv(value, from, unit);
    }
    if (!std::isfinite(value)) return false;
    length = negative ? 0.0 - value : value; // never -0.0
    return true;
}

bool str_to_number(TextView text, double& number)
{
    const CKexString trimmed = CKexString(text).trim();
    TextView rest = trimmed;
    const bool negative = !rest.empty() && rest[0] == KT('-');
    if (negative || (!rest.empty() && rest[0] == KT('+'))) rest.remove_prefix(1);
    // Nothing but the characters of a number: what from_chars knows as words is none here.
    std::string digits;
    for (const ACHAR unit : rest) {
        const bool known = isDigit(unit) || TextView(KT(".,eE+-")).find(unit) != TextView::npos;
        if (!known) return false;
        digits += unit == KT(',') ? '.' : static_cast<char>(unit);
    }
    const char* const last = digits.data() + digits.size();
    double value = 0.0;
    const auto [end, error] = std::from_chars(digits.data(), last, value);
    if (error != std::errc() || end != last || digits.front() == '-') return false;
    number = negative ? 0.0 - value : value; // never -0.0
    return true;
}

CKexString str_gd_key(double number)
{
    CKexString text = format(KT("{:.4f}"), number);
    int length = text.len();
    while (text[length - 1] == KT('0')) --length;
    if (text[length - 1] == KT('.')) --length;
    text = text.mid(0, length);
    return text == KT("-0") ? CKexString(KT("0")) : text;
}

double str_key_gd(TextView key)
{
    Reader reader(key);
    reader.skipBlanks();
    const bool negative = reader.skip(KT('-'));
    if (!negative) reader.skip(KT('+'));
    double number = 0.0;
    bool whole = false;
    reader.decimal(number, whole);
    return negative ? 0.0 - number : number; // never -0.0
}

} // namespace KEX
