// SPDX-License-Identifier: LicenseRef-ORVALD
// The table of running objects of Windows.
#include "automation/reactors.h"
#include "kexos/desktop.h"

namespace KEX {
namespace {

class WindowsObjects final : public RunningObjects, private kexos::DataReceiver
{
public:
    using Send = int (*)(TextView name, int code, const CKexString& text);
    explicit WindowsObjects(Send send) : send_(send), object_(*this) {}

    unsigned registerActive() override { return object_.enter(toUtf8(CKexApp15::kClassId)); }
    void revokeActive(unsigned) override { object_.leave(); }

private:
    int sendData(const std::string& name, int code, const std::string& text) override
    {
        return send_(CKexString::fromUtf8(name), code, CKexString::fromUtf8(text));
    }

    Send send_;
    kexos::RunningObject object_;
};

} // namespace

std::unique_ptr<RunningObjects> makeRunningObjects(int (*send)(TextView, int, const CKexString&))
{
    return std::make_unique<WindowsObjects>(send);
}

} // namespace KEX
