// SPDX-License-Identifier: LicenseRef-ORVALD
#include "kex/system.h"

#include "hostapi/lisp.h"
#include "kex/format.h"
#include "kexos/environment.h"
#include "kexos/registry.h"

namespace KEX {
namespace {

/// Names all modules of this release carry.
constexpr const ACHAR* kReleaseName = KT("2015_18_32");

/// A system variable's node, which frees a text.
class SystemVariable
{
public:
    explicit SystemVariable(const ACHAR* name) : known_(acedGetVar(name, &node_) == RTNORM) {}
    SystemVariable(const SystemVariable&) = delete;
    SystemVariable& operator=(const SystemVariable&) = delete;
    ~SystemVariable()
    {
        if (known_ && node_.restype == RTSTR) acutDelString(node_.resval.rstring);
    }
    /// RTNONE when the variable is unknown.
    short type() const { return known_ ? node_.restype : RTNONE; }
    const ads_u_val& value() const { return node_.resval; }

private:
    resbuf node_ = {};
    bool known_;
};

CKexString& versionText()
{
    static CKexString text;
    return text;
}

} // namespace

CKexString envGet(TextView name)
{
    return CKexString::fromUtf8(kexos::environment(toUtf8(name)).value_or(""));
}

bool envSet(TextView name, TextView value)
{
    return kexos::setEnvironment(toUtf8(name), toUtf8(value));
}

CKexString envExpand(TextView text)
{
    CKexString result;
    for (std::size_t at = 0;;) {
        const std::size_t start = text.find(KT('%'), at);
        const std::size_t end = start == TextView::npos ? start : text.find(KT('%'), start + 1);
        if (end == TextView::npos) return result += TextView(text.substr(at));
        result += TextView(text.substr(at, start - at));
        const std::string name = toUtf8(text.substr(start + 1, end - start - 1));
        if (const std::optional<std::string> value = kexos::environment(name)) {
            result += CKexString::fromUtf8(*value);
            at = end + 1;
        } else {
            result += TextView(text.substr(start, end - start));
            at = end; // which may begin the next reference
        }
    }
}

CKexString regAppKey() { return KT("KEX"); }

bool regMakeKey(TextView key) { return kexos::registryMakeKey(toUtf8(key)); }

bool regHasKey(TextView key) { return kexos::registryHasKey(toUtf8(key)); }

CKexString regGet(TextView key, TextView name)
{
    return CKexString::fromUtf8(kexos::registryValue(toUtf8(key), toUtf8(name)).value_or(""));
}

bool regSet(TextView key, TextView name, TextView value)
{
    return kexos::registrySetValue(toUtf8(key), toUtf8(name), toUtf8(value));
}

CKexString sysVarText(const ACHAR* name)
{
    const SystemVariable variable(name);
    switch (variable.type()) {
    case RTSTR: return variable.value().rstring;
    case RTSHORT: return format(KT("{}"), variable.value().rint);
    case RTLONG: return format(KT("{}"), variable.value().rlong);
    case RTREAL: return format(KT("{}"), variable.value().rreal);
    default: return CKexString();
    }
}

int sysVarInt(const ACHAR* name, int missing)
{
    const SystemVariable variable(name);
    if (variable.type() == RTSHORT) return variable.value().rint;
    return variable.type() == RTLONG ? variable.value().rlong : missing;
}

std::optional<double> sysVarReal(const ACHAR* name)
{
    const SystemVariable variable(name);
    if (variable.type() != RTREAL) return std::nullopt;
    return variable.value().rreal;
}

std::optional<CKexPoint3d> sysVarPoint(const ACHAR* name)
{
    const SystemVariable variable(name);
    const double* xyz = variable.value().rpoint;
    if (variable.type() == RT3DPOINT) return CKexPoint3d(xyz);
    if (variable.type() == RTPOINT) return CKexPoint3d(xyz[0], xyz[1]);
    return std::nullopt;
}

int acadver()
{
    const CKexString text = sysVarText(KT("ACADVER"));
    int at = 0;
    const auto number = [&] {
        int value = 0;
        for (; text[at] >= KT('0') && text[at] <= KT('9') && value < 256; ++at) {
            value = value * 10 + (text[at] - KT('0'));
        }
        return value & 0xFF;
    };
    const int high = number();
    if (text[at] == KT('.')) ++at;
    return high << 8 | number();
}

CKexString curVer() { return versionText(); }

void curVerSet(TextView version) { versionText() = version; }

} // namespace KEX

CKexString kexAppFileName(KEX::TextView product, KEX::TextView part, KEX::TextView kind)
{
    return KEX::format(KT("{}_{}_{}.{}"), product, KEX::kReleaseName, part,
                       CKexString(kind).makeLower());
}
