// SPDX-License-Identifier: LicenseRef-ORVALD
// The table of running objects of the headless host.
#include "automation/reactors.h"
#include "hostapi/headless.h"

namespace KEX {
namespace {

class HeadlessObjects final : public RunningObjects, private HostAutomationObject
{
public:
    using Send = int (*)(TextView name, int code, const CKexString& text);
    explicit HeadlessObjects(Send send) : send_(send) {}

    unsigned registerActive() override
    {
        return hostRegisterActiveObject(CKexApp15::kProgId, this);
    }
    void revokeActive(unsigned cookie) override { hostRevokeActiveObject(cookie); }

private:
    /// SendData: a text, a 32-bit integer, a text; a 32-bit integer comes back.
    bool invoke(const ACHAR* method, const resbuf* args, resbuf* result) override
    {
        if (!equalNoCase(method, KT("SendData"))) return false;
        const resbuf* const name = args;
        const resbuf* const code = name == nullptr ? nullptr : name->rbnext;
        const resbuf* const text = code == nullptr ? nullptr : code->rbnext;
        if (text == nullptr || text->rbnext != nullptr) return false;
        if (name->restype != RTSTR || code->restype != RTLONG || text->restype != RTSTR) {
            return false;
        }
        result->restype = RTLONG;
        result->resval.rlong =
            send_(name->resval.rstring, code->resval.rlong, CKexString(text->resval.rstring));
        return true;
    }

    Send send_;
};

} // namespace

std::unique_ptr<RunningObjects> makeRunningObjects(int (*send)(TextView, int, const CKexString&))
{
    return std::make_unique<HeadlessObjects>(send);
}

} // namespace KEX
