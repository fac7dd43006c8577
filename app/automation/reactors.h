// SPDX-License-Identifier: LicenseRef-ORVALD
// The module's automation object: callbacks by name that programs outside the host may reach
// through its one method, SendData. It is entered in the table of running objects while there is
// at least one callback.
#pragma once

#include "hostapi/arxapp.h"
#include "kex/map.h"
#include "kex/string.h"

#include <memory>

namespace KEX {

/// What other modules register: the answer goes back to the caller of SendData.
using ReactorCallback = int (*)(int code, const ACHAR* text);

/// The table of running objects, of the platform.
class RunningObjects
{
public:
    virtual ~RunningObjects() = default;
    /// Enters the automation object of this module; the cookie takes it out again, 0 when the
    /// system refuses.
    virtual unsigned registerActive() = 0;
    virtual void revokeActive(unsigned cookie) = 0;
};
/// `send` is what SendData calls.
std::unique_ptr<RunningObjects> makeRunningObjects(int (*send)(TextView name, int code,
                                                               const CKexString& text));

/// The automation object "Kex.ArxApp.15".
class CKexApp15
{
public:
    /// Program name and class of the object.
    static constexpr const ACHAR* kProgId = KT("Kex.ArxApp.15");
    static constexpr const ACHAR* kClassId = KT("{81F80D0F-83C6-4D45-9D08-183CF78EF89E}");
    /// SendData for a name that nobody registered.
    static constexpr int kUnknownName = 2;

    CKexApp15();
    ~CKexApp15();
    CKexApp15(const CKexApp15&) = delete;
    CKexApp15& operator=(const CKexApp15&) = delete;

    /// Enters or replaces a callback; a null callback takes the name out. False for a null name.
    bool set(const ACHAR* name, ReactorCallback callback);
    /// The answer of the callback with that name, kUnknownName when there is none.
    int sendData(TextView name, int code, const CKexString& text) const;

    /// The object of the loaded module; null before it is loaded and after it is unloaded.
    static CKexApp15* instance();

private:
    CKexMapTempl<CKexString, ReactorCallback> callbacks_; // by upper-case name
    std::unique_ptr<RunningObjects> running_;
    unsigned cookie_ = 0; // 0: not entered
};

} // namespace KEX

extern "C" {
/// A null callback is KexRemoveReactor; false for a null name or while the module is not loaded.
ACRX_EXPORT bool KexAddReactor(const ACHAR* name, KEX::ReactorCallback callback);
ACRX_EXPORT bool KexRemoveReactor(const ACHAR* name);
}
